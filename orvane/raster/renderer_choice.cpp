// SPDX-License-Identifier: MIT
#include "orvane/raster/renderer_choice.h"

#include "orvane/raster/instruction_sets.h"

namespace orvane::raster
{

namespace
{

struct Candidate {
    const Kernels* kernels;
    bool usable;
};

#if defined(ORVANE_X86_KERNELS)
/// From the narrowest to the widest. A machine without any of them has no fast renderer: null kernels.
std::vector<Candidate> Candidates()
{
    __builtin_cpu_init();
    const bool avx2 = __builtin_cpu_supports("avx2") && __builtin_cpu_supports("bmi") &&
                      __builtin_cpu_supports("bmi2") && __builtin_cpu_supports("fma");
    const bool avx512 = avx2 && __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw") &&
                        __builtin_cpu_supports("avx512dq") && __builtin_cpu_supports("avx512vl") &&
                        __builtin_cpu_supports("avx512cd");
    return {{&kKernelsSse4, __builtin_cpu_supports("sse4.2") != 0}, {&kKernelsAvx2, avx2}, {&kKernelsAvx512, avx512}};
}
#else
std::vector<Candidate> Candidates()
{
    return {{&kKernelsBaseline, true}};
}
#endif

const Kernels* Best()
{
    const Kernels* best = nullptr;
    for (const auto& [kernels, usable] : Candidates()) {
        best = usable ? kernels : best;
    }
    return best;
}

struct Choice {
    const Kernels* kernels = Best();
    Renderer renderer = kernels != nullptr ? Renderer::Fast : Renderer::Reference;
};

/// Made on first need, which may come before this library's own initialisation.
Choice& TheChoice()
{
    static Choice choice;
    return choice;
}

} // namespace

void SetRenderer(Renderer renderer)
{
    if (renderer == Renderer::Reference || TheChoice().kernels != nullptr) {
        TheChoice().renderer = renderer;
    }
}

Renderer CurrentRenderer()
{
    return TheChoice().renderer;
}

std::vector<std::string_view> InstructionSets()
{
    std::vector<std::string_view> names;
    for (const auto& [kernels, usable] : Candidates()) {
        if (usable) {
            names.emplace_back(kernels->name);
        }
    }
    return names;
}

bool SetInstructionSet(std::string_view name)
{
    for (const auto& [kernels, usable] : Candidates()) {
        if (usable && kernels->name == name) {
            TheChoice().kernels = kernels;
            return true;
        }
    }
    return false;
}

const Kernels& CurrentKernels()
{
    return *TheChoice().kernels;
}

} // namespace orvane::raster

// SPDX-License-Identifier: MIT
// What a step of a drag costs in the windowed Klondike: a card and the cards on it follow the mouse through the whole
// program, from the event to the pixels shown. Arguments: the folder with the deck's pictures, a folder for its cache.
#include "examples/klondike/app/program.h"
#include "host/bitmap.h"
#include "host/globals.h"
#include "orvane/orvane.h"

#include <SDL.h>

#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <exception>
#include <filesystem>
#include <iostream>
#include <numbers>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace
{

constexpr int kWidth = 800;
constexpr int kHeight = 600;
constexpr int kSteps = 2000;

/// Of all threads, microseconds.
double CpuTime()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_nsec) / 1e3;
}

void MouseEvent(Uint32 type, int x, int y)
{
    SDL_Event event{};
    event.type = type;
    if (type == SDL_MOUSEMOTION) {
        event.motion.x = x;
        event.motion.y = y;
    } else {
        event.button.button = SDL_BUTTON_LEFT;
        event.button.clicks = 1;
        event.button.x = x;
        event.button.y = y;
    }
    SDL_PushEvent(&event);
}

/// A dealt game, and a mouse.
class Drag
{
public:
    Drag(const std::string& assets, const std::string& cache) : m_host(HostSettings()), m_window(m_host, {})
    {
        klondike::Setup setup;
        setup.decks = {assets, {}, cache};
        m_program = std::make_unique<klondike::Program>(m_host, m_window, std::move(setup), [this] { return m_now; });
        do {
            Step();
            if (!m_program->View().HasDeck()) {
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            }
        } while (m_program->IsBusy());
        if (!m_program->View().HasDeck()) {
            throw std::runtime_error("there is no deck in '" + assets + "'");
        }
    }

    /// Microseconds of the processor a step, and pixels shown.
    std::pair<double, double> Measure()
    {
        const auto area = m_program->View().AreaOf({klondike::kNumPiles - 1, 7});
        const int x = area.x + area.width / 2;
        const int y = area.y + area.height / 2;
        MouseEvent(SDL_MOUSEBUTTONDOWN, x, y);
        Step();
        const std::uint64_t pixels = Pixels();
        const double start = CpuTime();
        for (int step = 0; step < kSteps; ++step) {
            const double angle = 2.0 * std::numbers::pi * step / 120.0;
            MouseEvent(SDL_MOUSEMOTION, x - 250 + static_cast<int>(230.0 * std::cos(angle)),
                       y + static_cast<int>(130.0 * std::sin(angle)));
            Step();
        }
        const double time = (CpuTime() - start) / kSteps;
        const double shown = static_cast<double>(Pixels() - pixels) / kSteps;
        MouseEvent(SDL_MOUSEBUTTONUP, 5, 5);
        while (Step(), m_program->IsBusy()) {
        }
        return {time, shown};
    }

private:
    static orvane::Settings HostSettings()
    {
        orvane::Settings settings;
        settings.width = kWidth;
        settings.height = kHeight;
        return settings;
    }
    void Step()
    {
        m_program->Loop().Step();
        m_now += glb->framePeriod;
    }
    std::uint64_t Pixels() { return m_program->Loop().Counters().pixelsPresented; }

    std::uint64_t m_now = 0;
    orvane::Host m_host;
    orvane::Window m_window;
    std::unique_ptr<klondike::Program> m_program;
};

/// Microseconds for copying a whole window's pixels once.
double WindowCopyTime()
{
    std::vector<unsigned char> from(std::size_t{4} * kWidth * kHeight, 1);
    std::vector<unsigned char> to(from.size());
    const double start = CpuTime();
    for (int i = 0; i < kSteps; ++i) {
        from[static_cast<std::size_t>(i)] ^= 1U;
        std::memcpy(to.data(), from.data(), from.size());
        if (to[static_cast<std::size_t>(i)] != from[static_cast<std::size_t>(i)]) {
            throw std::logic_error("the copy is wrong");
        }
    }
    return (CpuTime() - start) / kSteps;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::cerr << "usage: drag_cost ASSETS CACHE\n";
        return 2;
    }
    try {
        Drag drag(argv[1], argv[2]);
        drag.Measure(); // the first time everything is touched
        for (int round = 0; round < 3; ++round) {
            const double copy = WindowCopyTime();
            const auto [time, pixels] = drag.Measure();
            std::printf("%.0f us a step, %.0f pixels shown; %.2f times the copying of the window's pixels\n", time,
                        pixels, time / copy);
        }
    } catch (const std::exception& error) {
        std::cerr << "drag_cost: " << error.what() << "\n";
        return 1;
    }
    return 0;
}

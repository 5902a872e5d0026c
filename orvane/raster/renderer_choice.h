// SPDX-License-Identifier: MIT
#pragma once

#include "host/export.h"

#include <string_view>
#include <vector>

namespace orvane::raster
{

/// Who makes the pixels of a quadrilateral. Both follow the same rules; a channel differs by 1 of 255 at most, since
/// the fast one works with 32-bit floating point and 15-bit weights. Pictures at whole pixels are equal.
enum class Renderer {
    Reference, ///< plain, one pixel at a time
    Fast       ///< many pixels at a time; what it has no way for is left to the reference
};

/// For tests and benchmarks; a process starts with Fast. Not while another thread draws.
ORVANE_API void SetRenderer(Renderer renderer);
ORVANE_API Renderer CurrentRenderer();

/// The instruction sets that this build has code for and this machine can run, the best one last.
ORVANE_API std::vector<std::string_view> InstructionSets();
/// The fast renderer and BlendRow use this one from now on; a process starts with the best. All give the same
/// pictures, bit for bit. Returns false, and changes nothing, when it is none of InstructionSets().
ORVANE_API bool SetInstructionSet(std::string_view name);

} // namespace orvane::raster

// SPDX-License-Identifier: MIT
// The inner loops of the fast renderer, for the instruction set that the including file is compiled for: the last file
// of this folder that it includes, once. Nothing of the standard library is called, since the linker might take such a
// function from here for the whole program, also on a machine that can't run it.
//
// All results are the same for every instruction set: multiplications and additions are never fused, the colour
// arithmetic is of whole numbers, and what a pixel becomes does not depend on the others of its vector.
#include "orvane/raster/instruction_sets.h"
#include "orvane/raster/kernels/quad-inl.h"
#include "orvane/raster/kernels/upright-inl.h"

namespace orvane::raster
{

const Kernels ORVANE_KERNELS{ORVANE_KERNELS_NAME, BlendRowOf, DrawUprightOf, DrawQuadOf};

} // namespace orvane::raster

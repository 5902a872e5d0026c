// SPDX-License-Identifier: MIT
#pragma once

#include "orvane/raster/kernels.h"

namespace orvane::raster
{

///@{
/// One a source file, each compiled for its instruction set.
#if defined(ORVANE_X86_KERNELS)
extern const Kernels kKernelsSse4;
extern const Kernels kKernelsAvx2;
extern const Kernels kKernelsAvx512;
#else
extern const Kernels kKernelsBaseline;
#endif
///@}

} // namespace orvane::raster

// SPDX-License-Identifier: MIT
// The kernels for what every machine of this architecture has.
#define ORVANE_KERNELS kKernelsBaseline
#define ORVANE_KERNELS_NAME "baseline"
#include "orvane/raster/kernels/kernels-inl.h"

// SPDX-License-Identifier: MIT
// The kernels for SSE4.2.
#define ORVANE_KERNELS kKernelsSse4
#define ORVANE_KERNELS_NAME "sse4"
#include "orvane/raster/kernels/kernels-inl.h"

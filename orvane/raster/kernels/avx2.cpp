// SPDX-License-Identifier: MIT
// The kernels for AVX2.
#define ORVANE_KERNELS kKernelsAvx2
#define ORVANE_KERNELS_NAME "avx2"
#include "orvane/raster/kernels/kernels-inl.h"

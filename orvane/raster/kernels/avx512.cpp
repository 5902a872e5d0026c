// SPDX-License-Identifier: MIT
// The kernels for AVX-512.
#define ORVANE_KERNELS kKernelsAvx512
#define ORVANE_KERNELS_NAME "avx512"
#include "orvane/raster/kernels/kernels-inl.h"

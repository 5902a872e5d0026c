// SPDX-License-Identifier: MIT
#pragma once

#include "host/owned_bitmap.h"

namespace deal
{

/// The screen's picture, opaque, each pixel the mean of factor x factor of its pixels; what does not fill a whole one
/// is left out.
OwnedBitmap Shrunk(const Bitmap& screen, int factor);
/// The smallest factor that brings a width down to a limit.
int ShrinkFactor(int width, int limit);

} // namespace deal

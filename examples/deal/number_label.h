// SPDX-License-Identifier: MIT
#pragma once

#include "host/owned_bitmap.h"

namespace deal
{

/// A number of 0 or more in light digits on a dark plate.
OwnedBitmap NumberLabel(int number);

} // namespace deal

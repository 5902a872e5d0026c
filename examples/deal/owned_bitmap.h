// SPDX-License-Identifier: MIT
#pragma once

#include "host/bitmap_manager.h"

#include <memory>

namespace deal
{

struct BitmapDestroyer {
    void operator()(Bitmap* bitmap) const { BitmapManager::Instance().Destroy(bitmap); }
};

/// A bitmap of the host's that is destroyed with its owner.
using OwnedBitmap = std::unique_ptr<Bitmap, BitmapDestroyer>;

} // namespace deal

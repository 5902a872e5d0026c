// SPDX-License-Identifier: MIT
#pragma once

#include "host/bitmap_manager.h"

#include <memory>

/// Gives a bitmap back to the manager; null is fine.
struct BitmapDestroyer {
    /// Destroys it.
    void operator()(Bitmap* bitmap) const { BitmapManager::Instance().Destroy(bitmap); }
};

/// A bitmap that is destroyed with its owner, unless the owner lets it go.
using OwnedBitmap = std::unique_ptr<Bitmap, BitmapDestroyer>;

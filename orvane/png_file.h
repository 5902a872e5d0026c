// SPDX-License-Identifier: MIT
#pragma once

#include "host/export.h"

#include <string>

class Bitmap;

namespace orvane
{

/// Writes a bitmap to a PNG file with straight alpha, or without alpha when every pixel is opaque; see-through pixels
/// may lose up to the last bit of their colour. Returns false, and writes one error line to the log, for an empty
/// bitmap and when the file cannot be written.
ORVANE_API bool SavePng(const Bitmap& bitmap, const std::string& file);

} // namespace orvane

// SPDX-License-Identifier: MIT
#pragma once

class Bitmap;
class CLList;

/// Destroys every bitmap of a list and empties it.
void DestroyTextures(CLList& textures);

/// A new bitmap with the same pixels; null when there is none to be had of that size.
Bitmap* CopyOf(const Bitmap& source);

/// Multiplies each of the four bytes of every pixel by a factor; the product is truncated toward zero and keeps its low
/// eight bits, so that a factor above 1 or below 0 wraps.
void ScaleBytes(Bitmap& bitmap, double factor);

// SPDX-License-Identifier: MIT
#pragma once

#include "host/owned_bitmap.h"

#include <string>

namespace bench
{

/// A bitmap of that size; throws when there is none to be had.
OwnedBitmap MakeBitmap(int width, int height);

/// A sheet of cards without gaps: rounded corners with soft edges, nothing outside them, and a pattern inside in which
/// every card differs.
OwnedBitmap DrawSheet(int columns, int rows, int cardWidth, int cardHeight);

/// An opaque picture of a table.
OwnedBitmap DrawTable(int width, int height);

/// A picture file in the folder for temporary files, removed at the end.
class TemporaryPicture
{
public:
    explicit TemporaryPicture(const Bitmap& picture);
    ~TemporaryPicture();
    TemporaryPicture(const TemporaryPicture&) = delete;
    TemporaryPicture& operator=(const TemporaryPicture&) = delete;

    const char* Path() const { return m_path.c_str(); }

private:
    std::string m_path;
};

} // namespace bench

// SPDX-License-Identifier: MIT
#pragma once

#include "host/owned_bitmap.h"

#include <vector>

namespace deal
{

/// Gathers small pictures of a film, evenly spread over however many frames it turns out to have, and lays them out in
/// a grid, each with its frame number, so that a motion can be seen in one picture.
class ContactSheet
{
public:
    /// The screen's size, pixels.
    ContactSheet(int width, int height);

    /// Offers the next frame. Shrinks it only when it is kept; few are.
    void Add(int frameNumber, const Bitmap& screen);
    OwnedBitmap Compose() const;

private:
    static constexpr int kColumns = 4;
    static constexpr int kRows = 5;

    struct Moment {
        int frameNumber;
        OwnedBitmap picture;
    };

    int m_factor;
    int m_cellWidth;
    int m_cellHeight;
    std::vector<Moment> m_moments; ///< every m_interval-th of the frames offered
    int m_interval = 1;
    int m_offered = 0;
};

} // namespace deal

// SPDX-License-Identifier: MIT
#pragma once

#include "examples/deal/contact_sheet.h"
#include "examples/deal/headless_table.h"
#include "examples/deal/webp_animation.h"

#include <string>

namespace deal
{

/// Records what is to be seen on a table: an animation of every other frame, small, and a contact sheet of the moments
/// when cards fly.
class Recorder
{
public:
    explicit Recorder(HeadlessTable& table);

    /// Takes in the frame that has just been composed. Throws Failure.
    void Add(const FrameReport& report);
    /// Writes deal.webp, film.png and, as it is now, table.png. Throws Failure.
    void Save(const std::string& folder);

private:
    void SavePicture(const Bitmap& picture, const std::string& file) const;

    HeadlessTable& m_table;
    int m_factor;
    WebpAnimation m_animation;
    ContactSheet m_sheet;
    int m_frames = 0;
};

} // namespace deal

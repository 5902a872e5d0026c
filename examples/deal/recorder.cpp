// SPDX-License-Identifier: MIT
#include "examples/deal/recorder.h"

#include "examples/deal/failure.h"
#include "examples/deal/frame_clock.h"
#include "examples/deal/shrink.h"
#include "orvane/png_file.h"

#include <cstdint>

namespace deal
{

namespace
{

constexpr int kAnimationWidth = 640; // at most, pixels
constexpr int kFramesAPicture = 2;

int Milliseconds(int frames)
{
    return static_cast<int>(std::int64_t{frames} * FrameClock::kPeriod / 1000);
}

} // namespace

Recorder::Recorder(HeadlessTable& table)
    : m_table(table), m_factor(ShrinkFactor(table.Width(), kAnimationWidth)),
      m_animation(table.Width() / m_factor, table.Height() / m_factor), m_sheet(table.Width(), table.Height())
{
}

void Recorder::Add(const FrameReport& report)
{
    const Bitmap& screen = m_table.Host().Screen();
    if (m_frames % kFramesAPicture == 0) {
        m_animation.Add(*Shrunk(screen, m_factor), Milliseconds(m_frames));
    }
    ++m_frames;
    if (report.cardsInAir > 0) {
        m_sheet.Add(report.number, screen);
    }
}

void Recorder::Save(const std::string& folder)
{
    constexpr int kLastPictureFrames = 120;
    const Bitmap& screen = m_table.Host().Screen();
    m_animation.Add(*Shrunk(screen, m_factor), Milliseconds(m_frames));
    m_animation.Save(folder + "/deal.webp", Milliseconds(m_frames + kLastPictureFrames));
    SavePicture(*m_sheet.Compose(), folder + "/film.png");
    SavePicture(screen, folder + "/table.png");
}

void Recorder::SavePicture(const Bitmap& picture, const std::string& file) const
{
    if (!orvane::SavePng(picture, file)) {
        throw Failure(m_table.LastError());
    }
}

} // namespace deal

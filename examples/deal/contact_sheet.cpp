// SPDX-License-Identifier: MIT
#include "examples/deal/contact_sheet.h"

#include "examples/deal/number_label.h"
#include "examples/deal/shrink.h"
#include "host/render.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace deal
{

namespace
{

constexpr int kCellWidth = 480; // at most, pixels
constexpr int kGap = 6;
constexpr Rgba kGapColour{16, 24, 20, 255};

void Paste(const Bitmap& source, Bitmap& target, int left, int top)
{
    Render::Instance().Copy(&source, &target, left, top, 0, 0, source.Width(), source.Height());
}

} // namespace

ContactSheet::ContactSheet(int width, int height)
    : m_factor(ShrinkFactor(width, kCellWidth)), m_cellWidth(width / m_factor), m_cellHeight(height / m_factor)
{
}

void ContactSheet::Add(int frameNumber, const Bitmap& screen)
{
    constexpr std::size_t kMost = 2 * kColumns * kRows;
    if (m_offered++ % m_interval != 0) {
        return;
    }
    m_moments.push_back({frameNumber, Shrunk(screen, m_factor)});
    if (m_moments.size() > kMost) {
        // The film is longer than thought: every other moment goes, and fewer are kept from now on.
        std::size_t kept = 0;
        for (std::size_t i = 0; i < m_moments.size(); i += 2) {
            std::swap(m_moments[kept++], m_moments[i]);
        }
        m_moments.resize(kept);
        m_interval *= 2;
    }
}

OwnedBitmap ContactSheet::Compose() const
{
    const int count = std::min(kColumns * kRows, static_cast<int>(m_moments.size()));
    const int rows = (count + kColumns - 1) / kColumns;
    OwnedBitmap sheet(
        BitmapManager::Instance().Create(kColumns * (m_cellWidth + kGap) + kGap, rows * (m_cellHeight + kGap) + kGap));
    sheet->FillRect({0, 0, sheet->Width(), sheet->Height()}, kGapColour);
    for (int i = 0; i < count; ++i) {
        const double spread = count > 1 ? static_cast<double>(m_moments.size() - 1) / (count - 1) : 0.0;
        const Moment& moment = m_moments[static_cast<std::size_t>(std::lround(i * spread))];
        const int left = kGap + i % kColumns * (m_cellWidth + kGap);
        const int top = kGap + i / kColumns * (m_cellHeight + kGap);
        Paste(*moment.picture, *sheet, left, top);
        const OwnedBitmap label = NumberLabel(moment.frameNumber);
        Paste(*label, *sheet, left, top + m_cellHeight - label->Height());
    }
    return sheet;
}

} // namespace deal

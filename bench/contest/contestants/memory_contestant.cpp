// SPDX-License-Identifier: MIT
// Not renderers but limits: the pixels of every row of a card are copied, or blended, from consecutive memory of the
// picture to where the card lies. No sampling, no soft edges, and no picture to speak of.
#include "bench/contest/contestant.h"
#include "bench/contest/over_row.h"
#include "bench/contest/target_memory.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <limits>

namespace contest
{

namespace
{

using RowWork = void (*)(std::uint32_t* target, const std::uint32_t* source, int count);

void CopyRow(std::uint32_t* target, const std::uint32_t* source, int count)
{
    std::memcpy(target, source, static_cast<std::size_t>(count) * sizeof *target);
}

void BlendRow(std::uint32_t* target, const std::uint32_t* source, int count)
{
    OverRow(target, source, count);
}

/// The first pixel whose centre does not lie before the place.
int FirstCentre(double place)
{
    return static_cast<int>(std::ceil(place - 0.5));
}

struct Span {
    int left;
    int right; ///< exclusive
};

/// The pixels of a row with their centres in the quad.
Span RowSpan(const Quad& quad, int y, int width)
{
    const double middle = y + 0.5;
    double left = std::numeric_limits<double>::max();
    double right = 0.0;
    for (std::size_t i = 0; i < quad.size(); ++i) {
        const Point& from = quad[i];
        const Point& to = quad[(i + 1) % quad.size()];
        if ((from.y <= middle) != (to.y <= middle)) {
            const double x = from.x + (middle - from.y) / (to.y - from.y) * (to.x - from.x);
            left = std::min(left, x);
            right = std::max(right, x);
        }
    }
    return {std::max(FirstCentre(std::min<double>(left, width)), 0), std::min(FirstCentre(right), width)};
}

class MemoryContestant final : public Contestant
{
public:
    explicit MemoryContestant(RowWork work) : m_work(work) {}

    void SetUp(int width, int height, const std::vector<Picture>& pictures) override
    {
        m_target = TargetMemory(width, height);
        m_pictures = &pictures;
    }

    void Draw(const Frame& frame) override
    {
        const Pixels& target = m_target.Get();
        for (std::size_t i = 0; i < frame.size(); ++i) {
            const std::vector<std::uint32_t>& words = (*m_pictures)[i % m_pictures->size()].premultiplied;
            const Box box = PixelBox(frame[i], target.width, target.height, 0);
            std::size_t used = 0;
            for (int y = box.top; y < box.bottom; ++y) {
                const auto [left, right] = RowSpan(frame[i], y, target.width);
                if (left >= right) {
                    continue;
                }
                const auto count = static_cast<std::size_t>(right - left);
                used = used + count > words.size() ? 0 : used;
                m_work(target.Row(y) + left, &words[used], right - left);
                used += count;
            }
        }
    }

    Pixels Target() override { return m_target.Get(); }

private:
    RowWork m_work;
    TargetMemory m_target;
    const std::vector<Picture>* m_pictures = nullptr;
};

template <RowWork work> std::unique_ptr<Contestant> Make()
{
    return std::make_unique<MemoryContestant>(work);
}

} // namespace

std::vector<Entry> Entries()
{
    return {{"memory-copy", "no renderer: memcpy of as many pixels", Make<CopyRow>},
            {"memory-over", "no renderer: a plain loop that blends as many pixels", Make<BlendRow>}};
}

} // namespace contest

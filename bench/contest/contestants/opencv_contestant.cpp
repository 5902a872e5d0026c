// SPDX-License-Identifier: MIT
// OpenCV warps the card into a buffer as large as the box around it; this file's loop blends that. Beyond the picture
// lies transparency, which makes the edges half a texel soft.
#include "bench/contest/contestant.h"
#include "bench/contest/over_row.h"
#include "bench/contest/target_memory.h"

#include <opencv2/imgproc.hpp>

#include <array>
#include <cstddef>

namespace contest
{

namespace
{

using Corners = std::array<cv::Point2f, 4>;

/// OpenCV's pixel centres are whole numbers.
cv::Point2f Centred(double x, double y)
{
    return {static_cast<float>(x - 0.5), static_cast<float>(y - 0.5)};
}

class OpencvContestant final : public Contestant
{
public:
    void SetUp(int width, int height, const std::vector<Picture>& pictures) override
    {
        cv::setNumThreads(1);
        m_target = TargetMemory(width, height);
        m_buffer.create(height, width, CV_8UC4);
        for (const Picture& picture : pictures) {
            // OpenCV reads from the memory only, but has no type for that
            m_cards.emplace_back(picture.height, picture.width, CV_8UC4,
                                 const_cast<std::uint32_t*>(picture.premultiplied.data()),
                                 static_cast<std::size_t>(picture.RowBytes()));
        }
    }

    void Draw(const Frame& frame) override
    {
        const Pixels& target = m_target.Get();
        for (std::size_t i = 0; i < frame.size(); ++i) {
            const Box box = PixelBox(frame[i], target.width, target.height, 1);
            if (box.Empty()) {
                continue;
            }
            cv::Mat warped = m_buffer(cv::Rect(0, 0, box.Width(), box.Height()));
            Warp(m_cards[i % m_cards.size()], frame[i], box, warped);
            for (int y = 0; y < box.Height(); ++y) {
                OverRow(target.Row(box.top + y) + box.left, warped.ptr<std::uint32_t>(y), box.Width());
            }
        }
    }

    Pixels Target() override { return m_target.Get(); }

private:
    static void Warp(const cv::Mat& card, const Quad& quad, const Box& box, cv::Mat& warped)
    {
        const Corners from{Centred(0.0, 0.0), Centred(card.cols, 0.0), Centred(card.cols, card.rows),
                           Centred(0.0, card.rows)};
        Corners to;
        for (std::size_t corner = 0; corner < to.size(); ++corner) {
            to[corner] = Centred(quad[corner].x - box.left, quad[corner].y - box.top);
        }
        constexpr int kFlags = cv::INTER_LINEAR | cv::WARP_INVERSE_MAP;
        if (IsParallelogram(quad)) {
            // which takes the first three corners
            cv::warpAffine(card, warped, cv::getAffineTransform(to.data(), from.data()), warped.size(), kFlags,
                           cv::BORDER_CONSTANT, cv::Scalar());
        } else {
            cv::warpPerspective(card, warped, cv::getPerspectiveTransform(to.data(), from.data()), warped.size(),
                                kFlags, cv::BORDER_CONSTANT, cv::Scalar());
        }
    }

    TargetMemory m_target;
    cv::Mat m_buffer;
    std::vector<cv::Mat> m_cards;
};

} // namespace

std::vector<Entry> Entries()
{
    return {{"opencv", std::string("OpenCV ") + CV_VERSION + " warpPerspective or warpAffine, bilinear, and a blend",
             []() -> std::unique_ptr<Contestant> { return std::make_unique<OpencvContestant>(); }}};
}

} // namespace contest

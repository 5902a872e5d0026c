// SPDX-License-Identifier: MIT
#include "deck_files_maker.h"

#include "examples/klondike/decks/deck_renderer.h"

#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <filesystem>
#include <mutex>
#include <vector>

namespace
{

using klondike::Deck;
using klondike::DeckRenderer;

/// Where the answers of a renderer arrive.
class Answers
{
public:
    void Add(const DeckRenderer::Result& result)
    {
        const std::lock_guard lock(m_mutex);
        m_results.push_back(result);
        m_arrived.notify_all();
    }

    /// All answers once that of the request is there.
    std::vector<DeckRenderer::Result> Until(std::uint64_t request)
    {
        std::unique_lock lock(m_mutex);
        const bool isThere = m_arrived.wait_for(
            lock, std::chrono::seconds(60), [&] { return !m_results.empty() && m_results.back().request == request; });
        EXPECT_TRUE(isThere) << "no answer to request " << request;
        return m_results;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_arrived;
    std::vector<DeckRenderer::Result> m_results;
};

TEST(DeckRenderer, AnswersTheLatestRequest)
{
    const DeckFolder folder;
    Write(folder / "grid.svg", GridDrawing());
    const Deck deck = DeckOf(Deck::Kind::SvgGrid, folder / "grid.svg");
    Answers answers;
    DeckRenderer renderer((folder / "cache").string(), [&](const auto& result) { answers.Add(result); });
    std::uint64_t last = 0;
    constexpr int kRequests = 50;
    for (int i = 0; i < kRequests; ++i) {
        last = renderer.Request(deck, {30 + i, 200});
    }
    EXPECT_EQ(last, static_cast<std::uint64_t>(kRequests));
    const std::vector<DeckRenderer::Result> results = answers.Until(last);
    EXPECT_LT(results.size(), static_cast<std::size_t>(kRequests) / 2) << "older requests are given up";
    EXPECT_EQ(results.back().files.cardWidth, 30 + kRequests - 1);
    EXPECT_EQ(results.back().files.cardHeight, 111) << "a card of 100 x 140 in a room 79 pixels wide";
    EXPECT_DOUBLE_EQ(results.back().aspect, 100.0 / 140.0);
    EXPECT_EQ(results.back().error, "");
    EXPECT_TRUE(std::filesystem::exists(results.back().files.sheet));
    EXPECT_EQ(results.back().deck.faces, deck.faces);
}

TEST(DeckRenderer, ReportsFailuresAndGoesOn)
{
    const DeckFolder folder;
    Write(folder / "grid.svg", GridDrawing());
    Answers answers;
    DeckRenderer renderer((folder / "cache").string(), [&](const auto& result) { answers.Add(result); });
    const std::uint64_t bad = renderer.Request(DeckOf(Deck::Kind::SvgGrid, folder / "missing.svg"), {71, 96});
    EXPECT_NE(answers.Until(bad).back().error.find("missing.svg"), std::string::npos);
    const std::uint64_t good = renderer.Request(DeckOf(Deck::Kind::SvgGrid, folder / "grid.svg"), {71, 96});
    EXPECT_EQ(answers.Until(good).back().error, "");
}

// Each card is blurred by a filter that works through the whole page: drawn to the end this takes eight seconds.
TEST(DeckRenderer, EndsPromptlyInTheMiddleOfADeck)
{
    const DeckFolder folder;
    std::string text = ElementsDrawing();
    const std::string svg = "height='500'>";
    text.insert(text.find(svg) + svg.size(), "<filter id='blur'><feGaussianBlur stdDeviation='3'/></filter>");
    for (std::size_t at = text.find("<g "); at != std::string::npos; at = text.find("<g ", at + 4)) {
        text.insert(at + 3, "filter='url(#blur)' ");
    }
    Write(folder / "slow.svg", text);
    bool isAnswered = false;
    const auto start = std::chrono::steady_clock::now();
    {
        DeckRenderer renderer((folder / "cache").string(), [&](const auto&) { isAnswered = true; });
        renderer.Request(DeckOf(Deck::Kind::SvgElements, folder / "slow.svg"), {400, 560});
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(3));
    EXPECT_FALSE(isAnswered);
    EXPECT_FALSE(std::filesystem::exists(folder / "cache"));
}

} // namespace

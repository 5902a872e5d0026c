// SPDX-License-Identifier: MIT
// The program of one library's contestants:
//
//     contest_NAME list                               name and description of each, a line with a tab
//     contest_NAME time CONTESTANT SCENE SECONDS      draws for that long; one line of JSON, {} when it can't
//     contest_NAME picture CONTESTANT SCENE FILE      writes the frame that is compared, as a pixmap
#include "bench/contest/card_picture.h"
#include "bench/contest/contestant.h"
#include "bench/contest/pixmap_file.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <exception>
#include <stdexcept>
#include <utility>

namespace
{

using namespace contest;

constexpr std::size_t kLeastFrames = 3;
constexpr double kMostWarmUp = 2.0; ///< seconds
constexpr int kUsageError = 2;

const Entry& FindEntry(const std::vector<Entry>& entries, const std::string& name)
{
    const auto found =
        std::find_if(entries.begin(), entries.end(), [&](const Entry& entry) { return entry.name == name; });
    if (found == entries.end()) {
        throw std::invalid_argument("there is no contestant " + name + " here");
    }
    return *found;
}

/// A contestant on a scene.
class Stage
{
public:
    Stage(std::unique_ptr<Contestant> contestant, const Scene& scene)
        : m_frames(MakeFrames(scene)),
          m_pictures(static_cast<std::size_t>(scene.pictures), DrawCard(scene.cardWidth, scene.cardHeight)),
          m_contestant(std::move(contestant))
    {
        m_contestant->SetUp(scene.width, scene.height, m_pictures);
    }

    std::size_t NumFrames() const { return m_frames.size(); }
    const Frame& At(std::size_t frame) const { return m_frames[frame % m_frames.size()]; }

    void Clear()
    {
        const Pixels target = Target();
        for (int y = 0; y < target.height; ++y) {
            std::fill_n(target.Row(y), target.width, kTable);
        }
    }
    void Draw(std::size_t frame) { m_contestant->Draw(At(frame)); }
    Pixels Target() { return m_contestant->Target(); }

private:
    std::vector<Frame> m_frames;
    std::vector<Picture> m_pictures;
    std::unique_ptr<Contestant> m_contestant; // last: the pictures outlive it
};

double Seconds(clockid_t clock)
{
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

struct Timing {
    std::size_t frames = 0;
    double pixels = 0.0;
    double seconds = 0.0; ///< of this process alone, since other programs take turns on the machine
};

/// Draws the frames from one of them on, for that long at least.
Timing DrawFor(Stage& stage, const Scene& scene, std::size_t first, double seconds)
{
    Timing timing;
    double passed = 0.0;
    for (; passed < seconds || timing.frames < kLeastFrames; ++timing.frames) {
        const std::size_t frame = first + timing.frames;
        stage.Clear();
        const double start = Seconds(CLOCK_MONOTONIC);
        const double processorStart = Seconds(CLOCK_PROCESS_CPUTIME_ID);
        stage.Draw(frame);
        timing.seconds += Seconds(CLOCK_PROCESS_CPUTIME_ID) - processorStart;
        passed += Seconds(CLOCK_MONOTONIC) - start;
        for (const Quad& quad : stage.At(frame)) {
            timing.pixels += AreaInside(quad, scene.width, scene.height);
        }
    }
    return timing;
}

/// Draws the frames up to one of them, or as many of them as that takes at most.
void WarmUp(Stage& stage, std::size_t first, std::size_t end)
{
    const double start = Seconds(CLOCK_MONOTONIC);
    for (std::size_t frame = first; frame < end && Seconds(CLOCK_MONOTONIC) - start < kMostWarmUp; ++frame) {
        stage.Clear();
        stage.Draw(frame);
    }
}

std::string Json(const Timing& timing)
{
    std::array<char, 128> text{};
    const int length = std::snprintf(text.data(), text.size(), R"({"frames": %zu, "pixels": %.1f, "seconds": %.6f})",
                                     timing.frames, timing.pixels, timing.seconds);
    return {text.data(), static_cast<std::size_t>(length)};
}

/// Times twice when there are several pictures: at first, when a renderer still makes what it keeps of each picture,
/// and after each has been shown in all sizes that occur.
void Time(Stage& stage, const Scene& scene, double seconds)
{
    WarmUp(stage, 0, kLeastFrames);
    std::string first;
    if (scene.pictures > 1) {
        const Timing timing = DrawFor(stage, scene, kLeastFrames, seconds);
        first = R"("first": )" + Json(timing) + ", ";
        WarmUp(stage, kLeastFrames + timing.frames, stage.NumFrames());
    }
    std::printf("{%s\"steady\": %s}\n", first.c_str(), Json(DrawFor(stage, scene, 0, seconds)).c_str());
}

void WritePicture(Stage& stage, const std::string& path)
{
    stage.Clear();
    stage.Draw(kComparedFrame);
    WritePixmap(ToPixmap(stage.Target()), path);
}

int Run(const std::vector<std::string>& words)
{
    const std::vector<Entry> entries = Entries();
    if (words.size() == 1 && words[0] == "list") {
        for (const Entry& entry : entries) {
            std::printf("%s\t%s\n", entry.name.c_str(), entry.what.c_str());
        }
        return 0;
    }
    if (words.size() != 4 || (words[0] != "time" && words[0] != "picture")) {
        std::fprintf(stderr, "usage: list | time CONTESTANT SCENE SECONDS | picture CONTESTANT SCENE FILE\n");
        return kUsageError;
    }
    std::unique_ptr<Contestant> contestant = FindEntry(entries, words[1]).make();
    const Scene& scene = FindScene(words[2]);
    if (!contestant->CanDraw(scene.kind)) {
        std::puts("{}");
        return 0;
    }
    Stage stage(std::move(contestant), scene);
    if (words[0] == "time") {
        Time(stage, scene, std::stod(words[3]));
    } else {
        WritePicture(stage, words[3]);
    }
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    try {
        return Run(std::vector<std::string>(argv + 1, argv + argc));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", argv[0], error.what());
        return 1;
    }
}

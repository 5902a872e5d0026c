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
#include <cstdio>
#include <ctime>
#include <exception>
#include <stdexcept>
#include <utility>

namespace
{

using namespace contest;

constexpr int kWarmUpFrames = 3;
constexpr int kLeastFrames = 3;
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

/// Counts the time of this process alone, since other programs take turns on the machine.
void Time(Stage& stage, const Scene& scene, double least)
{
    for (std::size_t frame = 0; frame < kWarmUpFrames; ++frame) {
        stage.Clear();
        stage.Draw(frame);
    }
    double pixels = 0.0;
    double processor = 0.0;
    double passed = 0.0;
    std::size_t frame = 0;
    for (; passed < least || frame < kLeastFrames; ++frame) {
        stage.Clear();
        const double start = Seconds(CLOCK_MONOTONIC);
        const double processorStart = Seconds(CLOCK_PROCESS_CPUTIME_ID);
        stage.Draw(frame);
        processor += Seconds(CLOCK_PROCESS_CPUTIME_ID) - processorStart;
        passed += Seconds(CLOCK_MONOTONIC) - start;
        for (const Quad& quad : stage.At(frame)) {
            pixels += AreaInside(quad, scene.width, scene.height);
        }
    }
    std::printf("{\"frames\": %zu, \"pixels\": %.1f, \"seconds\": %.6f}\n", frame, pixels, processor);
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

// SPDX-License-Identifier: MIT
// What the contestants are asked to draw, and what it should look like:
//
//     contest_truth scenes                      the scenes, a JSON object a line
//     contest_truth render SCENE TRUTH          renders the compared frame by brute force into the file TRUTH
//     contest_truth compare TRUTH PIXMAP        how near a contestant's picture comes; one line of JSON, decibels
//     contest_truth picture TRUTH PIXMAP        writes the area truth as a picture
#include "bench/contest/card_picture.h"
#include "bench/contest/picture_error.h"
#include "bench/contest/scenes.h"
#include "bench/contest/truth_file.h"

#include <cmath>
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

namespace
{

using namespace contest;

constexpr int kSamples = 16; ///< in a row of a pixel; with more, edges move by less than rounding to 8 bits does
constexpr int kUsageError = 2;

bool LiesInside(const Quad& quad, const Scene& scene)
{
    for (const Point& corner : quad) {
        if (corner.x < 0.0 || corner.y < 0.0 || corner.x > scene.width || corner.y > scene.height) {
            return false;
        }
    }
    return true;
}

/// The middle of the uppermost card that lies wholly in the target.
Point Spot(const Scene& scene)
{
    const Frame frame = MakeFrames(scene)[kComparedFrame];
    Point spot{scene.width / 2.0, scene.height / 2.0};
    for (const Quad& quad : frame) {
        if (LiesInside(quad, scene)) {
            spot = {(quad[0].x + quad[2].x) / 2.0, (quad[0].y + quad[2].y) / 2.0};
        }
    }
    return spot;
}

void ListScenes()
{
    for (const Scene& scene : Scenes()) {
        const Point spot = Spot(scene);
        std::printf("{\"name\": \"%s\", \"kind\": \"%s\", \"width\": %d, \"height\": %d, \"card_width\": %d, "
                    "\"card_height\": %d, \"pictures\": %d, \"spot\": [%.0f, %.0f]}\n",
                    scene.name.c_str(), KindName(scene.kind), scene.width, scene.height, scene.cardWidth,
                    scene.cardHeight, scene.pictures, spot.x, spot.y);
    }
}

void Render(const Scene& scene, const std::string& path)
{
    WriteTruth(RenderTruth(scene.width, scene.height, MakeFrames(scene)[kComparedFrame],
                           DrawCard(scene.cardWidth, scene.cardHeight), kSamples),
               path);
}

void PrintError(const PictureError& error)
{
    std::printf("{\"area\": %.2f, \"conformance\": %.2f, \"edges\": %.2f, \"worst\": %.2f}\n", error.area,
                error.conformance, error.edges, error.worst);
}

Pixmap ToPixmap(const Truth& truth)
{
    Pixmap pixmap{truth.width, truth.height, {}};
    for (const TrueColour& colour : truth.area) {
        for (const float channel : colour) {
            pixmap.bytes.push_back(static_cast<std::uint8_t>(std::lround(channel)));
        }
    }
    return pixmap;
}

int Run(const std::vector<std::string>& words)
{
    const std::string command = words.empty() ? "" : words[0];
    if (command == "scenes" && words.size() == 1) {
        ListScenes();
    } else if (command == "render" && words.size() == 3) {
        Render(FindScene(words[1]), words[2]);
    } else if (command == "compare" && words.size() == 3) {
        PrintError(Compare(ReadPixmap(words[2]), ReadTruth(words[1])));
    } else if (command == "picture" && words.size() == 3) {
        WritePixmap(ToPixmap(ReadTruth(words[1])), words[2]);
    } else {
        std::fprintf(stderr, "usage: scenes | render SCENE TRUTH | compare TRUTH PIXMAP | picture TRUTH PIXMAP\n");
        return kUsageError;
    }
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    try {
        return Run(std::vector<std::string>(argv + 1, argv + argc));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "contest_truth: %s\n", error.what());
        return 1;
    }
}

// SPDX-License-Identifier: MIT
#pragma once

#include "bench/contest/quad.h"

#include <cstddef>
#include <string>
#include <vector>

namespace contest
{

/// How the cards of a scene lie.
enum class Kind {
    Blit,     ///< upright, natural size, at whole pixels
    Upright,  ///< upright, natural size, at half pixels
    Rotated,  ///< rotated in the plane, 0.6 to 1.6 times the natural size
    Minified, ///< a large picture rotated and drawn as a small card
    Tilted    ///< turned about three axes, in perspective
};

/// The word of the scene lists and the pages.
const char* KindName(Kind kind);

/// What a scene is made of; its frames come from MakeFrames.
struct Scene {
    std::string name;
    Kind kind;
    int width; ///< of the target, pixels, as the height
    int height;
    int cardWidth; ///< of the pictures, texels, as the height
    int cardHeight;
    int pictures; ///< how many; each has memory of its own
};

/// All scenes, in the order of the tables.
const std::vector<Scene>& Scenes();
/// Throws std::invalid_argument for a name that no scene has.
const Scene& FindScene(const std::string& name);

/// The frames of a scene, always the same: 52 cards each, corners at multiples of half a pixel, all clockwise. Cards
/// that are not tilted are exact parallelograms. Scenes that differ in the number of pictures alone have equal frames.
std::vector<Frame> MakeFrames(const Scene& scene);

/// The frame whose picture is compared with the truth.
inline constexpr std::size_t kComparedFrame = 7;

} // namespace contest

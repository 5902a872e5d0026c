// SPDX-License-Identifier: MIT
#pragma once

#include "bench/contest/picture.h"
#include "bench/contest/quad.h"
#include "bench/contest/scenes.h"

#include <memory>
#include <string>
#include <vector>

namespace contest
{

/// A renderer in the contest. It draws one scene in one process: set up once, then frame after frame.
class Contestant
{
public:
    virtual ~Contestant() = default;

    /// False: scenes of that kind are passed over.
    virtual bool CanDraw(Kind) const { return true; }
    /// Makes a target of that size and whatever it keeps of the pictures, which outlive it and are all of one size. Not
    /// timed. Throws std::runtime_error when the library refuses.
    virtual void SetUp(int width, int height, const std::vector<Picture>& pictures) = 0;
    /// Draws the cards source-over, in their order; quad k shows picture k modulo their number. When it returns the
    /// pixels are in the target. Timed.
    virtual void Draw(const Frame& frame) = 0;
    /// The target. It is filled with the table's colour before each frame, which is not timed.
    virtual Pixels Target() = 0;
};

/// A contestant of a program.
struct Entry {
    std::string name;
    std::string what; ///< the library, its version, and how it is used
    std::unique_ptr<Contestant> (*make)();
};

/// Each program has its own.
std::vector<Entry> Entries();

} // namespace contest

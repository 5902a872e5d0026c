// SPDX-License-Identifier: MIT
// However the time between frames is cut, an animation ends in the same state.
#include "animation/move_3d.h"
#include "animation/move_list.h"
#include "animation/object.h"
#include "geometry/polygon.h"
#include "host/rect.h"
#include "scene/scene_handler.h"
#include "tests/support/test_host.h"

#include <array>
#include <cmath>
#include <cstring>
#include <functional>
#include <random>
#include <vector>

namespace
{

constexpr std::uint64_t kFrame = 16667;
constexpr std::uint64_t kHour = 3600000000;
constexpr std::uint64_t kWrap = std::uint64_t{1} << 32;

/// What is there when nothing moves any more.
struct EndState {
    std::array<double, 7> placement{};
    std::vector<std::uint8_t> pixels;
    std::array<long, 4> cleared{};
    bool plays = false;

    friend bool operator==(const EndState&, const EndState&) = default;
};

class Time : public HostTest
{
protected:
    static constexpr int kLongest = 100000; ///< frames that any of these lists ends within

    /// Plays a random list; the clock is set before each frame from its time before and the number of the frame.
    EndState Play(unsigned seed, std::uint64_t startTime,
                  const std::function<std::uint64_t(std::uint64_t now, int frame)>& clock)
    {
        host.now = startTime;
        target->Realloc(80, 60);
        texture->FillRect({0, 0, 8, 8}, {200, 100, 50, 255});
        CSceneHandler scene;
        scene.SetTargetBitmap(target);
        C3DMoveList list;
        Write(list, seed);
        CObject object;
        auto* const side = new CPolygon;
        side->Set3D(-2, 3, 0, 2, 3, 0, 2, -3, 0, -2, -3, 0);
        side->SetTexture(texture, 8, 8, 0, 0, 1, 1);
        object.AddPolygon(side);
        scene.StartAnim(&list, &object);
        int frame = 0;
        for (; scene.IsAnyPolyAnim() != 0 && frame < kLongest; ++frame) {
            host.now = clock(host.now, frame);
            scene.Handler();
        }
        EXPECT_LT(frame, kLongest) << "seed " << seed;
        target->Realloc(80, 60);
        scene.Handler();

        EndState state;
        object.GetPosition(state.placement[0], state.placement[1], state.placement[2]);
        object.GetRotate(state.placement[3], state.placement[4], state.placement[5]);
        object.GetScale(state.placement[6]);
        const CRect box = *object.GetClearPoly()->GetBoundingBox();
        state.cleared = {box.left, box.top, box.right, box.bottom};
        state.pixels.assign(target->Buffer(), target->Buffer() + 80 * 60 * 4);
        state.plays = list.Exists() != 0;
        return state;
    }

    static void Write(C3DMoveList& list, unsigned seed)
    {
        std::mt19937 random(seed);
        const auto real = [&](double least, double most) {
            return least + (most - least) * static_cast<double>(random()) / 4294967295.0;
        };
        list.Init(0, static_cast<long>(random() % 2));
        const unsigned count = 1 + random() % 4;
        for (unsigned i = 0; i < count; ++i) {
            auto* const move = new C3DMove;
            move->Init(real(-9, 9), real(-9, 9), real(15, 60), real(-9, 9), real(-9, 9), real(15, 60),
                       static_cast<long>(1 + random() % 40));
            if (random() % 2 == 0)
                move->SetZ(real(15, 60), real(-0.2, 0.2), real(15, 60), real(-0.2, 0.2));
            move->SetRotX(real(-400, 400), real(-400, 400));
            move->SetScale(1, real(0.5, 2));
            list.AddMove(move);
        }
    }

    OwnBitmap target{80, 60};
    OwnBitmap texture{8, 8};
};

TEST_F(Time, AnySplitEndsInTheSameState)
{
    std::mt19937 random(5);
    struct Split {
        const char* name;
        std::uint64_t start;
        std::function<std::uint64_t(std::uint64_t, int)> clock;
    };
    const Split splits[] = {
        {"one frame a frame", 0, [](std::uint64_t now, int) { return now + kFrame; }},
        {"ten times as fast", 0, [](std::uint64_t now, int) { return now + kFrame / 10; }},
        {"much too slow", 0, [](std::uint64_t now, int) { return now + 25 * kFrame; }},
        {"any", 0, [&random](std::uint64_t now, int) { return now + random() % (12 * kFrame); }},
        {"an hour's pause", 0, [](std::uint64_t now, int frame) { return now + (frame == 3 ? kHour : kFrame); }},
        {"an hour a frame", 0, [](std::uint64_t now, int) { return now + kHour; }},
        {"two hours a frame", 0, [](std::uint64_t now, int) { return now + 2 * kHour; }},
        {"past 2^32", kWrap - 5 * kFrame, [](std::uint64_t now, int) { return now + 2 * kFrame; }},
        {"2^32 a frame", 7, [](std::uint64_t now, int) { return now + kWrap; }},
        {"past 2^64", 0 - 5 * kFrame, [](std::uint64_t now, int) { return now + 3 * kFrame; }},
        {"backwards", kHour, [](std::uint64_t now, int frame) { return frame % 3 == 0 ? now - kFrame : now + kFrame; }},
    };
    for (unsigned seed = 1; seed <= 60; ++seed) {
        const EndState still = Play(seed, 0, [](std::uint64_t now, int) { return now; });
        EXPECT_FALSE(still.plays);
        for (const Split& split : splits)
            EXPECT_EQ(Play(seed, split.start, split.clock), still) << split.name << ", seed " << seed;
    }
}

} // namespace

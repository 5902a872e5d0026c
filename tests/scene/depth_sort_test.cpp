// SPDX-License-Identifier: MIT
#include "animation/object.h"
#include "geometry/polygon.h"
#include "scene/scene_handler.h"
#include "tests/support/recording_renderer.h"
#include "tests/support/test_host.h"

#include <chrono>
#include <functional>
#include <limits>
#include <memory>
#include <random>
#include <utility>

namespace
{

using Objects = std::vector<std::unique_ptr<CObject>>;

class DepthSort : public HostTest
{
protected:
    DepthSort() { scene.m_sortByDepth = 1; }

    CSceneHandler scene;
};

unsigned Below(unsigned bound, std::mt19937& random)
{
    return static_cast<unsigned>(random() % bound);
}

std::unique_ptr<CObject> Card(double depth, int polygons = 1)
{
    auto object = std::make_unique<CObject>();
    for (int i = 0; i < polygons; ++i) {
        object->AddPolygon(new CPolygon);
    }
    object->SetPosition(0, 0, depth);
    object->On();
    return object;
}

/// Exchanges neighbours until none is out of order: what the sort must give, at a cost that grows with the square.
void ExchangeSort(std::vector<std::pair<double, CRect*>>& entries)
{
    for (bool exchanged = true; exchanged;) {
        exchanged = false;
        for (std::size_t i = 0; i + 1 < entries.size(); ++i) {
            if (entries[i + 1].first > entries[i].first) {
                std::swap(entries[i], entries[i + 1]);
                exchanged = true;
            }
        }
    }
}

TEST_F(DepthSort, DrawsAsExchangingNeighboursWould)
{
    RecordingRenderer renderer;
    const OwnBitmap target(1, 1);
    scene.SetTargetBitmap(target);
    const double special[] = {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
                              -std::numeric_limits<double>::infinity(), 0.0, -0.0};
    std::mt19937 random(11);
    for (int round = 0; round < 200; ++round) {
        const auto count = round < 5 ? static_cast<unsigned>(round) : Below(120, random);
        const unsigned levels = 1 + Below(200, random); // few levels make many ties
        const unsigned rarity = 3 + Below(100, random);
        Objects objects;
        std::vector<std::pair<double, CRect*>> expected;
        for (unsigned i = 0; i < count; ++i) {
            const double depth = Below(rarity, random) == 0 ? special[Below(5, random)] : Below(levels, random);
            objects.push_back(Card(depth));
            scene.AddObject(objects.back().get());
            expected.emplace_back(depth, objects.back()->GetClip());
        }
        ExchangeSort(expected);
        renderer.draws.clear();
        renderer.calls.clear();
        scene.Handler();
        ASSERT_EQ(renderer.draws.size(), expected.size());
        for (std::size_t i = 0; i < expected.size(); ++i) {
            ASSERT_EQ(renderer.draws[i].clip, expected[i].second) << "round " << round << " place " << i;
        }
    }
}

double MillisecondsOf(const std::function<void()>& work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

/// Bounds for a slow machine with sanitizers on; a cost that grows with the square takes many times as long.
constexpr std::size_t kMany = 10000;
constexpr double kFrameBound = 400;
constexpr double kLifeBound = 1000;

TEST_F(DepthSort, TenThousandPolygonsInRandomDepth)
{
    std::mt19937 random(3);
    Objects objects;
    for (std::size_t i = 0; i < kMany; ++i) {
        objects.push_back(Card(Below(100000, random)));
        scene.AddObject(objects.back().get());
    }
    EXPECT_LT(MillisecondsOf([&] { scene.Handler(); }), kFrameBound);
    objects.clear();
}

TEST_F(DepthSort, TenThousandCardsJoinAndLeave)
{
    Objects objects;
    for (std::size_t i = 0; i < kMany; ++i) {
        objects.push_back(Card(1, 2));
    }
    CSceneHandler other;
    EXPECT_LT(MillisecondsOf([&] {
                  for (const auto& object : objects) {
                      scene.AddObject(object.get());
                      other.AddObject(object.get());
                  }
                  for (std::size_t i = 0; i < kMany; i += 2) {
                      scene.RemoveObject(objects[kMany - 1 - i].get());
                  }
                  objects.clear();
              }),
              kLifeBound);
}

} // namespace

// SPDX-License-Identifier: MIT
// What single calls leave behind when memory runs out in them.
#include "cardtable/cardtable.h"
#include "host/canvas.h"
#include "host/window.h"
#include "tests/reliability/failing_memory.h"
#include "tests/support/card_table_test.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <memory>
#include <new>
#include <optional>

namespace
{

/// Makes the nth allocation of the call fail. False when the call needs fewer.
template <typename Call> bool FailsAt(long n, Call call)
{
    failing_memory::FailAt(n, false);
    try {
        call();
    } catch (const std::bad_alloc&) {
        failing_memory::Recover();
        return true;
    }
    return failing_memory::Recover() != 0;
}

std::unique_ptr<CObject> NewBody()
{
    auto body = std::make_unique<CObject>();
    for (int i = 0; i < 2; ++i) {
        auto side = std::make_unique<CPolygon>();
        body->AddPolygon(side.get());
        side.release();
    }
    return body;
}

/// A list of one move over some frames from x 1 to that number.
std::unique_ptr<C3DMoveList> NewFlight(long frames)
{
    auto list = std::make_unique<C3DMoveList>();
    auto move = std::make_unique<C3DMove>();
    move->Init(1, 0, 60, static_cast<double>(frames), 0, 60, frames);
    list->AddMove(move.get());
    move.release();
    return list;
}

class Failure : public CardTableTest
{
protected:
    Failure()
    {
        host.host.SetObserver(nullptr); // the test host's notes need memory
        Load();
        table.SetTargetBitmap(target);
        canvas.Create(0, 0, 800, 600);
        canvas.SetBitmap(target);
        dialog.AddCntrlBefore(&anchor, nullptr);
        dialog.AddCntrlBefore(&canvas, nullptr);
        dialog.Show();
    }

    bool TargetIsClear() const
    {
        const std::uint8_t* const pixels = target->Buffer();
        return std::all_of(pixels, pixels + std::ptrdiff_t{4} * 800 * 600, [](std::uint8_t byte) { return byte == 0; });
    }

    const OwnBitmap target{800, 600};
    Canvas canvas;
    CControlBase anchor;
    CDialog dialog;
};

TEST_F(Failure, AnObjectAndItsSceneKnowOfEachOtherOrNeitherDoes)
{
    long n = 1;
    for (bool failed = true; failed; ++n) {
        CSceneHandler scene;
        std::unique_ptr<CObject> body = NewBody();
        failed = FailsAt(n, [&] { body->AttachToScene(&scene); });
        body.reset();
        scene.SetTargetBitmap(target);
        scene.Handler();
    }
    EXPECT_GT(n, 4);
}

TEST_F(Failure, APolygonThatCouldNotBeAddedStaysTheCallers)
{
    long n = 1;
    for (bool failed = true; failed; ++n) {
        CSceneHandler first;
        CSceneHandler second;
        const std::unique_ptr<CObject> body = NewBody();
        body->AttachToScene(&first);
        body->AttachToScene(&second);
        auto side = std::make_unique<CPolygon>();
        failed = FailsAt(n, [&] { body->AddPolygon(side.get()); });
        EXPECT_EQ(body->GetFrontPoly() == side.get(), !failed);
        if (!failed)
            side.release();
        side.reset();
        first.Handler();
        second.Handler();
    }
    EXPECT_GT(n, 3);
}

TEST_F(Failure, AnAnimationThatCouldNotStartDoesNotPlay)
{
    long n = 1;
    for (bool failed = true; failed; ++n) {
        CSceneHandler scene;
        const auto body = std::make_unique<CObject>();
        const auto flight = NewFlight(9);
        failed = FailsAt(n, [&] { scene.StartAnim(flight.get(), body.get()); });
        EXPECT_EQ(scene.IsAnyPolyAnim(), failed ? 0 : 1);
        scene.StartAnim(flight.get(), body.get());
        for (int frame = 0; frame < 4; ++frame)
            scene.UpdateAllMoves();
        double x = 0, y = 0, z = 0;
        body->GetPosition(x, y, z);
        EXPECT_EQ(x, failed ? 4 : 8) << "a list that was started twice plays at twice the speed";
    }
    EXPECT_GT(n, 3);
}

TEST_F(Failure, WhatAFrameDrewIsErased)
{
    int failures = 0;
    for (const long sorted : {0L, 1L}) {
        table.m_sortByDepth = sorted;
        bool failed = true;
        for (long n = 1; failed; ++n) {
            CCardTable* const scene = &table;
            const std::unique_ptr<CObject> card(table.GetCardObj(1, 2, 0, 0, 1, 1, 0));
            const std::unique_ptr<CObject> other(table.GetCardObj(1, 3, 0, 0, 1, 1, 0));
            const auto flight = NewFlight(50), otherFlight = NewFlight(40);
            scene->StartAnim(flight.get(), card.get());
            scene->StartAnim(otherFlight.get(), other.get());
            failed = FailsAt(n, [&] { table.Handler(); });
            failures += failed ? 1 : 0;
            host.host.Compose();
            EXPECT_FALSE(TargetIsClear() && !failed);
            const std::vector<std::uint8_t> shown(host.host.Screen().Buffer(),
                                                  host.host.Screen().Buffer() + std::ptrdiff_t{4} * 800 * 600);
            host.host.ComposeAll();
            EXPECT_TRUE(std::equal(shown.begin(), shown.end(), host.host.Screen().Buffer())) << n;
            scene->RemoveAllPolygons();
            table.Handler();
            EXPECT_TRUE(TargetIsClear()) << "allocation " << n;
        }
    }
    EXPECT_GT(failures, 1);
}

TEST_F(Failure, ACardThatCouldNotBeRenderedHasNoControlAndLeavesNothing)
{
    CPocket& pocket = *table.GetPocket(0);
    pocket.SetUseControls(&dialog, &anchor);
    const auto rest = NewFlight(1);
    pocket.AddMove(rest.get());
    pocket.AddCard(5);
    pocket.DrawCard(1, 0, nullptr);
    host.host.ComposeAll();
    const std::vector<std::uint8_t> wanted(host.host.Screen().Buffer(),
                                           host.host.Screen().Buffer() + std::ptrdiff_t{4} * 800 * 600);
    long n = 1;
    for (bool failed = true; failed; ++n) {
        pocket.RemoveAllCardControls();
        failed = FailsAt(n, [&] { pocket.DrawCard(1, 0, nullptr); });
        EXPECT_EQ(pocket.StaticCardMember(1), !failed) << "allocation " << n;
        pocket.DrawCard(1, 0, nullptr);
        host.host.ComposeAll();
        ASSERT_TRUE(std::equal(wanted.begin(), wanted.end(), host.host.Screen().Buffer())) << "allocation " << n;
    }
    EXPECT_GT(n, 3);
}

TEST_F(Failure, AListEndsItsObjectsWithoutMemory)
{
    auto list = std::make_unique<C3DMoveList>();
    list->Init(1, 0);
    const auto flight = NewFlight(3);
    C3DMove* const first = new C3DMove(*flight->Get());
    list->AddMove(first);
    list->AddMove(new C3DMove(*flight->Get()));
    CObject* const body = NewBody().release();
    table.StartAnim(list.get(), body);
    failing_memory::FailAt(1, true);
    list.reset();
    EXPECT_EQ(failing_memory::Recover(), 0);
    table.Handler();
    EXPECT_TRUE(TargetIsClear());
}

// A sanitizer sees a record that is lost.
TEST_F(Failure, AFileThatCouldNotBeReadLeavesNothing)
{
    int failures = 0;
    for (long n = 1; n < 40; ++n) {
        Bitmap* bitmap = nullptr;
        failing_memory::FailAt(n, true);
        try {
            bitmap = BitmapManager::Instance().Load(sheet.Path(), true);
        } catch (const std::bad_alloc&) {
            ++failures;
        }
        failures += failing_memory::Recover() != 0 ? 1 : 0;
        EXPECT_TRUE(bitmap != nullptr || failures > 0);
        BitmapManager::Instance().Destroy(bitmap);
    }
    EXPECT_GT(failures, 3);
}

} // namespace

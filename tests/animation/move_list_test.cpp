// SPDX-License-Identifier: MIT
#include "animation/move_3d.h"
#include "animation/move_list.h"
#include "animation/object.h"
#include "geometry/polygon.h"
#include "host/globals.h"
#include "tests/support/test_host.h"

#include <chrono>
#include <cstdint>
#include <limits>
#include <memory>
#include <random>

namespace
{

using Numbers = std::vector<double>;

constexpr long kMost = std::numeric_limits<std::int32_t>::max();

class MoveList : public HostTest
{
protected:
    MoveList()
    {
        glb->framePeriod = 40;
        object.AddPolygon(new CPolygon);
    }
    /// A move whose x value is `first` at its first frame and one more at each later one.
    C3DMove* MoveOf(double first, long frames, CObject* target)
    {
        auto* const move = new C3DMove;
        move->Init(target, frames);
        move->SetX(first, first + static_cast<double>(frames) - 1);
        return move;
    }
    C3DMove* Add(C3DMoveList& list, double first, long frames)
    {
        C3DMove* const move = MoveOf(first, frames, &object);
        EXPECT_EQ(list.AddMove(move), 1);
        return move;
    }
    /// The x value that the list gives its object now; -99 when it gives none.
    double Value(C3DMoveList& list)
    {
        object.SetPosition(-99, 0, 0);
        list.Set3D();
        double x = 0, y = 0, z = 0;
        object.GetPosition(x, y, z);
        return x;
    }
    /// What a scene sees that plays the list to its end.
    Numbers Played(C3DMoveList& list)
    {
        Numbers values;
        for (list.First(); list.Exists() != 0; list.Next(0)) {
            values.push_back(Value(list));
        }
        return values;
    }

    CObject object;
};

TEST_F(MoveList, PlaysItsMovesOneAfterAnother)
{
    for (const long join : {0, 1}) {
        C3DMoveList list;
        list.Init(0, join);
        EXPECT_EQ(list.Exists(), 0);
        Add(list, 0, 3);
        Add(list, 10, 3);
        // Exists passes on to the first frame of the next move, joined or not.
        EXPECT_EQ(Played(list), (Numbers{0, 1, 2, 10, 11, 12})) << join;
        EXPECT_EQ(list.Exists(), 0);
        EXPECT_EQ(list.Get(), nullptr);
        EXPECT_EQ(Value(list), -99);
    }
}

TEST_F(MoveList, StepsWithoutAskingPassOnBySteppingOver)
{
    const Numbers expected[] = {{0, 1, 2, 2, 10, 11, 12, 12, -99, -99}, {0, 1, 2, 2, 11, 12, 12, -99, -99, -99}};
    for (const long join : {0, 1}) {
        C3DMoveList list;
        list.Init(0, join);
        Add(list, 0, 3);
        Add(list, 10, 3);
        Numbers values;
        for (list.First(); values.size() < expected[join].size(); list.Next(0)) {
            values.push_back(Value(list));
        }
        EXPECT_EQ(values, expected[join]) << join;
    }
}

TEST_F(MoveList, BackwardsFromBeyondAMovesEnd)
{
    for (const long join : {0, 1}) {
        C3DMoveList list;
        list.Init(0, join);
        Add(list, 0, 3);
        Add(list, 10, 3);
        list.Last();
        EXPECT_EQ(Value(list), 12);
        for (const double expected : {11, 10, 10}) {
            list.Prev();
            EXPECT_EQ(Value(list), expected) << "stops at the first frame of its move";
        }
        list.Last();
        list.Next(0);
        list.Prev();
        EXPECT_EQ(Value(list), join != 0 ? 1 : 2);
        list.First();
        for (int i = 0; i < 3; ++i) {
            list.Next(0);
        }
        list.Prev();
        EXPECT_EQ(Value(list), -99) << "before the first move there is none";
        list.Prev();
        EXPECT_EQ(list.Exists(), 0);
    }
}

TEST_F(MoveList, MoveWithoutFramesAnswersNoOnce)
{
    C3DMoveList list;
    Add(list, 0, 2);
    C3DMove* const empty = Add(list, 10, 0);
    Add(list, 20, 2);
    EXPECT_EQ(Played(list), (Numbers{0, 1}));
    EXPECT_EQ(list.Get(), empty);
    EXPECT_EQ(list.Exists(), 1);
    EXPECT_EQ(Value(list), 20);
}

TEST_F(MoveList, CatchesUpByWholePeriods)
{
    const struct {
        std::uint64_t elapsed;
        long catchUp;
        double value;
    } cases[] = {
        {0, 1, 1},   {39, 1, 1},  {40, 1, 1},  {79, 1, 1},  {80, 1, 2},  {100, 1, 2},
        {125, 1, 3}, {200, 1, 5}, {239, 1, 5}, {400, 1, 9}, {440, 1, 9}, {UINT64_MAX / 2, 1, 9},
        {400, 0, 1}, {80, -1, 2},
    };
    for (const auto& c : cases) {
        C3DMoveList list;
        Add(list, 0, 10);
        Add(list, 100, 10);
        host.now += c.elapsed;
        list.Next(c.catchUp);
        EXPECT_EQ(Value(list), c.value) << c.elapsed << ' ' << c.catchUp;
        EXPECT_EQ(list.Exists(), 1);
        list.Next(1); // the stopwatch was restarted
        EXPECT_EQ(Value(list), c.value == 9 ? 9 : c.value + 1);
        host.now = 1000000;
    }
    C3DMoveList list;
    Add(list, 0, 10);
    for (const bool back : {true, false}) {
        host.now += 400;
        if (back) {
            list.Prev();
        } else {
            list.First();
        }
        list.Next(1);
        EXPECT_EQ(Value(list), 1) << "going back or to the first frame restarts the stopwatch";
    }
}

TEST_F(MoveList, CatchUpIsThatManySkipsAndNoMore)
{
    std::mt19937 random(7);
    for (int round = 0; round < 2000; ++round) {
        C3DMoveList list;
        C3DMoveList twin;
        const long join = static_cast<long>(random() % 2);
        list.Init(0, join);
        twin.Init(0, join);
        const auto moves = random() % 4;
        for (unsigned i = 0; i < moves; ++i) {
            const long frames = static_cast<long>(random() % 5);
            Add(list, 10 * i, frames);
            Add(twin, 10 * i, frames);
        }
        for (int step = 0; step < 6; ++step) {
            const auto periods = random() % 12;
            host.now += periods * 40;
            list.Next(1);
            twin.Next(0);
            for (unsigned skip = 1; skip < periods; ++skip) {
                twin.SkipAhead();
            }
            ASSERT_EQ(Value(list), Value(twin)) << round;
            object.GetFrontPoly()->SetStamp(0);
            list.StampObject();
            const long stamped = object.GetFrontPoly()->IsStamp();
            object.GetFrontPoly()->SetStamp(0);
            twin.StampObject();
            ASSERT_EQ(stamped, object.GetFrontPoly()->IsStamp()) << round;
            if (random() % 2 != 0) {
                ASSERT_EQ(list.Exists(), twin.Exists()) << round;
            }
        }
    }
}

TEST_F(MoveList, LongPauseWithATinyPeriodEndsAtOnce)
{
    glb->framePeriod = 1;
    C3DMoveList list;
    Add(list, 0, kMost);
    Add(list, 0, 5);
    const auto start = std::chrono::steady_clock::now();
    for (const double expected : {kMost - 1.0, 4.0, 4.0}) {
        host.now += 3'600'000'000U;
        list.Next(1);
        EXPECT_EQ(Value(list), expected);
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
}

TEST_F(MoveList, SkipAheadEndsAtTheLastFrameOfTheLastMove)
{
    C3DMoveList list;
    list.SkipAhead();
    Add(list, 0, 2);
    Add(list, 10, 2);
    Numbers values;
    for (int i = 0; i < 4; ++i, list.SkipAhead()) {
        values.push_back(Value(list));
    }
    EXPECT_EQ(values, (Numbers{0, 1, 1, 1})) << "never past the end of a move";
    list.Next(0);
    list.SkipAhead();
    EXPECT_EQ(Value(list), 10) << "not joined: it passes on and goes no further";
    list.Last();
    list.Next(0);
    list.SkipAhead();
    EXPECT_EQ(Value(list), 11);
    EXPECT_EQ(list.Exists(), 0);
}

TEST_F(MoveList, StampsTheMoveSteppedLast)
{
    CObject other;
    other.AddPolygon(new CPolygon);
    C3DMoveList list;
    list.StampObject();
    const struct {
        const char* steps; ///< F First, L Last, N Next(0), P Prev, S SkipAhead, E Exists
        const char* stamped;
    } cases[] = {
        {"F", ""},         {"N", "object"},  {"NE", "object"}, {"NEN", "other"}, {"NN", "object"}, {"NNN", "other"},
        {"L", ""},         {"LNF", "other"}, {"NL", "object"}, {"LP", "other"},  {"LNP", "other"}, {"S", "object"},
        {"LNSS", "other"}, {"NNNNN", ""},    {"NENEN", ""},    {"NENES", ""},    {"NENEP", ""},    {"NENE", "other"},
    };
    for (const auto& c : cases) {
        list.Init(0, 0);
        list.AddMove(MoveOf(0, 1, &object));
        list.AddMove(MoveOf(0, 1, &other));
        for (const char* step = c.steps; *step != '\0'; ++step) {
            switch (*step) {
            case 'F':
                list.First();
                break;
            case 'L':
                list.Last();
                break;
            case 'N':
                list.Next(0);
                break;
            case 'P':
                list.Prev();
                break;
            case 'S':
                list.SkipAhead();
                break;
            default:
                list.Exists();
                break;
            }
        }
        list.StampObject();
        const std::string stamped = object.GetFrontPoly()->IsStamp() != 0  ? "object"
                                    : other.GetFrontPoly()->IsStamp() != 0 ? "other"
                                                                           : "";
        EXPECT_EQ(stamped, c.stamped) << c.steps;
        object.GetFrontPoly()->SetStamp(0);
        other.GetFrontPoly()->SetStamp(0);
    }
}

TEST_F(MoveList, AddingRewindsAndKeepsOneEntry)
{
    C3DMoveList list;
    C3DMoveList stranger;
    C3DMove* const move = Add(list, 0, 3);
    EXPECT_EQ(list.AddMove(nullptr), 0);
    list.Next(0);
    EXPECT_EQ(stranger.AddMove(move), 0) << "it is another list's";
    EXPECT_EQ(Value(list), 1);
    EXPECT_EQ(list.AddMove(move), 0);
    EXPECT_EQ(Played(list), (Numbers{0, 1, 2}));
    list.Next(0);
    Add(list, 10, 1);
    EXPECT_EQ(Value(list), 0);
    EXPECT_EQ(stranger.Exists(), 0);
}

TEST_F(MoveList, OwnedObjectsDieOnceByTheFlagInForce)
{
    for (const char* end : {"init", "remove", "destroy"}) {
        auto list = std::make_unique<C3DMoveList>();
        list->Init(1, 0);
        auto* const owned = new CObject;
        owned->AddPolygon(new CPolygon);
        CPolygon witness; // its parent is null once the object is dead
        witness.SetParent(owned);
        list->AddMove(MoveOf(0, 2, owned));
        list->AddMove(MoveOf(0, 2, owned));
        list->AddMove(MoveOf(0, 2, nullptr));
        if (end == std::string("init")) {
            list->Init(0, 0);
        } else if (end == std::string("remove")) {
            list->RemoveAll();
        } else {
            list.reset();
        }
        EXPECT_EQ(witness.GetParent(), nullptr) << end;
        if (list != nullptr) {
            EXPECT_EQ(list->Get(), nullptr);
            EXPECT_EQ(list->Exists(), 0);
            list->StampObject();
        }
    }
    CPolygon witness;
    witness.SetParent(&object);
    C3DMoveList list;
    Add(list, 0, 2);
    list.RemoveAll();
    EXPECT_EQ(Played(list), (Numbers{0, 1})) << "without the flag RemoveAll does nothing";
    list.Init(1, 0);
    EXPECT_EQ(list.Get(), nullptr);
    EXPECT_EQ(witness.GetParent(), &object) << "the flag before the call counts";
    CPolygon polygon;
    auto* const move = new C3DMove;
    move->Init(&polygon, 2);
    list.AddMove(move);
    list.RemoveAll(); // a polygon is no object to delete
}

TEST_F(MoveList, DeletedMovesBelongToTheCaller)
{
    auto list = std::make_unique<C3DMoveList>();
    C3DMove* const first = Add(*list, 0, 2);
    std::unique_ptr<C3DMove> second(Add(*list, 10, 2));
    list->Last();
    EXPECT_EQ(list->Get(), second.get());
    EXPECT_EQ(list->Delete(), 1);
    EXPECT_EQ(Value(*list), 11) << "the current move stays current";
    EXPECT_EQ(list->Delete(), 0);
    list->Next(0);
    second.reset();
    EXPECT_EQ(Value(*list), -99) << "and is none any more once it has died";
    list->StampObject();
    list->Prev();
    EXPECT_EQ(Played(*list), (Numbers{0, 1}));

    // Released and taken up by another list.
    list->First();
    list->Delete();
    C3DMoveList heir;
    EXPECT_EQ(heir.AddMove(first), 1);
    list.reset();
    EXPECT_EQ(Played(heir), (Numbers{0, 1}));
    // Destroyed while its list holds it.
    Add(heir, 20, 1);
    delete first;
    EXPECT_EQ(Played(heir), Numbers{20});
    // Released and outliving its list.
    std::unique_ptr<C3DMove> survivor;
    {
        C3DMoveList brief;
        survivor.reset(Add(brief, 0, 2));
        brief.First();
        brief.Delete();
    }
    EXPECT_EQ(survivor->Exists(), 1);
}

} // namespace

// SPDX-License-Identifier: MIT
// What a control's opaque part hides is not painted, and a canvas finds that part in its picture.
#include "host/canvas.h"
#include "host/render.h"
#include "host/window.h"
#include "orvane/orvane.h"
#include "tests/orvane/test_bitmaps.h"

#include <gtest/gtest.h>

#include <utility>

namespace
{

using Rectangle = render::Rectangle<int>;

/// Tells how many pixels it was asked to paint, and claims an opaque part.
class CountingControl : public CControlBase
{
public:
    CountingControl(CDialog& dialog, const Rectangle& place, const Rectangle& opaquePart) : m_opaquePart(opaquePart)
    {
        SetPos(place.x, place.y);
        SetSize(place.width, place.height);
        dialog.AddCntrlBefore(this, nullptr);
    }

    void Paint(Bitmap& /*screen*/, const Rectangle& area, long /*left*/, long /*top*/) const override
    {
        m_painted += area.width * area.height;
    }
    Rectangle OpaquePart() const override
    {
        ++m_questions;
        return m_opaquePart;
    }

    int TakePainted() { return std::exchange(m_painted, 0); }
    int TakeQuestions() { return std::exchange(m_questions, 0); }

private:
    Rectangle m_opaquePart;
    mutable int m_painted = 0;
    mutable int m_questions = 0;
};

TEST(OpaquePart, HidesWhatIsBelow)
{
    orvane::Host host({.width = 400, .height = 300});
    CDialog dialog;
    dialog.SetPos(10, 0);
    CountingControl table(dialog, {-10, 0, 400, 300}, {0, 0, 400, 300});
    CountingControl low(dialog, {-10, 0, 200, 100}, {0, 10, 200, 80});
    CountingControl high(dialog, {100, 50, 200, 100}, {0, 10, 200, 80});
    CountingControl boastful(dialog, {340, 250, 50, 50}, {-1000, -1000, 5000, 5000}); // opaque as far as it reaches
    dialog.Show();

    host.ComposeAll();
    EXPECT_EQ(high.TakePainted(), 200 * 100);
    EXPECT_EQ(low.TakePainted(), 200 * 100 - 90 * 40);
    EXPECT_EQ(table.TakePainted(),
              400 * 300 - 2 * 200 * 80 + 90 * 30); // a control as small as the last is painted over
    EXPECT_EQ(boastful.TakePainted(), 50 * 50);

    // Of a damaged area that lies in an opaque part nothing below is painted; each is asked once for all areas.
    for (CountingControl* control : {&table, &low, &high})
        control->TakeQuestions();
    Render::Instance().InvalidateArea({150, 70, 20, 20});
    Render::Instance().InvalidateArea({250, 70, 20, 20});
    host.Compose();
    EXPECT_EQ(high.TakePainted(), 2 * 20 * 20);
    EXPECT_EQ(low.TakePainted(), 0);
    EXPECT_EQ(table.TakePainted(), 0);
    EXPECT_EQ(high.TakeQuestions(), 1);
    EXPECT_EQ(table.TakeQuestions(), 1);
}

TEST(OpaquePart, OfManyScatteredControlsStillGivesEveryPixelOnce)
{
    orvane::Host host({.width = 2000, .height = 1000});
    CDialog dialog;
    CountingControl table(dialog, {0, 0, 2000, 1000}, {0, 0, 2000, 1000});
    std::vector<std::unique_ptr<CountingControl>> controls;
    for (int i = 0; i < 400; ++i)
        controls.push_back(std::make_unique<CountingControl>(dialog, Rectangle{i % 10 * 200, i / 10 * 25, 130, 20},
                                                             Rectangle{0, 0, 130, 20}));
    dialog.Show();
    host.ComposeAll();
    for (const auto& control : controls)
        EXPECT_EQ(control->TakePainted(), 130 * 20);
    // Some of it is painted below them: telling thousands of parts apart would take longer.
    const int painted = table.TakePainted();
    EXPECT_GE(painted, 2000 * 1000 - 400 * 130 * 20);
    EXPECT_LT(painted, 2000 * 1000);
}

TEST(OpaquePart, OfACanvasIsFoundInItsPictureAtTheSecondQuestion)
{
    constexpr Rgba kOpaque{10, 20, 30, 255};
    constexpr Rgba kGlass{10, 20, 30, 254};
    struct Case {
        const char* what;
        std::vector<Rectangle> seeThrough;
        Rectangle expected;
    };
    const Case cases[] = {
        {"opaque", {}, {0, 0, 60, 40}},
        {"round corners", {{0, 0, 5, 5}, {55, 0, 5, 5}, {0, 35, 5, 5}, {57, 37, 3, 3}}, {0, 5, 60, 30}},
        {"a frame", {{0, 0, 60, 1}, {0, 39, 60, 1}, {0, 0, 2, 40}, {57, 0, 3, 40}}, {2, 1, 55, 38}},
        {"a hole beside the middle row", {{20, 10, 1, 1}}, {0, 11, 60, 29}},
        {"a hole in the middle row", {{20, 20, 1, 1}}, {21, 0, 39, 40}},
        {"see-through in the middle", {{30, 20, 1, 1}}, {}},
        {"the middle row alone", {{0, 0, 60, 20}, {0, 21, 60, 19}}, {0, 20, 60, 1}},
    };
    orvane::Host host({.width = 100, .height = 100});
    const OwnedBitmap bitmap = MakeBitmap(60, 40);
    Canvas canvas;
    EXPECT_EQ(canvas.OpaquePart(), Rectangle{});
    canvas.SetBitmap(bitmap.get());
    for (const Case& test : cases) {
        bitmap->FillRect({0, 0, 60, 40}, kOpaque);
        for (const Rectangle& rectangle : test.seeThrough)
            bitmap->FillRect(rectangle, kGlass);
        EXPECT_EQ(canvas.OpaquePart(), Rectangle{})
            << test.what << ": a picture that changes all the time costs nothing";
        EXPECT_EQ(canvas.OpaquePart(), test.expected) << test.what;
        EXPECT_EQ(canvas.OpaquePart(), test.expected) << test.what;
    }
    bitmap->Realloc(0, 0);
    canvas.OpaquePart();
    EXPECT_EQ(canvas.OpaquePart(), Rectangle{});
}

} // namespace

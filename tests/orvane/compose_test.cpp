// SPDX-License-Identifier: MIT
// Random scenes: whatever changes, composing the damage alone gives the picture of composing everything, and that
// picture is the one of a plain painter.
#include "host/canvas.h"
#include "host/render.h"
#include "host/window.h"
#include "orvane/orvane.h"
#include "orvane/raster/blend.h"
#include "tests/orvane/test_bitmaps.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

namespace
{

using Rectangle = render::Rectangle<int>;

/// Cuts a rectangle to the screen, in whole numbers.
Rectangle CutTo(int width, int height, const Rectangle& area)
{
    const auto cut = [](std::int64_t value, int most) {
        return static_cast<int>(std::clamp<std::int64_t>(value, 0, most));
    };
    const int left = cut(area.x, width);
    const int top = cut(area.y, height);
    return {left, top, cut(std::int64_t{area.x} + area.width, width) - left,
            cut(std::int64_t{area.y} + area.height, height) - top};
}

/// How often each pixel of the screen is covered.
class Coverage
{
public:
    Coverage(int width, int height) : m_width(width), m_counts(static_cast<std::size_t>(width * height)) {}

    void Add(const Rectangle& area)
    {
        for (int y = area.y; y < area.y + area.height; ++y) {
            for (int x = area.x; x < area.x + area.width; ++x)
                ++m_counts.at(static_cast<std::size_t>(y * m_width + x));
        }
    }
    int Most() const { return *std::max_element(m_counts.begin(), m_counts.end()); }
    std::vector<bool> Covered() const
    {
        std::vector<bool> covered;
        for (const int count : m_counts)
            covered.push_back(count > 0);
        return covered;
    }

private:
    int m_width;
    std::vector<int> m_counts;
};

class AreaObserver : public orvane::Observer
{
public:
    void AreaInvalidated(const Rectangle& area) override { areas.push_back(area); }

    std::vector<Rectangle> areas;
};

/// Paints like its base, and tells when it is asked for something outside itself.
class CheckedCanvas : public Canvas
{
public:
    void Paint(Bitmap& screen, const Rectangle& area, long left, long top) const override
    {
        EXPECT_TRUE(area.width > 0 && area.height > 0);
        EXPECT_TRUE(area.x >= left && area.x + area.width <= std::int64_t{left} + Width());
        EXPECT_TRUE(area.y >= top && area.y + area.height <= std::int64_t{top} + Height());
        Canvas::Paint(screen, area, left, top);
    }
};

class RandomScene
{
public:
    /// The screen's width in pixels, how many controls there are from the start, and how long their sides may be.
    RandomScene(unsigned seed, int width, int crowd, int longest = 38)
        : m_random(seed), m_width(width), m_longest(longest), m_host(Settings())
    {
        for (int i = 0; i < 3; ++i) {
            m_dialogs.push_back(std::make_unique<CDialog>());
            m_bitmaps.push_back(MakeNoise(Below(30), Below(30), m_random));
        }
        m_bitmaps.push_back(MakeBitmap(kOpaqueWidth, 25));
        FillOpaquely(*m_bitmaps.back());
        for (int side = 64; side < m_longest; side += 64)
            m_bitmaps.push_back(MakeCard(side, side, m_random));
        for (int i = 0; i < crowd; ++i)
            AddCanvas(*m_dialogs[i % 8 == 0 ? 1 : 0], nullptr);
        if (crowd > 0)
            Show(*m_dialogs[0]);
    }

    void Change()
    {
        CheckedCanvas* const canvas = m_canvases.empty() ? nullptr : m_canvases[Index(m_canvases)].get();
        CDialog& dialog = *m_dialogs[Index(m_dialogs)];
        Bitmap* const bitmap = m_bitmaps[Index(m_bitmaps)].get();
        const int choice = Below(20);
        if (choice < 3) {
            AddCanvas(dialog, canvas);
        } else if (choice == 3) {
            Hide(dialog);
        } else if (choice < 6) {
            Show(dialog);
        } else if (choice == 6) {
            dialog.SetPos(Place(), Place());
        } else if (choice == 7 && Below(4) == 0) {
            Hide(dialog);
            m_dialogs[Index(m_dialogs)].swap(m_dialogs.front());
            std::erase(m_shown, m_dialogs.front().get());
            m_dialogs.front() = std::make_unique<CDialog>();
        } else if (choice == 8 && Below(4) == 0) {
            m_host.SetActiveSize(Below(m_width + 12), 1 + Below(m_width + 12));
        } else if (choice == 9) {
            Render::Instance().InvalidateArea({Place(), Place(), Place(), Place()});
        } else if (canvas != nullptr) {
            ChangeCanvas(choice, *canvas, dialog, *bitmap);
        }
    }

    /// Composes, and compares with what was asked for, with composing everything, and with the plain painter.
    void Check()
    {
        const int width = Render::Instance().GetActiveWidth();
        const int height = Render::Instance().GetActiveHeight();
        Coverage asked(width, height);
        for (const Rectangle& area : m_observer.areas)
            asked.Add(CutTo(width, height, area));
        m_observer.areas.clear();

        ASSERT_EQ(m_host.HasDamage(), !asked.Covered().empty() && asked.Most() > 0);
        const std::vector<Rectangle> areas = m_host.Compose();
        Coverage composed(width, height);
        for (const Rectangle& area : areas) {
            ASSERT_EQ(CutTo(width, height, area), area);
            ASSERT_TRUE(area.width > 0 && area.height > 0);
            composed.Add(area);
        }
        ASSERT_TRUE(areas.empty() || composed.Most() == 1) << "areas overlap";
        ASSERT_EQ(composed.Covered(), asked.Covered());
        const auto picture = PixelsOf(m_host.Screen());
        ASSERT_EQ(picture, PaintPlainly());
        m_host.ComposeAll();
        ASSERT_EQ(PixelsOf(m_host.Screen()), picture);
    }

private:
    static constexpr int kOpaqueWidth = 40; ///< of the picture that has no see-through pixel at first

    orvane::Settings Settings()
    {
        orvane::Settings settings;
        settings.width = m_width;
        settings.height = m_width * 5 / 6;
        settings.background = {10, 200, 30, 128};
        settings.observer = &m_observer;
        return settings;
    }

    int Below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }
    template <typename T> std::size_t Index(const std::vector<T>& items) { return m_random() % items.size(); }

    int Place()
    {
        constexpr int kFar[] = {std::numeric_limits<int>::min(), std::numeric_limits<int>::max(), -32768, 40000};
        return Below(12) == 0 ? kFar[Below(4)] : Below(m_width * 3 / 2) - 20;
    }

    void AddCanvas(CDialog& dialog, CControlBase* after)
    {
        m_canvases.push_back(std::make_unique<CheckedCanvas>());
        m_canvases.back()->Create(Place(), Place(), Below(m_longest + 2) - 2, Below(m_longest + 2) - 2);
        m_canvases.back()->SetBitmap(m_bitmaps[Index(m_bitmaps)].get());
        dialog.AddCntrlAfter(m_canvases.back().get(), after);
    }

    static void FillOpaquely(Bitmap& bitmap)
    {
        bitmap.FillRect({0, 0, bitmap.Width(), bitmap.Height()}, {200, 100, 0, 255});
    }

    void Show(CDialog& dialog)
    {
        dialog.Show();
        if (std::find(m_shown.begin(), m_shown.end(), &dialog) == m_shown.end())
            m_shown.push_back(&dialog);
    }

    void Hide(CDialog& dialog)
    {
        dialog.Hide();
        std::erase(m_shown, &dialog);
    }

    void ChangeCanvas(int choice, CheckedCanvas& canvas, CDialog& dialog, Bitmap& bitmap)
    {
        CheckedCanvas* const other = m_canvases[Index(m_canvases)].get();
        switch (choice) {
        case 10:
            canvas.SetSize(Below(m_longest + 2) - 2, Place());
            break;
        case 11:
            canvas.SetState(Below(2) == 0 ? CControlBase::kStateShown : CControlBase::kStateHidden);
            break;
        case 12:
            canvas.SetBitmap(&bitmap);
            break;
        case 13:
            dialog.AddCntrlBefore(&canvas, other);
            break;
        case 14:
            dialog.AddCntrlAfter(&canvas, other);
            break;
        case 15:
            dialog.RemoveCntrl(&canvas);
            break;
        case 16:
            std::erase_if(m_canvases, [&](const auto& item) { return item.get() == &canvas; });
            break;
        case 17:
            canvas.SetBitmap(&bitmap);
            if (bitmap.Width() == kOpaqueWidth && Below(2) == 0)
                FillOpaquely(bitmap);
            else
                bitmap.FillRect({0, 0, 5, 5}, {0, 0, 255, 99});
            for (const auto& item : m_canvases) {
                if (item->GetBitmap() == &bitmap)
                    item->Invalidate();
            }
            break;
        default:
            canvas.SetPos(Place(), Place());
        }
    }

    std::vector<std::uint32_t> PaintPlainly() const
    {
        const Bitmap& screen = m_host.Screen();
        std::vector<std::uint32_t> pixels(PixelsOf(screen).size(), 0x8005640FU);
        for (const CDialog* dialog : m_shown) {
            for (const CControlBase* control = dialog->FirstControl(); control; control = control->NextControl()) {
                const Bitmap& bitmap = *static_cast<const Canvas*>(control)->GetBitmap();
                if (!control->IsShown())
                    continue;
                const auto picture = PixelsOf(bitmap);
                const std::int64_t left = std::int64_t{dialog->X()} + control->X();
                const std::int64_t top = std::int64_t{dialog->Y()} + control->Y();
                for (std::int64_t v = 0; v < std::min<std::int64_t>(bitmap.Height(), control->Height()); ++v) {
                    for (std::int64_t u = 0; u < std::min<std::int64_t>(bitmap.Width(), control->Width()); ++u) {
                        const std::int64_t x = left + u;
                        const std::int64_t y = top + v;
                        if (x < 0 || y < 0 || x >= screen.Width() || y >= screen.Height())
                            continue;
                        auto& pixel = pixels[static_cast<std::size_t>(y * screen.Width() + x)];
                        pixel = orvane::raster::SourceOver(pixel,
                                                           picture[static_cast<std::size_t>(v * bitmap.Width() + u)]);
                    }
                }
            }
        }
        return pixels;
    }

    std::mt19937 m_random;
    int m_width;
    int m_longest;
    AreaObserver m_observer;
    orvane::Host m_host;
    std::vector<OwnedBitmap> m_bitmaps;
    std::vector<std::unique_ptr<CDialog>> m_dialogs;
    std::vector<CDialog*> m_shown;
    std::vector<std::unique_ptr<CheckedCanvas>> m_canvases;
};

TEST(Compose, DamageAloneGivesThePictureOfEverything)
{
    for (unsigned seed = 0; seed < 40; ++seed) {
        RandomScene scene(seed, 48, 0);
        for (int step = 0; step < 250; ++step) {
            scene.Change();
            if (seed % 2 == 0 || step % 5 == 0) {
                ASSERT_NO_FATAL_FAILURE(scene.Check()) << "seed " << seed << ", step " << step;
            }
        }
    }
}

TEST(Compose, DamageAloneGivesThePictureOfEverythingWithACrowdOfControls)
{
    for (unsigned seed = 0; seed < 10; ++seed) {
        RandomScene scene(seed, 400, 250);
        for (int step = 0; step < 400; ++step) {
            scene.Change();
            if (step % 9 == 0) {
                ASSERT_NO_FATAL_FAILURE(scene.Check()) << "seed " << seed << ", step " << step;
            }
        }
    }
}

TEST(Compose, DamageAloneGivesThePictureOfEverythingWhereLargeCardsHideEachOther)
{
    for (unsigned seed = 0; seed < 4; ++seed) {
        RandomScene scene(seed, 500, 30, 260);
        for (int step = 0; step < 120; ++step) {
            scene.Change();
            if (step % 4 == 0) {
                ASSERT_NO_FATAL_FAILURE(scene.Check()) << "seed " << seed << ", step " << step;
            }
        }
    }
}

TEST(Compose, PicturesAsWideAsTheScreenAreCopiedInAnyBand)
{
    orvane::Settings settings;
    settings.width = 64;
    settings.height = 48;
    orvane::Host host(settings);
    std::mt19937 random(5);
    const OwnedBitmap picture = MakeCard(64, 60, random), strip = MakeBitmap(64, 9);
    std::vector<std::uint32_t> table = PixelsOf(*picture);
    for (std::uint32_t& pixel : table)
        pixel |= 0xFF000000U;
    std::memcpy(picture->Buffer(), table.data(), table.size() * 4);
    strip->FillRect({0, 0, 64, 9}, {1, 2, 3, 255});
    CDialog dialog;
    CheckedCanvas below, above;
    below.Create(0, -7, 64, 60);
    below.SetBitmap(picture.get());
    above.Create(0, 100, 64, 9);
    above.SetBitmap(strip.get());
    dialog.AddCntrlAfter(&below, nullptr);
    dialog.AddCntrlAfter(&above, &below);
    dialog.Show();
    host.ComposeAll();
    host.ComposeAll();
    for (int top = -6; top < 50; top += 4) {
        above.SetPos(0, top);
        host.Compose();
        std::vector<std::uint32_t> expected(table.begin() + 7 * 64, table.begin() + (7 + 48) * 64);
        for (int y = std::max(top, 0); y < std::min(top + 9, 48); ++y)
            std::fill_n(expected.begin() + y * 64, 64, PixelsOf(*strip)[0]);
        ASSERT_EQ(PixelsOf(host.Screen()), expected) << top;
    }
}

TEST(Compose, AreasBecomeAsFewRectanglesAsBandsAllow)
{
    orvane::Settings settings;
    settings.width = 100;
    settings.height = 100;
    orvane::Host host(settings);
    host.Compose();
    Render& render = Render::Instance();
    for (const Rectangle& area : {Rectangle{10, 10, 20, 20},
                                  {10, 10, 20, 20},
                                  {30, 10, 5, 20},
                                  {10, 30, 25, 5},
                                  {60, 12, 5, 50},
                                  {-50, 90, 75, 75},
                                  {0, 0, 0, 9},
                                  {200, 0, 9, 9}})
        render.InvalidateArea(area);
    EXPECT_EQ(host.Compose(), (std::vector<Rectangle>{{10, 10, 25, 25}, {60, 12, 5, 50}, {0, 90, 25, 10}}));
}

TEST(Compose, DamageThatNobodyComposesForLongStaysExact)
{
    AreaObserver observer;
    orvane::Settings settings;
    settings.width = 300;
    settings.height = 200;
    orvane::Host host(settings);
    host.Compose();
    host.SetObserver(&observer);
    std::mt19937 random(9);
    for (int i = 0; i < 50000; ++i) {
        const int x = static_cast<int>(random() % 60) * 5;
        const int y = static_cast<int>(random() % 40) * 5;
        Render::Instance().InvalidateArea({x, y, 1 + static_cast<int>(random() % 3), 2});
    }
    Coverage asked(300, 200);
    for (const Rectangle& area : observer.areas)
        asked.Add(CutTo(300, 200, area));
    Coverage composed(300, 200);
    for (const Rectangle& area : host.Compose())
        composed.Add(area);
    EXPECT_EQ(composed.Most(), 1);
    EXPECT_EQ(composed.Covered(), asked.Covered());
}

class FailingControl : public CControlBase
{
public:
    void Paint(Bitmap& /*screen*/, const Rectangle& area, long /*left*/, long /*top*/) const override
    {
        if (fails)
            throw area;
        Render::Instance().InvalidateArea({0, 0, 1, 1});
    }

    bool fails = true;
};

TEST(Compose, NothingIsForgottenWhenAControlThrowsOrInvalidatesWhilePainting)
{
    orvane::Settings settings;
    settings.width = 10;
    settings.height = 10;
    orvane::Host host(settings);
    CDialog dialog;
    FailingControl control;
    control.SetSize(5, 5);
    dialog.AddCntrlBefore(&control, nullptr);
    dialog.Show();
    EXPECT_THROW(host.Compose(), Rectangle);
    control.fails = false;
    EXPECT_EQ(host.Compose(), (std::vector<Rectangle>{{0, 0, 10, 10}}));
    EXPECT_TRUE(host.HasDamage());
}

} // namespace

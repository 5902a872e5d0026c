// SPDX-License-Identifier: MIT
#include "host/canvas.h"
#include "host/window.h"
#include "orvane/orvane.h"
#include "tests/orvane/test_bitmaps.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>

namespace
{

using Rectangle = render::Rectangle<int>;
using Areas = std::vector<Rectangle>;

class Recorder : public orvane::Observer
{
public:
    void AreaInvalidated(const Rectangle& area) override { areas.push_back(area); }
    void ControlInvalidated(const CControlBase& control) override { controls.push_back(&control); }

    Areas areas;
    std::vector<const CControlBase*> controls;
};

std::vector<const CControlBase*> OrderOf(const CWindowBase& window)
{
    std::vector<const CControlBase*> order;
    for (const CControlBase* control = window.FirstControl(); control != nullptr; control = control->NextControl()) {
        EXPECT_EQ(control->Window(), &window);
        EXPECT_EQ(control->PrevControl(), order.empty() ? nullptr : order.back());
        order.push_back(control);
    }
    EXPECT_EQ(window.LastControl(), order.empty() ? nullptr : order.back());
    EXPECT_EQ(window.GetNumControls(), static_cast<long>(order.size()));
    return order;
}

TEST(Window, KeepsControlsInTheOrderAskedFor)
{
    using Order = std::vector<const CControlBase*>;
    CWindowBase window;
    CWindowBase other;
    CControlBase a, b, c, foreign;
    other.AddCntrlBefore(&foreign, nullptr);
    EXPECT_EQ(window.AddCntrlBefore(nullptr, nullptr), 0);
    EXPECT_EQ(window.AddCntrlAfter(nullptr, &a), 0);
    EXPECT_EQ(window.AddCntrlBefore(&a, &foreign), 1);
    EXPECT_EQ(window.AddCntrlBefore(&b, &a), 1);
    EXPECT_EQ(OrderOf(window), (Order{&b, &a}));
    EXPECT_EQ(window.AddCntrlAfter(&c, &b), 1);
    EXPECT_EQ(OrderOf(window), (Order{&b, &c, &a}));
    window.AddCntrlAfter(&b, &foreign);
    EXPECT_EQ(OrderOf(window), (Order{&c, &a, &b}));
    window.AddCntrlBefore(&b, &c);
    EXPECT_EQ(OrderOf(window), (Order{&b, &c, &a}));
    window.AddCntrlBefore(&c, &c);
    window.AddCntrlAfter(&c, &c);
    EXPECT_EQ(OrderOf(window), (Order{&b, &c, &a}));
    other.AddCntrlBefore(&c, &foreign);
    EXPECT_EQ(OrderOf(window), (Order{&b, &a}));
    EXPECT_EQ(OrderOf(other), (Order{&c, &foreign}));
    EXPECT_EQ(window.RemoveCntrl(&c), 0);
    EXPECT_EQ(window.RemoveCntrl(nullptr), 0);
    EXPECT_EQ(window.RemoveCntrl(&b), 1);
    EXPECT_EQ(OrderOf(window), (Order{&a}));
    EXPECT_EQ(b.Window(), nullptr);
}

TEST(Window, EveryChangeDamagesWhatItShows)
{
    Recorder recorder;
    orvane::Settings settings;
    settings.observer = &recorder;
    orvane::Host host(settings);
    const OwnedBitmap bitmap = MakeBitmap(5, 5);
    CDialog dialog;
    CDialog hidden;
    Canvas below;
    std::optional<Canvas> canvas(std::in_place);
    below.Create(1, 1, 9, 9);
    canvas->Create(20, 30, 40, 50);
    dialog.AddCntrlBefore(&below, nullptr);
    dialog.AddCntrlBefore(&*canvas, nullptr);
    dialog.SetPos(100, 200);
    recorder.areas.clear();

    struct Step {
        const char* what;
        std::function<void()> change;
        Areas damaged;
    };
    const Step steps[] = {
        {"changes of a hidden dialog",
         [&] {
             canvas->Invalidate();
             below.SetSize(10, 10);
         },
         {}},
        {"show", [&] { dialog.Show(); }, {{101, 201, 10, 10}, {120, 230, 40, 50}}},
        {"show again", [&] { dialog.Show(); }, {}},
        {"same values",
         [&] {
             canvas->SetPos(20, 30);
             canvas->SetSize(40, 50);
             canvas->SetState(CControlBase::kStateShown);
             canvas->SetState(77);
             dialog.SetPos(100, 200);
             dialog.AddCntrlAfter(&*canvas, &below);
             dialog.AddCntrlBefore(&*canvas, nullptr);
         },
         {}},
        {"move", [&] { canvas->SetPos(25, 30); }, {{120, 230, 40, 50}, {125, 230, 40, 50}}},
        {"resize", [&] { canvas->SetSize(-7, 50); }, {{125, 230, 40, 50}}},
        {"resize back", [&] { canvas->SetSize(4, 5); }, {{125, 230, 4, 5}}},
        {"picture", [&] { canvas->SetBitmap(bitmap.get()); }, {{125, 230, 4, 5}}},
        {"same picture", [&] { canvas->SetBitmap(bitmap.get()); }, {{125, 230, 4, 5}}},
        {"lower", [&] { dialog.AddCntrlBefore(&*canvas, &below); }, {{125, 230, 4, 5}}},
        {"hide", [&] { canvas->SetState(CControlBase::kStateHidden); }, {{125, 230, 4, 5}}},
        {"changes while hidden",
         [&] {
             canvas->SetPos(1, 2);
             canvas->Invalidate();
             canvas->SetBitmap(nullptr);
             dialog.AddCntrlAfter(&*canvas, &below);
         },
         {}},
        {"show a control", [&] { canvas->SetState(CControlBase::kStateShown); }, {{101, 202, 4, 5}}},
        {"move the dialog",
         [&] { dialog.SetPos(-100, 200); },
         {{101, 201, 10, 10}, {101, 202, 4, 5}, {-99, 201, 10, 10}, {-99, 202, 4, 5}}},
        {"into a hidden dialog", [&] { hidden.AddCntrlBefore(&*canvas, nullptr); }, {{-99, 202, 4, 5}}},
        {"and back", [&] { dialog.AddCntrlBefore(&*canvas, nullptr); }, {{-99, 202, 4, 5}}},
        {"remove", [&] { dialog.RemoveCntrl(&*canvas); }, {{-99, 202, 4, 5}}},
        {"insert", [&] { dialog.AddCntrlAfter(&*canvas, &below); }, {{-99, 202, 4, 5}}},
        {"invalidate", [&] { canvas->Invalidate(); }, {{-99, 202, 4, 5}}},
        {"destroy", [&] { canvas.reset(); }, {{-99, 202, 4, 5}}},
        {"hide the dialog", [&] { dialog.Hide(); }, {{-99, 201, 10, 10}}},
    };
    const Canvas* const address = &*canvas;
    for (const Step& step : steps) {
        step.change();
        EXPECT_EQ(recorder.areas, step.damaged) << step.what;
        recorder.areas.clear();
    }
    EXPECT_EQ(recorder.controls, (std::vector<const CControlBase*>(3, address)));
}

TEST(Window, DiesInAnyOrderWithItsControlsAndTheHost)
{
    for (int first = 0; first < 3; ++first) {
        for (int second = 0; second < 3; ++second) {
            orvane::Settings settings;
            settings.width = 20;
            settings.height = 20;
            settings.background = {0, 0, 0, 255};
            auto host = std::make_unique<orvane::Host>(settings);
            auto dialog = std::make_unique<CDialog>();
            OwnedBitmap bitmap = MakeBitmap(9, 9);
            bitmap->FillRect({0, 0, 9, 9}, {255, 255, 255, 255});
            auto canvas = std::make_unique<Canvas>();
            canvas->Create(0, 0, 9, 9);
            canvas->SetBitmap(bitmap.get());
            dialog->AddCntrlBefore(canvas.get(), nullptr);
            dialog->Show();
            host->Compose();
            bitmap.reset();
            for (const int which : {first, second}) {
                if (which == 0)
                    host.reset();
                else if (which == 1)
                    dialog.reset();
                else
                    canvas.reset();
                if (canvas != nullptr)
                    canvas->Invalidate();
                if (host != nullptr) {
                    host->Compose();
                    EXPECT_EQ(PixelsOf(host->Screen())[0], 0xFF000000U);
                }
            }
            if (dialog != nullptr && canvas == nullptr) {
                EXPECT_EQ(dialog->FirstControl(), nullptr);
            }
            if (canvas != nullptr && dialog == nullptr) {
                EXPECT_EQ(canvas->Window(), nullptr);
            }
        }
    }
}

TEST(Window, DialogShownBeforeTheStartIsOnEveryScreen)
{
    CDialog dialog;
    Canvas canvas;
    const OwnedBitmap bitmap = MakeBitmap(1, 1);
    bitmap->FillRect({0, 0, 1, 1}, {255, 0, 0, 255});
    canvas.Create(2, 0, 1, 1);
    canvas.SetBitmap(bitmap.get());
    dialog.AddCntrlBefore(&canvas, nullptr);
    dialog.Show();
    for (int i = 0; i < 2; ++i) {
        orvane::Settings settings;
        settings.width = 4;
        settings.height = 1;
        settings.background = {0, 0, 255, 255};
        orvane::Host host(settings);
        host.Compose();
        EXPECT_EQ(PixelsOf(host.Screen()),
                  (std::vector<std::uint32_t>{0xFF0000FF, 0xFF0000FF, 0xFFFF0000, 0xFF0000FF}));
    }
}

} // namespace

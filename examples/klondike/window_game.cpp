// SPDX-License-Identifier: MIT
#include "examples/klondike/window_game.h"

#include "examples/klondike/labels/icon.h"
#include "host/globals.h"
#include "orvane/orvane.h"

#include <chrono>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>

namespace klondike
{

namespace
{

constexpr int kIconSide = 128;

orvane::Settings HostSettings(const Arguments& arguments)
{
    orvane::Settings settings;
    settings.width = arguments.width;
    settings.height = arguments.height;
    settings.background = {12, 70, 44, 255};
    return settings;
}

orvane::WindowSettings SettingsOf(const Arguments& arguments, const Setup& setup)
{
    orvane::WindowSettings settings;
    settings.title = "Klondike";
    settings.width = arguments.width;
    settings.height = arguments.height;
    settings.minimumWidth = 400;
    settings.minimumHeight = 300;
    settings.fullScreen = setup.settings.fullScreen;
    return settings;
}

} // namespace

void PlayInWindow(const Arguments& arguments, Setup setup)
{
    orvane::Host host(HostSettings(arguments));
    orvane::Window window(host, SettingsOf(arguments, setup));
    if (const OwnedBitmap icon = MakeIcon(kIconSide)) {
        window.SetIcon(*icon);
    }
    Program program(host, window, std::move(setup));
    program.Loop().Run();
}

void TakePicture(const Arguments& arguments, Setup setup)
{
    setenv("SDL_VIDEODRIVER", "dummy", 1); // NOLINT(concurrency-mt-unsafe): no other thread runs yet
    setup.settings.fullScreen = false;
    orvane::Host host(HostSettings(arguments));
    orvane::Window window(host, SettingsOf(arguments, setup));
    std::uint64_t now = 0;
    Program program(host, window, std::move(setup), [&now] { return now; });
    for (int left = arguments.frames.value_or(0); !program.Loop().HasEnded();) {
        program.Loop().Step();
        if (program.AwaitsInput()) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
            continue;
        }
        const bool isDone = arguments.frames ? !program.HasCommands() && left-- == 0 : !program.IsBusy();
        if (isDone) {
            break;
        }
        now += glb->framePeriod;
    }
    if (!window.SaveScreenshot(arguments.picture)) {
        throw std::runtime_error("cannot write the picture '" + arguments.picture + "'");
    }
}

} // namespace klondike

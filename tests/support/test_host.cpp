// SPDX-License-Identifier: MIT
#include "tests/support/test_host.h"

#include "geometry/projection.h"

#include <cstddef>
#include <cstring>

TestHost::TestHost(int width, int height) : host(SettingsFor(*this, width, height))
{
    SetCameraFOV(36.4, 27.0);
    areas.clear();
}

orvane::Settings TestHost::SettingsFor(TestHost& self, int width, int height)
{
    orvane::Settings settings;
    settings.width = width;
    settings.height = height;
    settings.clock = [&self] { return self.now; };
    settings.logSink = [](const char*, orvane::LogLevel, const char*) {};
    settings.observer = &self;
    return settings;
}

void TestHost::LogWritten(const char* channel, orvane::LogLevel level, const char* text)
{
    lines.push_back((level == orvane::LogLevel::Error ? "error " : "info ") + std::string(channel) + ": " + text);
}

std::uint32_t PixelAt(const Bitmap& bitmap, int x, int y)
{
    std::uint32_t pixel = 0;
    const auto index =
        static_cast<std::size_t>(y) * static_cast<std::size_t>(bitmap.Width()) + static_cast<std::size_t>(x);
    std::memcpy(&pixel, bitmap.Buffer() + index * sizeof pixel, sizeof pixel);
    return pixel;
}

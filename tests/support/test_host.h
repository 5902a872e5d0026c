// SPDX-License-Identifier: MIT
#pragma once

#include "host/bitmap.h"
#include "host/bitmap_manager.h"
#include "orvane/orvane.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

/// A running host of 800 x 600 with a clock that the test moves, which notes what the library asks of it. The
/// projection is set to 36.4 by 27 degrees.
class TestHost : private orvane::Observer
{
public:
    explicit TestHost(int width = 800, int height = 600);

    std::uint64_t now = 1000000; ///< microseconds
    std::vector<render::Rectangle<int>> areas;
    std::vector<const CControlBase*> invalidated;
    std::vector<std::string> lines; ///< "error channel: text" or "info channel: text"

private:
    static orvane::Settings SettingsFor(TestHost& self, int width, int height);
    void AreaInvalidated(const render::Rectangle<int>& area) override { areas.push_back(area); }
    void ControlInvalidated(const CControlBase& control) override { invalidated.push_back(&control); }
    void LogWritten(const char* channel, orvane::LogLevel level, const char* text) override;

public:
    orvane::Host host;
};

class HostTest : public testing::Test
{
protected:
    TestHost host;
};

/// A bitmap of the test's own.
class OwnBitmap
{
public:
    OwnBitmap(int width, int height) : m_bitmap(BitmapManager::Instance().Create(width, height)) {}
    ~OwnBitmap() { BitmapManager::Instance().Destroy(m_bitmap); }
    OwnBitmap(const OwnBitmap&) = delete;
    OwnBitmap& operator=(const OwnBitmap&) = delete;
    operator Bitmap*() const { return m_bitmap; }
    Bitmap* operator->() const { return m_bitmap; }

private:
    Bitmap* m_bitmap;
};

/// A pixel as 0xAARRGGBB.
std::uint32_t PixelAt(const Bitmap& bitmap, int x, int y);

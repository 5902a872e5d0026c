// SPDX-License-Identifier: MIT
// Opens a window, tells on standard output what arrives in it, and ends at the key Q.
//     window_probe once                   ends by itself after a second
//     window_probe SCREENSHOT SCREEN X Y  at the key S saves the screen and compares it with the display's picture, an
//                                         XWD file, at the window's place; at the key I tells what two seconds cost
#include "orvane/window/loop.h"

#include "host/bitmap.h"
#include "host/bitmap_manager.h"
#include "host/window.h"

#include <cstring>
#include <ctime>
#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

namespace
{

/// The display's picture, as its server writes it.
class XwdFile
{
public:
    explicit XwdFile(const std::string& file)
    {
        std::ifstream stream(file, std::ios::binary);
        m_bytes.assign(std::istreambuf_iterator<char>(stream), {});
    }
    std::uint32_t ColourAt(std::size_t x, std::size_t y) const
    {
        constexpr std::size_t kHeaderSize = 0;
        constexpr std::size_t kBytesPerLine = 12;
        constexpr std::size_t kColours = 19;
        constexpr std::size_t kColourSize = 12;
        const std::size_t start = Field(kHeaderSize) + Field(kColours) * kColourSize;
        std::uint32_t pixel = 0;
        std::memcpy(&pixel, &m_bytes.at(start + y * Field(kBytesPerLine) + x * 4), sizeof pixel);
        return pixel & 0xFFFFFFU;
    }

private:
    /// A field of the header: 32 bits, the highest first.
    std::size_t Field(std::size_t number) const
    {
        std::size_t value = 0;
        for (std::size_t i = 0; i < 4; ++i) {
            value = value * 256 + static_cast<unsigned char>(m_bytes.at(number * 4 + i));
        }
        return value;
    }

    std::vector<char> m_bytes;
};

/// No two neighbouring pixels of it are the same.
class Pattern : public CControlBase
{
public:
    void Paint(Bitmap& screen, const render::Rectangle<int>& area, long left, long top) const override
    {
        for (int y = area.y; y < area.y + area.height; ++y) {
            for (int x = area.x; x < area.x + area.width; ++x) {
                const auto across = static_cast<std::uint8_t>((x - left) * 7);
                const auto down = static_cast<std::uint8_t>((y - top) * 5);
                screen.FillRect({x, y, 1, 1}, {across, down, 200, 255});
            }
        }
    }
};

class Probe : public orvane::Program
{
public:
    Probe()
    {
        m_pattern.SetSize(100, 80);
        m_dialog.AddCntrlBefore(&m_pattern, nullptr);
        m_dialog.Show();
    }

    bool Frame() override
    {
        if (m_frame == kFrames) {
            return false;
        }
        ++m_frame;
        m_pattern.SetPos(m_frame * 3, m_frame * 2);
        return true;
    }
    void Resized(int width, int height) override { std::cout << "size " << width << ' ' << height << std::endl; }
    void Pointer(const orvane::PointerEvent& event) override
    {
        constexpr const char* kNames[] = {"down", "move", "up", "wheel", "cancel"};
        std::cout << kNames[static_cast<int>(event.action)] << ' ' << event.x << ' ' << event.y << std::endl;
    }
    void Key(const orvane::KeyEvent& event) override
    {
        if (!event.down) {
            return;
        }
        if (event.character == U's') {
            Compare();
        } else if (event.character == U'i') {
            loop->CallAt(loop->Now() + 500000, [this] { StartIdling(); });
        } else if (event.character == U'q') {
            loop->Stop();
        }
    }

    orvane::Window* window = nullptr;
    orvane::Loop* loop = nullptr;
    std::vector<std::string> arguments;

private:
    void StartIdling()
    {
        m_pixels = loop->Counters().pixelsPresented;
        m_cpu = std::clock();
        loop->CallAt(loop->Now() + 2000000, [this] {
            std::cout << "idle " << (std::clock() - m_cpu) * 1000000 / CLOCKS_PER_SEC << " us "
                      << loop->Counters().pixelsPresented - m_pixels << " pixels" << std::endl;
        });
    }

    void Compare() const
    {
        Bitmap* shot = nullptr;
        if (window->SaveScreenshot(arguments.at(0))) {
            shot = BitmapManager::Instance().Load(arguments.at(0), true);
        }
        if (shot == nullptr) {
            std::cout << "no screenshot" << std::endl;
            return;
        }
        const XwdFile display(arguments.at(1));
        const std::size_t left = std::stoul(arguments.at(2));
        const std::size_t top = std::stoul(arguments.at(3));
        const auto width = static_cast<std::size_t>(shot->Width());
        const auto height = static_cast<std::size_t>(shot->Height());
        std::size_t different = 0;
        for (std::size_t y = 0; y < height; ++y) {
            for (std::size_t x = 0; x < width; ++x) {
                std::uint32_t pixel = 0;
                std::memcpy(&pixel, shot->Buffer() + (y * width + x) * 4, sizeof pixel);
                different += display.ColourAt(left + x, top + y) == (pixel & 0xFFFFFFU) ? 0U : 1U;
            }
        }
        std::cout << "compared " << width * height << ", different " << different << std::endl;
        BitmapManager::Instance().Destroy(shot);
    }

    static constexpr int kFrames = 30;

    CDialog m_dialog;
    Pattern m_pattern;
    int m_frame = 0;
    std::uint64_t m_pixels = 0;
    std::clock_t m_cpu = 0;
};

} // namespace

int main(int argc, char** argv)
{
    try {
        orvane::Settings settings;
        settings.width = 400;
        settings.height = 300;
        settings.background = {10, 120, 30, 255};
        orvane::Host host(settings);
        orvane::WindowSettings windowSettings;
        windowSettings.title = "window probe";
        orvane::Window window(host, windowSettings);
        Probe probe;
        orvane::Loop loop(host, window, probe);
        probe.window = &window;
        probe.loop = &loop;
        probe.arguments.assign(argv + 1, argv + argc);
        if (probe.arguments.size() == 1) {
            loop.CallAt(loop.Now() + 1000000, [&] { loop.Stop(); });
        }
        loop.Run();
        std::cout << "frames " << loop.Counters().framesComposed << std::endl;
        return 0;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}

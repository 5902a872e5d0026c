// SPDX-License-Identifier: MIT
#pragma once

#include "host/rectangle.h"
#include "orvane/orvane.h"
#include "orvane/window/export.h"
#include "orvane/window/pixel_scale.h"

#include <cstdint>
#include <string>
#include <vector>

class Bitmap;
struct SDL_Rect;
struct SDL_Window;

namespace orvane
{

/// How a window opens.
struct WindowSettings {
    std::string title = "orvane"; ///< UTF-8
    ///@{
    /// Size in the display's units, which are pixels but for displays with a scale. 0 or less: the screen's present
    /// size.
    int width = 0;
    int height = 0;
    ///@}
    ///@{
    /// The user makes it no smaller than this, the same units; less than 1 counts as 1.
    int minimumWidth = 320;
    int minimumHeight = 240;
    ///@}
    bool fullScreen = false; ///< covers the whole display at once
};

/// A resizable window on the screen of the running host: a pixel of the screen is a pixel of the display. Opening it
/// gives the screen the window's size. Made, used and destroyed on the host's thread.
class ORVANE_WINDOW_API Window
{
public:
    /// Throws std::runtime_error with one line of text when there is no display, or it gives no window.
    Window(Host& host, const WindowSettings& settings);
    ~Window();
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    /// UTF-8.
    void SetTitle(const std::string& title);
    /// Shows the picture wherever the system shows a program's sign; it is copied. An empty bitmap changes nothing.
    void SetIcon(const Bitmap& icon);
    ///@{
    /// Covers the whole display, without a change of its mode. Resized follows. Returns false when the system refuses.
    bool SetFullScreen(bool fullScreen);
    bool IsFullScreen() const;
    bool ToggleFullScreen() { return SetFullScreen(!IsFullScreen()); }
    ///@}
    /// Switches Program::Text on or off; it starts off. While it is on a system's input method may take keys.
    void SetTextInput(bool on);
    /// Changes the size, in the display's units, sides of at least 1; Resized follows.
    void SetSize(int width, int height);

    ///@{
    /// Size in pixels: that of the host's screen.
    int Width() const { return m_scale.pixelWidth; }
    int Height() const { return m_scale.pixelHeight; }
    ///@}
    /// The window's size in both units.
    const PixelScale& Scale() const { return m_scale; }
    /// True while nobody can see the window: it is hidden or reduced to a sign.
    bool IsHidden() const;

    /// Composes what is damaged and writes the screen to a PNG file. What it composed is shown at the next frame.
    /// Returns false, and writes one line to the log, when the file cannot be written.
    bool SaveScreenshot(const std::string& file);

    ///@{
    /// For the loop. Composes the damage and shows what was composed since the last time, nothing else; all of it after
    /// Expose. Returns the number of pixels shown; 0 while the display cannot take them, they come the next time.
    std::uint64_t Refresh();
    /// Takes over the window's present size. Returns true when the screen's size changed.
    bool FollowSize();
    /// The system lost the picture: the next Refresh shows the whole of it.
    void Expose() { m_exposed = true; }
    bool IsExposed() const { return m_exposed; }
    /// The number that the window's events carry.
    std::uint32_t Id() const;
    ///@}

private:
    void ComposeDamage();

    Host& m_host;
    SDL_Window* m_window = nullptr;
    PixelScale m_scale;
    std::vector<render::Rectangle<int>> m_unshown; ///< composed, but not shown
    std::vector<SDL_Rect> m_rectangles;            ///< scratch of Refresh
    bool m_exposed = true;
};

} // namespace orvane

// SPDX-License-Identifier: MIT
#include "orvane/window/window.h"

#include "host/bitmap.h"
#include "orvane/png_file.h"

#include <SDL.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <stdexcept>

namespace orvane
{

namespace
{

constexpr Uint32 kScreenFormat = SDL_PIXELFORMAT_RGB888; // 32 bits; the screen is opaque, its alpha is left out

/// Where a driver hands pixels over itself, only the damaged ones travel. Through a texture the whole window is drawn
/// and shown for every change: for one card that took 2 ms at 800 x 600 and 11 ms at 1920 x 1080, against 0.07 ms at
/// both sizes (an X server and OpenGL without a graphics processor). The texture remains for Wayland, whose driver has
/// nothing else.
void PreferDamagedAreas()
{
    const char* const driver = SDL_GetCurrentVideoDriver();
    if (driver != nullptr && std::strcmp(driver, "wayland") != 0) {
        SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");
    }
}

void StartVideo()
{
    SDL_SetMainReady();
    SDL_SetHint(SDL_HINT_TOUCH_MOUSE_EVENTS, "0");
    SDL_SetHint(SDL_HINT_MOUSE_TOUCH_EVENTS, "0");
    SDL_SetHint(SDL_HINT_VIDEO_ALLOW_SCREENSAVER, "1");
    // The click that brings the window to the front is a click on a card too.
    SDL_SetHint(SDL_HINT_MOUSE_FOCUS_CLICKTHROUGH, "1");
    if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0) {
        throw std::runtime_error(std::string("orvane: there is no display to open a window on: ") + SDL_GetError());
    }
    PreferDamagedAreas();
}

bool HasScreenLayout(const SDL_PixelFormat& format)
{
    return format.BytesPerPixel == 4 && format.Rmask == 0xFF0000U && format.Gmask == 0xFF00U && format.Bmask == 0xFFU;
}

void CopyArea(const Bitmap& screen, SDL_Surface& surface, const SDL_Rect& area)
{
    const auto at = [&](auto* pixels, int pitch, int pixelBytes) {
        return pixels + static_cast<std::ptrdiff_t>(area.y) * pitch + static_cast<std::ptrdiff_t>(area.x) * pixelBytes;
    };
    const int screenPitch = screen.Width() * 4;
    const std::uint8_t* source = at(screen.Buffer(), screenPitch, 4);
    auto* destination = at(static_cast<std::uint8_t*>(surface.pixels), surface.pitch, surface.format->BytesPerPixel);
    if (!HasScreenLayout(*surface.format)) {
        SDL_ConvertPixels(area.w, area.h, kScreenFormat, source, screenPitch, surface.format->format, destination,
                          surface.pitch);
        return;
    }
    for (int row = 0; row < area.h; ++row) {
        std::memcpy(destination, source, static_cast<std::size_t>(area.w) * 4);
        source += screenPitch;
        destination += surface.pitch;
    }
}

PixelScale SizeOf(SDL_Window* window)
{
    PixelScale scale;
    SDL_GetWindowSize(window, &scale.width, &scale.height);
    SDL_GetWindowSizeInPixels(window, &scale.pixelWidth, &scale.pixelHeight);
    scale.pixelWidth = std::clamp(scale.pixelWidth, 0, Bitmap::kMaxSide);
    scale.pixelHeight = std::clamp(scale.pixelHeight, 0, Bitmap::kMaxSide);
    return scale;
}

int SideOr(int side, int otherwise)
{
    return std::clamp(side > 0 ? side : otherwise, 1, Bitmap::kMaxSide);
}

} // namespace

Window::Window(Host& host, const WindowSettings& settings) : m_host(host)
{
    StartVideo();
    const Uint32 flags = SDL_WINDOW_RESIZABLE | SDL_WINDOW_ALLOW_HIGHDPI |
                         (settings.fullScreen ? static_cast<Uint32>(SDL_WINDOW_FULLSCREEN_DESKTOP) : 0U);
    m_window = SDL_CreateWindow(settings.title.c_str(), SDL_WINDOWPOS_UNDEFINED, SDL_WINDOWPOS_UNDEFINED,
                                SideOr(settings.width, host.Screen().Width()),
                                SideOr(settings.height, host.Screen().Height()), flags);
    if (m_window == nullptr || SDL_GetWindowSurface(m_window) == nullptr) {
        const std::string reason = SDL_GetError();
        SDL_DestroyWindow(m_window);
        SDL_QuitSubSystem(SDL_INIT_VIDEO);
        throw std::runtime_error("orvane: the display gives no window: " + reason);
    }
    SDL_SetWindowMinimumSize(m_window, SideOr(settings.minimumWidth, 1), SideOr(settings.minimumHeight, 1));
    SetTextInput(false); // the system starts with it on
    m_scale = SizeOf(m_window);
    try {
        m_host.SetActiveSize(m_scale.pixelWidth, m_scale.pixelHeight);
    } catch (...) {
        SDL_DestroyWindow(m_window);
        SDL_QuitSubSystem(SDL_INIT_VIDEO);
        throw;
    }
}

Window::~Window()
{
    SDL_DestroyWindow(m_window);
    SDL_QuitSubSystem(SDL_INIT_VIDEO);
}

void Window::SetTitle(const std::string& title)
{
    SDL_SetWindowTitle(m_window, title.c_str());
}

void Window::SetIcon(const Bitmap& icon)
{
    if (icon.Buffer() == nullptr) {
        return;
    }
    SDL_Surface* const surface =
        SDL_CreateRGBSurfaceWithFormat(0, icon.Width(), icon.Height(), 32, SDL_PIXELFORMAT_ARGB8888);
    if (surface == nullptr) {
        return;
    }
    // Straight alpha is what the system wants.
    for (int row = 0; row < icon.Height(); ++row) {
        const std::uint8_t* source = icon.Buffer() + static_cast<std::ptrdiff_t>(row) * icon.Width() * 4;
        auto* destination =
            static_cast<std::uint8_t*>(surface->pixels) + static_cast<std::ptrdiff_t>(row) * surface->pitch;
        for (int x = 0; x < icon.Width(); ++x, source += 4, destination += 4) {
            const int alpha = source[3];
            for (int channel = 0; channel < 3; ++channel) {
                const int value = alpha == 0 ? 0 : (source[channel] * 255 + alpha / 2) / alpha;
                destination[channel] = static_cast<std::uint8_t>(std::min(value, 255));
            }
            destination[3] = source[3];
        }
    }
    SDL_SetWindowIcon(m_window, surface);
    SDL_FreeSurface(surface);
}

bool Window::SetFullScreen(bool fullScreen)
{
    return SDL_SetWindowFullscreen(m_window, fullScreen ? static_cast<Uint32>(SDL_WINDOW_FULLSCREEN_DESKTOP) : 0U) == 0;
}

bool Window::IsFullScreen() const
{
    return (SDL_GetWindowFlags(m_window) & SDL_WINDOW_FULLSCREEN) != 0;
}

void Window::SetTextInput(bool on)
{
    if (on) {
        SDL_StartTextInput();
    } else {
        SDL_StopTextInput();
    }
}

void Window::SetSize(int width, int height)
{
    SDL_SetWindowSize(m_window, SideOr(width, 1), SideOr(height, 1));
}

bool Window::IsHidden() const
{
    return (SDL_GetWindowFlags(m_window) & (SDL_WINDOW_MINIMIZED | SDL_WINDOW_HIDDEN)) != 0;
}

bool Window::SaveScreenshot(const std::string& file)
{
    ComposeDamage();
    return SavePng(m_host.Screen(), file);
}

void Window::ComposeDamage()
{
    const auto& areas = m_host.Compose();
    m_unshown.insert(m_unshown.end(), areas.begin(), areas.end());
}

std::uint64_t Window::Refresh()
{
    ComposeDamage();
    const Bitmap& screen = m_host.Screen();
    if (m_exposed) {
        m_unshown.assign(1, {0, 0, screen.Width(), screen.Height()});
    }
    if (m_unshown.empty()) {
        return 0;
    }
    SDL_Surface* const surface = SDL_GetWindowSurface(m_window);
    if (surface == nullptr) {
        return 0;
    }
    // While the user pulls at the frame the surface may be ahead of the screen: the event of its size is on the way.
    const SDL_Rect common{0, 0, std::min(surface->w, screen.Width()), std::min(surface->h, screen.Height())};
    m_rectangles.clear();
    std::uint64_t pixels = 0;
    for (const auto& area : m_unshown) {
        const SDL_Rect whole{area.x, area.y, area.width, area.height};
        SDL_Rect shown;
        if (SDL_IntersectRect(&whole, &common, &shown) == SDL_TRUE) {
            CopyArea(screen, *surface, shown);
            m_rectangles.push_back(shown);
            pixels += static_cast<std::uint64_t>(shown.w) * static_cast<std::uint64_t>(shown.h);
        }
    }
    if (!m_rectangles.empty() &&
        SDL_UpdateWindowSurfaceRects(m_window, m_rectangles.data(), static_cast<int>(m_rectangles.size())) != 0) {
        return 0;
    }
    m_unshown.clear();
    m_exposed = false;
    return pixels;
}

bool Window::FollowSize()
{
    m_scale = SizeOf(m_window);
    const Bitmap& screen = m_host.Screen();
    if (screen.Width() == m_scale.pixelWidth && screen.Height() == m_scale.pixelHeight) {
        return false;
    }
    m_host.SetActiveSize(m_scale.pixelWidth, m_scale.pixelHeight);
    m_unshown.clear();
    return true;
}

std::uint32_t Window::Id() const
{
    return SDL_GetWindowID(m_window);
}

} // namespace orvane

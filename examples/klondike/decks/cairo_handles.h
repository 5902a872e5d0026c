// SPDX-License-Identifier: MIT
#pragma once

#include <cairo.h>

#include <memory>

namespace klondike
{

struct CairoDeleter {
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    void operator()(cairo_t* cairo) const { cairo_destroy(cairo); }
    void operator()(cairo_pattern_t* pattern) const { cairo_pattern_destroy(pattern); }
};

///@{
/// The drawing library's objects with an owner. It never gives null: one that could not be made has an error status and
/// draws nothing.
using CairoSurface = std::unique_ptr<cairo_surface_t, CairoDeleter>;
using CairoContext = std::unique_ptr<cairo_t, CairoDeleter>;
using CairoPattern = std::unique_ptr<cairo_pattern_t, CairoDeleter>;
///@}

/// Puts the context's transformation, clip and source back when it goes.
class CairoState
{
public:
    explicit CairoState(cairo_t* cairo) : m_cairo(cairo) { cairo_save(m_cairo); }
    ~CairoState() { cairo_restore(m_cairo); }
    CairoState(const CairoState&) = delete;
    CairoState& operator=(const CairoState&) = delete;

private:
    cairo_t* m_cairo;
};

} // namespace klondike

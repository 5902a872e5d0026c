// SPDX-License-Identifier: MIT
#pragma once

#include <cairo.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

/// A picture's premultiplied ARGB words, row after row; no pixels when the file could not be read.
struct PngPicture {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;

    std::uint32_t At(int x, int y) const
    {
        return pixels.at(static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x));
    }
};

inline PngPicture LoadPng(const std::string& path)
{
    PngPicture picture;
    cairo_surface_t* file = cairo_image_surface_create_from_png(path.c_str());
    if (cairo_surface_status(file) == CAIRO_STATUS_SUCCESS) {
        picture.width = cairo_image_surface_get_width(file);
        picture.height = cairo_image_surface_get_height(file);
        // A file without transparency comes in another format: one more drawing makes them alike.
        cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, picture.width, picture.height);
        cairo_t* cairo = cairo_create(surface);
        cairo_set_operator(cairo, CAIRO_OPERATOR_SOURCE);
        cairo_set_source_surface(cairo, file, 0.0, 0.0);
        cairo_paint(cairo);
        cairo_destroy(cairo);
        cairo_surface_flush(surface);
        picture.pixels.resize(static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height));
        std::memcpy(picture.pixels.data(), cairo_image_surface_get_data(surface), picture.pixels.size() * 4);
        cairo_surface_destroy(surface);
    }
    cairo_surface_destroy(file);
    return picture;
}

// SPDX-License-Identifier: MIT
#pragma once

#include <cairo.h>

#include <filesystem>

namespace klondike
{

/// A picture on its way to a file: written beside it under another name, and there at once with Publish. Not published,
/// it goes.
class PngWriter
{
public:
    /// What the names of unfinished files end with.
    static constexpr const char* kUnfinished = ".part";

    /// Writes the whole picture. Throws DeckError when it cannot.
    PngWriter(cairo_surface_t* picture, const std::filesystem::path& file);
    ~PngWriter();
    PngWriter(const PngWriter&) = delete;
    PngWriter& operator=(const PngWriter&) = delete;

    /// Puts the picture in the file's place. Throws DeckError.
    void Publish();

private:
    std::filesystem::path m_file;
    std::filesystem::path m_unfinished;
};

} // namespace klondike

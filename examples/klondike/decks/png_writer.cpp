// SPDX-License-Identifier: MIT
#include "examples/klondike/decks/png_writer.h"

#include "examples/klondike/decks/deck_error.h"

#include <fstream>
#include <random>
#include <string>

namespace klondike
{

namespace
{

cairo_status_t WriteTo(void* stream, const unsigned char* bytes, unsigned int length)
{
    auto& out = *static_cast<std::ofstream*>(stream);
    out.write(reinterpret_cast<const char*>(bytes), static_cast<std::streamsize>(length));
    return out ? CAIRO_STATUS_SUCCESS : CAIRO_STATUS_WRITE_ERROR;
}

/// Another one in each program and thread that writes the same file.
std::filesystem::path UnfinishedName(std::filesystem::path file)
{
    std::random_device random;
    file += "." + std::to_string(random()) + PngWriter::kUnfinished;
    return file;
}

} // namespace

PngWriter::PngWriter(cairo_surface_t* picture, const std::filesystem::path& file)
    : m_file(file), m_unfinished(UnfinishedName(file))
{
    std::ofstream out(m_unfinished, std::ios::binary);
    cairo_status_t status = cairo_surface_status(picture);
    if (status == CAIRO_STATUS_SUCCESS) {
        status = cairo_surface_write_to_png_stream(picture, WriteTo, &out);
    }
    out.close(); // the last bytes may find the disk full
    if (status != CAIRO_STATUS_SUCCESS || !out) {
        std::error_code ignored;
        std::filesystem::remove(m_unfinished, ignored);
        throw DeckError("cannot write '" + m_unfinished.string() +
                        "': " + cairo_status_to_string(out ? status : CAIRO_STATUS_WRITE_ERROR));
    }
}

PngWriter::~PngWriter()
{
    std::error_code ignored;
    std::filesystem::remove(m_unfinished, ignored);
}

void PngWriter::Publish()
{
    std::error_code error;
    std::filesystem::rename(m_unfinished, m_file, error);
    if (error) {
        throw DeckError("cannot write '" + m_file.string() + "': " + error.message());
    }
}

} // namespace klondike

// SPDX-License-Identifier: MIT
#include "examples/klondike/decks/png_writer.h"

#include "examples/klondike/decks/deck_error.h"

#include <exception>
#include <string>

namespace klondike
{

namespace
{

struct Stream {
    common::UnfinishedFile& file;
    std::exception_ptr failure; ///< cannot pass through the drawing library, which is not C++
};

cairo_status_t WriteTo(void* context, const unsigned char* bytes, unsigned int length) noexcept
{
    Stream& stream = *static_cast<Stream*>(context);
    try {
        stream.file.Write({reinterpret_cast<const char*>(bytes), length});
        return CAIRO_STATUS_SUCCESS;
    } catch (...) {
        stream.failure = std::current_exception();
        return CAIRO_STATUS_WRITE_ERROR;
    }
}

} // namespace

void WritePng(cairo_surface_t* picture, common::UnfinishedFile& file)
{
    Stream stream{file, nullptr};
    const cairo_status_t status = cairo_surface_write_to_png_stream(picture, &WriteTo, &stream);
    if (stream.failure != nullptr) {
        std::rethrow_exception(stream.failure);
    }
    if (status != CAIRO_STATUS_SUCCESS) {
        throw DeckError(std::string("cannot encode a deck's picture: ") + cairo_status_to_string(status));
    }
}

} // namespace klondike

// SPDX-License-Identifier: MIT
#include "examples/klondike/decks/deck_cache.h"

#include "examples/klondike/decks/cache_folder.h"
#include "examples/klondike/decks/cairo_handles.h"
#include "examples/klondike/decks/deck_painter.h"
#include "examples/klondike/decks/png_size.h"
#include "examples/klondike/decks/png_writer.h"

#include <filesystem>
#include <system_error>

namespace klondike
{

namespace
{

namespace fs = std::filesystem;

void RequireCardSize(int width, int height)
{
    for (const int side : {width, height}) {
        if (side < kSmallestCardSide || side > kLargestCardSide) {
            throw DeckError("a card cannot be " + std::to_string(width) + " x " + std::to_string(height) +
                            " pixels: each side is " + std::to_string(kSmallestCardSide) + " to " +
                            std::to_string(kLargestCardSide));
        }
    }
}

CairoSurface NewPicture(int width, int height)
{
    CairoSurface picture(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height));
    const cairo_status_t status = cairo_surface_status(picture.get());
    if (status != CAIRO_STATUS_SUCCESS) {
        throw DeckError("no picture of " + std::to_string(width) + " x " + std::to_string(height) +
                        " pixels: " + cairo_status_to_string(status));
    }
    return picture;
}

void RequireDrawn(cairo_t* cairo, const Deck& deck)
{
    const cairo_status_t status = cairo_status(cairo);
    if (status != CAIRO_STATUS_SUCCESS) {
        throw DeckError("cannot draw the deck '" + deck.name + "': " + cairo_status_to_string(status));
    }
}

CairoSurface DrawSheet(DeckPainter& painter, const Deck& deck, CardSize size, const std::stop_token& stop)
{
    const int width = DeckFiles::kColumns * size.width;
    CairoSurface sheet = NewPicture(width, DeckFiles::kRows * size.height);
    const CairoContext cairo(cairo_create(sheet.get()));
    for (int suit = 0; suit < DeckFiles::kRows; ++suit) {
        const CairoState state(cairo.get());
        cairo_translate(cairo.get(), 0.0, suit * size.height);
        cairo_rectangle(cairo.get(), 0.0, 0.0, width, size.height);
        cairo_clip(cairo.get());
        painter.DrawSuit(cairo.get(), suit, size, stop);
        RequireDrawn(cairo.get(), deck);
    }
    return sheet;
}

CairoSurface DrawBack(DeckPainter& painter, const Deck& deck, CardSize size)
{
    CairoSurface back = NewPicture(size.width, size.height);
    const CairoContext cairo(cairo_create(back.get()));
    painter.DrawBack(cairo.get(), size);
    RequireDrawn(cairo.get(), deck);
    return back;
}

bool AreThere(const DeckFiles& files)
{
    const PngSize sheet{DeckFiles::kColumns * files.cardWidth, DeckFiles::kRows * files.cardHeight};
    const PngSize back{files.cardWidth, files.cardHeight};
    return ReadPngSize(files.sheet) == sheet && ReadPngSize(files.back) == back;
}

} // namespace

DeckFiles Rendered(const Deck& deck, int cardWidth, int cardHeight, const std::string& folder,
                   const std::stop_token& stop)
{
    RequireCardSize(cardWidth, cardHeight);
    const CacheFolderFiles names(folder, deck, {cardWidth, cardHeight});
    DeckFiles files{names.sheet.string(), names.back.string(), cardWidth, cardHeight};
    if (AreThere(files)) {
        MarkUsed(names);
        return files;
    }
    ThrowIfStopped(stop);
    const std::unique_ptr<DeckPainter> painter = OpenDeck(deck);
    const CairoSurface back = DrawBack(*painter, deck, {cardWidth, cardHeight});
    const CairoSurface sheet = DrawSheet(*painter, deck, {cardWidth, cardHeight}, stop);
    std::error_code error;
    fs::create_directories(folder, error);
    try {
        common::UnfinishedFile backFile(names.back);
        common::UnfinishedFile sheetFile(names.sheet);
        WritePng(back.get(), backFile);
        WritePng(sheet.get(), sheetFile);
        ThrowIfStopped(stop);
        backFile.Publish();
        sheetFile.Publish();
    } catch (const std::system_error& failure) {
        throw DeckError("cannot write to '" + folder + "': " + failure.code().message());
    }
    TrimCache(names);
    return files;
}

} // namespace klondike

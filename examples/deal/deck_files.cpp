// SPDX-License-Identifier: MIT
#include "examples/deal/deck_files.h"

#include "examples/deal/failure.h"
#include "host/owned_bitmap.h"

namespace deal
{

namespace
{

std::string SizeText(long long width, long long height)
{
    return std::to_string(width) + " x " + std::to_string(height);
}

OwnedBitmap LoadPicture(const char* what, const std::string& file, const std::string& hostError)
{
    OwnedBitmap picture(BitmapManager::Instance().Load(file, true));
    if (picture == nullptr) {
        throw Failure(std::string("cannot read the ") + what + " '" + file + "': " + hostError);
    }
    return picture;
}

} // namespace

cardkit::SheetGrid GridOf(const DeckFiles& deck)
{
    return {deck.rows, deck.columns, deck.lastRow};
}

void CheckDeck(DeckFiles& deck, const std::string& hostError)
{
    const OwnedBitmap sheet = LoadPicture("deck sheet", deck.sheet, hostError);
    LoadPicture("card back", deck.back, hostError);
    if (deck.cellWidth == 0) {
        deck.cellWidth = sheet->Width() / deck.columns;
        deck.cellHeight = sheet->Height() / deck.rows;
    }
    const std::string grid = SizeText(deck.columns, deck.rows) + " cards";
    if (deck.cellWidth == 0 || deck.cellHeight == 0) {
        throw Failure("the deck sheet '" + deck.sheet + "' of " + SizeText(sheet->Width(), sheet->Height()) +
                      " pixels is too small for " + grid);
    }
    const long long neededWidth = static_cast<long long>(deck.cellWidth) * deck.columns;
    const long long neededHeight = static_cast<long long>(deck.cellHeight) * deck.rows;
    if (neededWidth > sheet->Width() || neededHeight > sheet->Height()) {
        throw Failure("the deck sheet '" + deck.sheet + "' is " + SizeText(sheet->Width(), sheet->Height()) +
                      " pixels, too small for " + grid + " of " + SizeText(deck.cellWidth, deck.cellHeight) + ", " +
                      SizeText(neededWidth, neededHeight));
    }
}

} // namespace deal

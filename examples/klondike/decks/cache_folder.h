// SPDX-License-Identifier: MIT
#pragma once

#include "examples/klondike/decks/card_size.h"
#include "examples/klondike/decks/deck_catalog.h"

#include <filesystem>
#include <string>

namespace klondike
{

/// The files that a deck's pictures of a size have in a cache folder. Another time or length of the deck's own files
/// gives other names.
struct CacheFolderFiles {
    /// Throws DeckError when one of the deck's files is missing.
    CacheFolderFiles(const std::filesystem::path& folder, const Deck& deck, CardSize size);

    std::filesystem::path sheet;
    std::filesystem::path back;
};

/// Makes these the newest files of their folder.
void MarkUsed(const CacheFolderFiles& files);

/// Removes the oldest pictures from the folder of these, but not these, until all together are within kCacheLimit; also
/// what a program that died has left unfinished. Files of other names stay.
void TrimCache(const CacheFolderFiles& files);

} // namespace klondike

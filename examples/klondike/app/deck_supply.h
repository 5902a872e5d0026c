// SPDX-License-Identifier: MIT
#pragma once

#include "examples/klondike/decks/deck_catalog.h"
#include "examples/klondike/decks/deck_renderer.h"

#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace klondike
{

/// Where the pictures come from and go to.
struct DeckPlaces {
    std::string assets;               ///< of the deck that comes with the game
    std::vector<std::string> folders; ///< with more decks
    std::string cache;
};

/// The decks of this machine, and the pictures of the one that is wanted at the size that is wanted. Looking for decks
/// and drawing them happens on other threads; the game takes what is ready when it is woken.
class DeckSupply
{
public:
    /// Starts looking for decks. The function is called on another thread whenever there is something to take.
    DeckSupply(const DeckPlaces& places, std::function<void()> wake);
    DeckSupply(const DeckSupply&) = delete;
    DeckSupply& operator=(const DeckSupply&) = delete;

    /// The deck of that name (the game's own for an empty or unknown one), as large as the room allows, pixels. The
    /// same wish again costs nothing and returns false.
    bool Want(const std::string& name, CardSize room);

    /// Something that has become ready.
    struct Delivery {
        bool foundDecks = false; ///< Decks() is complete
        std::optional<DeckFiles> files;
        std::string problem; ///< one line for the player
    };
    /// What has become ready since the last call. The pictures are those of the latest wish, or none.
    Delivery Take();

    /// True while the wanted pictures are on their way.
    bool IsWaiting() const { return m_isWaiting; }
    /// True until all decks have been looked for.
    bool IsLooking() const { return !m_complete; }
    /// Those found so far; first the game's own.
    const std::vector<Deck>& Decks() const { return m_decks; }
    /// Width by height of the wanted deck's cards, as far as it is known.
    double Aspect() const { return m_aspect; }

private:
    void Find(const DeckPlaces& places);
    void Request();
    const Deck* Wanted() const;

    const std::function<void()> m_wake;
    std::vector<Deck> m_decks;
    std::string m_name;
    CardSize m_room{};
    double m_aspect;
    std::uint64_t m_request = 0;
    bool m_complete = false;
    bool m_isWaiting = false;

    std::mutex m_mutex; ///< of these two
    std::optional<DeckCatalog> m_found;
    std::optional<DeckRenderer::Result> m_rendered;

    DeckRenderer m_renderer;
    std::jthread m_finder;
};

} // namespace klondike

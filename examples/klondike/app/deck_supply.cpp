// SPDX-License-Identifier: MIT
#include "examples/klondike/app/deck_supply.h"

#include <algorithm>
#include <exception>

namespace klondike
{

namespace
{

constexpr double kUsualAspect = 5.0 / 7.0;

} // namespace

DeckSupply::DeckSupply(const DeckPlaces& places, std::function<void()> wake)
    : m_wake(std::move(wake)), m_decks(FindDecks(places.assets, {}).decks), m_aspect(kUsualAspect),
      m_renderer(places.cache,
                 [this](const DeckRenderer::Result& result) {
                     {
                         const std::lock_guard lock(m_mutex);
                         m_rendered = result;
                     }
                     m_wake();
                 }),
      m_finder([this, places] { Find(places); })
{
}

void DeckSupply::Find(const DeckPlaces& places)
{
    DeckCatalog catalog;
    try {
        catalog = FindDecks(places.assets, places.folders);
    } catch (const std::exception& error) { // of memory, or of a disk: the thread must not end by it
        catalog.problems.emplace_back(error.what());
    }
    {
        const std::lock_guard lock(m_mutex);
        m_found = std::move(catalog);
    }
    m_wake();
}

const Deck* DeckSupply::Wanted() const
{
    const auto named =
        std::find_if(m_decks.begin(), m_decks.end(), [this](const Deck& deck) { return deck.name == m_name; });
    if (named != m_decks.end()) {
        return &*named;
    }
    // The named deck may be found yet.
    return (m_name.empty() || m_complete) && !m_decks.empty() ? &m_decks.front() : nullptr;
}

bool DeckSupply::Want(const std::string& name, CardSize room)
{
    if (name == m_name && room.width == m_room.width && room.height == m_room.height) {
        return false;
    }
    m_name = name;
    m_room = room;
    m_isWaiting = true;
    Request();
    return true;
}

void DeckSupply::Request()
{
    if (const Deck* const deck = Wanted()) {
        m_request = m_renderer.Request(*deck, m_room);
    }
}

DeckSupply::Delivery DeckSupply::Take()
{
    std::optional<DeckCatalog> found;
    std::optional<DeckRenderer::Result> rendered;
    {
        const std::lock_guard lock(m_mutex);
        found = std::exchange(m_found, std::nullopt);
        rendered = std::exchange(m_rendered, std::nullopt);
    }
    Delivery delivery;
    if (rendered && rendered->request == m_request) {
        m_isWaiting = false;
        delivery.problem = rendered->error;
        if (rendered->error.empty()) {
            m_aspect = rendered->aspect > 0.0 ? rendered->aspect : m_aspect;
            delivery.files = rendered->files;
        } else if (!m_decks.empty() && rendered->deck.name != m_decks.front().name) {
            m_name.clear(); // the game's own deck is better than none
            m_isWaiting = true;
            Request();
        }
    }
    if (found) {
        const bool wasWaiting = Wanted() == nullptr;
        m_complete = true;
        if (!found->decks.empty()) {
            m_decks = std::move(found->decks);
        }
        delivery.foundDecks = true;
        if (wasWaiting && m_room.width > 0) {
            Request();
        }
    }
    return delivery;
}

} // namespace klondike

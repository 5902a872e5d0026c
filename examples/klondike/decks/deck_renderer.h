// SPDX-License-Identifier: MIT
#pragma once

#include "examples/klondike/decks/deck_cache.h"

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

namespace klondike
{

/// Draws decks on a thread of its own, so that the game goes on with the pictures it has. One request at a time: a
/// newer one takes the place of an older one, which is then given up and never answered.
class DeckRenderer
{
public:
    /// The answer to a request: the files, or why there are none.
    struct Result {
        std::uint64_t request = 0; ///< what Request returned
        Deck deck;
        DeckFiles files;
        double aspect = 0.0; ///< width by height of a card as the deck has drawn it; 0 when that is not known
        std::string error;   ///< one line; empty when the files are there
    };

    /// The pictures go into the folder. The function is called on the renderer's thread, with nothing locked; it hands
    /// the answer over to the game's thread. An answer may be on its way while a newer request is made: the game takes
    /// the one whose number is that of its latest request.
    DeckRenderer(std::string folder, std::function<void(const Result&)> whenDone);
    /// Gives up what is being drawn and waits for the thread: at most the reading of one file or the drawing of one row
    /// of cards, some tenths of a second.
    ~DeckRenderer();
    DeckRenderer(const DeckRenderer&) = delete;
    DeckRenderer& operator=(const DeckRenderer&) = delete;

    /// Asks for a deck's pictures, in its own shape and as large as the room allows, pixels; returns at once. Requests
    /// are numbered from 1.
    std::uint64_t Request(const Deck& deck, CardSize room);

private:
    struct Task {
        std::uint64_t request;
        Deck deck;
        CardSize room;
        std::stop_source giveUp;
    };

    void Run(const std::stop_token& end);
    Result Render(const Task& task);
    double AspectOf(const Deck& deck);

    const std::string m_folder;
    const std::function<void(const Result&)> m_whenDone;
    std::mutex m_mutex;
    std::condition_variable_any m_asked;
    std::uint64_t m_requests = 0;
    std::optional<Task> m_next;
    std::stop_source m_current;              ///< of the task being drawn
    std::map<std::string, double> m_aspects; ///< of faces; of the renderer's thread alone
    std::jthread m_thread;
};

} // namespace klondike

// SPDX-License-Identifier: MIT
#include "examples/klondike/decks/deck_renderer.h"

#include <exception>
#include <utility>

namespace klondike
{

DeckRenderer::DeckRenderer(std::string folder, std::function<void(const Result&)> whenDone)
    : m_folder(std::move(folder)), m_whenDone(std::move(whenDone)),
      m_thread([this](const std::stop_token& end) { Run(end); })
{
}

DeckRenderer::~DeckRenderer()
{
    m_thread.request_stop();
    const std::lock_guard lock(m_mutex);
    m_current.request_stop();
}

std::uint64_t DeckRenderer::Request(const Deck& deck, CardSize room)
{
    std::uint64_t request = 0;
    {
        const std::lock_guard lock(m_mutex);
        m_current.request_stop();
        request = ++m_requests;
        m_next = Task{request, deck, room, std::stop_source()};
    }
    m_asked.notify_one();
    return request;
}

void DeckRenderer::Run(const std::stop_token& end)
{
    for (;;) {
        std::unique_lock lock(m_mutex);
        if (!m_asked.wait(lock, end, [this] { return m_next.has_value(); })) {
            return;
        }
        const Task task = *std::exchange(m_next, std::nullopt);
        m_current = task.giveUp;
        lock.unlock();
        if (end.stop_requested()) {
            return;
        }
        const Result result = Render(task);
        if (!task.giveUp.stop_requested() && !end.stop_requested()) {
            m_whenDone(result);
        }
    }
}

DeckRenderer::Result DeckRenderer::Render(const Task& task)
{
    Result result{task.request, task.deck, {}, 0.0, {}};
    try {
        result.aspect = AspectOf(task.deck);
        const CardSize size = FittedCard(task.room, result.aspect);
        result.files = Rendered(task.deck, size.width, size.height, m_folder, task.giveUp.get_token());
    } catch (const std::exception& error) { // also of memory or of a folder: the thread must not end by it
        result.error = error.what();
    }
    return result;
}

double DeckRenderer::AspectOf(const Deck& deck)
{
    const auto known = m_aspects.find(deck.faces);
    if (known != m_aspects.end()) {
        return known->second;
    }
    const std::optional<double> aspect = CardAspect(deck);
    if (aspect) {
        m_aspects.emplace(deck.faces, *aspect); // a file that cannot be read now may be mended later
    }
    return aspect.value_or(0.0);
}

} // namespace klondike

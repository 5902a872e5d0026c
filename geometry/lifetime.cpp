// SPDX-License-Identifier: MIT
#include "geometry/lifetime.h"

LifeRegistry::Serial LifeRegistry::Watch(const void* thing)
{
    if (thing == nullptr) {
        return 0;
    }
    const auto [entry, isNew] = m_watched.try_emplace(thing, m_lastSerial + 1);
    if (isNew) {
        ++m_lastSerial;
    }
    return entry->second;
}

bool LifeRegistry::Lives(const void* thing, Serial serial) const noexcept
{
    if (serial == 0) {
        return false;
    }
    const auto entry = m_watched.find(thing);
    return entry != m_watched.end() && entry->second == serial;
}

void LifeRegistry::Ended(const void* thing) noexcept
{
    m_watched.erase(thing);
    LifeListener* next = nullptr;
    for (LifeListener* listener = m_listeners; listener != nullptr; listener = next) {
        next = listener->m_next;
        listener->Ended(thing);
    }
}

void LifeRegistry::Add(LifeListener& listener) noexcept
{
    listener.m_prev = nullptr;
    listener.m_next = m_listeners;
    if (m_listeners != nullptr) {
        m_listeners->m_prev = &listener;
    }
    m_listeners = &listener;
}

void LifeRegistry::Remove(LifeListener& listener) noexcept
{
    (listener.m_prev != nullptr ? listener.m_prev->m_next : m_listeners) = listener.m_next;
    if (listener.m_next != nullptr) {
        listener.m_next->m_prev = listener.m_prev;
    }
    listener.m_next = nullptr;
    listener.m_prev = nullptr;
}

namespace
{

/// One registry a kind, never destroyed: objects of a game with static storage may die after the library's own.
template <typename Kind> LifeRegistry& TheRegistry()
{
    static LifeRegistry& registry = *new LifeRegistry;
    return registry;
}

} // namespace

LifeRegistry& PolygonLives()
{
    return TheRegistry<struct PolygonKind>();
}

LifeRegistry& ObjectLives()
{
    return TheRegistry<struct ObjectKind>();
}

LifeRegistry& MoveListLives()
{
    return TheRegistry<struct MoveListKind>();
}

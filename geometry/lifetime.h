// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <unordered_map>

/// Tells the holders of plain pointers that the thing pointed to has died, so that objects, polygons, scenes and move
/// lists may die in any order. There are two ways to know: a holder that looks rarely keeps a serial number and asks; a
/// holder that looks every frame is told.

/// Is told of deaths. It tells nobody of its own: whoever holds pointers to it takes them back before it goes.
class LifeListener
{
public:
    /// The thing at this address is about to die; it must not be used any more.
    virtual void Ended(const void* thing) noexcept = 0;

protected:
    LifeListener() = default;
    LifeListener(const LifeListener&) = default;
    LifeListener& operator=(const LifeListener&) = default;
    ~LifeListener() = default;

private:
    friend class LifeRegistry;
    LifeListener* m_next = nullptr;
    LifeListener* m_prev = nullptr;
};

/// What is known of the lives of one kind of thing.
class LifeRegistry
{
public:
    /// Distinguishes a thing from an earlier or later one at the same address; 0 is nobody's.
    using Serial = std::uint64_t;

    LifeRegistry() = default;
    LifeRegistry(const LifeRegistry&) = delete;
    LifeRegistry& operator=(const LifeRegistry&) = delete;

    /// The serial number of the thing that lives at this address now; 0 for null.
    Serial Watch(const void* thing);
    /// True while the thing that had this serial number lives.
    bool Lives(const void* thing, Serial serial) const noexcept;
    /// Called by the destructor of every thing of this kind.
    void Ended(const void* thing) noexcept;

    ///@{
    /// From now on the listener is told of every death of this kind. A listener is in one registry at most.
    void Add(LifeListener& listener) noexcept;
    void Remove(LifeListener& listener) noexcept;
    ///@}

private:
    std::unordered_map<const void*, Serial> m_watched;
    Serial m_lastSerial = 0;
    LifeListener* m_listeners = nullptr;
};

/// The registries of the process. They outlive every static object.
LifeRegistry& PolygonLives();
LifeRegistry& ObjectLives();
LifeRegistry& MoveListLives();

// SPDX-License-Identifier: MIT
#include "host/llist.h"

#include <cstdint>
#include <memory>
#include <new>
#include <unordered_map>
#include <utility>

namespace
{

/// Up to this many nodes a walk is as fast as a look into an index, and costs no memory.
constexpr long kMaxWalkedNodes = 16;

} // namespace

struct CLList::Node {
    void* data = nullptr;
    Node* prev = nullptr;
    Node* next = nullptr;
    Node* prevEqual = nullptr; ///< in an indexed list: the nearest node before this one with the same pointer
    Node* nextEqual = nullptr; ///< and the nearest one after it
    std::uint64_t number = 0;  ///< grows along the list
};

/// Finds the first node of a pointer: the nodes of equal pointers are chained in list order.
struct CLList::Index {
    struct Chain {
        Node* first = nullptr;
        Node* last = nullptr;

        void Insert(Node* node, Node* after)
        {
            Node* const before = after == nullptr ? first : after->nextEqual;
            node->prevEqual = after;
            node->nextEqual = before;
            (after == nullptr ? first : after->nextEqual) = node;
            (before == nullptr ? last : before->prevEqual) = node;
        }

        void Remove(const Node* node)
        {
            (node->prevEqual == nullptr ? first : node->prevEqual->nextEqual) = node->nextEqual;
            (node->nextEqual == nullptr ? last : node->nextEqual->prevEqual) = node->prevEqual;
        }
    };

    std::unordered_map<void*, Chain> chains;
    Chain nulls; ///< apart from the others: a node comes to it without an allocation

    Node* First(void* data) const
    {
        if (data == nullptr) {
            return nulls.first;
        }
        const auto found = chains.find(data);
        return found == chains.end() ? nullptr : found->second.first;
    }

    /// The node stands behind all others. Throws std::bad_alloc and then changes nothing.
    void Append(Node* node)
    {
        Chain& chain = node->data == nullptr ? nulls : chains[node->data];
        chain.Insert(node, chain.last);
    }

    void Remove(const Node* node)
    {
        if (node->data == nullptr) {
            nulls.Remove(node);
            return;
        }
        const auto found = chains.find(node->data);
        found->second.Remove(node);
        if (found->second.first == nullptr) {
            chains.erase(found);
        }
    }

    /// Lets the node, wherever in the list it stands, hold null from now on. Quick for walks forwards and backwards.
    void MakeNull(Node* node)
    {
        Remove(node);
        node->data = nullptr;
        Node* after = nulls.last;
        if (nulls.first != nullptr && node->number < nulls.first->number) {
            after = nullptr;
        }
        while (after != nullptr && after->number > node->number) {
            after = after->prevEqual;
        }
        nulls.Insert(node, after);
    }
};

CLList::CLList(const CLList& other) : CLList()
{
    Node* cursor = nullptr;
    Node* gapNext = nullptr;
    Node* gapPrev = nullptr;
    for (const Node* node = other.m_first; node != nullptr; node = node->next) {
        Append(node->data);
        if (node == other.m_cursor) {
            cursor = m_last;
        }
        if (node == other.m_gapNext) {
            gapNext = m_last;
        }
        if (node == other.m_gapPrev) {
            gapPrev = m_last;
        }
    }
    m_cursor = cursor;
    m_gapNext = gapNext;
    m_gapPrev = gapPrev;
    m_inGap = other.m_inGap;
}

CLList& CLList::operator=(const CLList& other)
{
    CLList copy(other);
    std::swap(m_first, copy.m_first);
    std::swap(m_last, copy.m_last);
    std::swap(m_cursor, copy.m_cursor);
    std::swap(m_gapNext, copy.m_gapNext);
    std::swap(m_gapPrev, copy.m_gapPrev);
    std::swap(m_index, copy.m_index);
    std::swap(m_count, copy.m_count);
    std::swap(m_inGap, copy.m_inGap);
    return *this;
}

CLList::~CLList()
{
    KillAll();
}

void CLList::First()
{
    PutCursor(m_first);
}

void CLList::Last()
{
    PutCursor(m_last);
}

void CLList::Next()
{
    if (m_inGap) {
        PutCursor(m_gapNext);
    } else if (m_cursor != nullptr) {
        PutCursor(m_cursor->next);
    }
}

void CLList::Prev()
{
    if (m_inGap) {
        PutCursor(m_gapPrev);
    } else if (m_cursor != nullptr) {
        PutCursor(m_cursor->prev);
    }
}

short CLList::Exists() const
{
    return m_cursor != nullptr ? 1 : 0;
}

void* CLList::Get() const
{
    return m_cursor != nullptr ? m_cursor->data : nullptr;
}

bool CLList::IsLast() const
{
    return m_cursor != nullptr && m_cursor == m_last;
}

short CLList::InsertLast(void* data, long /*reserved*/)
{
    Append(data);
    return 1;
}

short CLList::IfNotInsertLast(void* data)
{
    if (Find(data) != nullptr) {
        return 0;
    }
    Append(data);
    return 1;
}

short CLList::Delete(long keepData)
{
    if (m_cursor == nullptr) {
        return 0;
    }
    void* const data = m_cursor->data;
    Unlink(m_cursor);
    if (keepData == 0) {
        ::operator delete(data);
    }
    return 1;
}

short CLList::DeleteItem(void* data)
{
    Node* const node = Find(data);
    if (node == nullptr) {
        return 0;
    }
    Unlink(node);
    return 1;
}

void CLList::DeleteData()
{
    if (m_cursor == nullptr) {
        return;
    }
    void* const data = m_cursor->data;
    if (m_index != nullptr) {
        m_index->MakeNull(m_cursor);
    } else {
        m_cursor->data = nullptr;
    }
    ::operator delete(data);
}

void CLList::KillAll()
{
    for (Node* node = m_first; node != nullptr;) {
        delete std::exchange(node, node->next);
    }
    delete m_index;
    m_index = nullptr;
    m_first = nullptr;
    m_last = nullptr;
    m_count = 0;
    PutCursor(nullptr);
}

void CLList::KillAllData()
{
    for (const Node* node = m_first; node != nullptr; node = node->next) {
        if (Find(node->data) == node) {
            ::operator delete(node->data);
        }
    }
    KillAll();
}

long CLList::GetNumNodes() const
{
    return m_count;
}

void CLList::PutCursor(Node* node)
{
    m_cursor = node;
    m_gapNext = nullptr;
    m_gapPrev = nullptr;
    m_inGap = false;
}

void CLList::Append(void* data)
{
    auto node = std::make_unique<Node>();
    node->data = data;
    node->prev = m_last;
    node->number = m_last == nullptr ? 0 : m_last->number + 1;
    if (m_index == nullptr && m_count >= kMaxWalkedNodes) {
        MakeIndex();
    }
    if (m_index != nullptr) {
        m_index->Append(node.get());
    }

    Node* const linked = node.release();
    (m_last == nullptr ? m_first : m_last->next) = linked;
    m_last = linked;
    ++m_count;
    if (m_inGap && m_gapNext == nullptr) {
        m_gapNext = linked;
    }
}

void CLList::Unlink(Node* node)
{
    if (m_index != nullptr) {
        m_index->Remove(node);
    }
    (node->prev == nullptr ? m_first : node->prev->next) = node->next;
    (node->next == nullptr ? m_last : node->next->prev) = node->prev;
    --m_count;

    if (node == m_cursor) {
        m_cursor = nullptr;
        m_gapNext = node->next;
        m_gapPrev = node->prev;
        m_inGap = true;
    } else {
        if (node == m_gapNext) {
            m_gapNext = node->next;
        }
        if (node == m_gapPrev) {
            m_gapPrev = node->prev;
        }
    }
    delete node;

    if (m_count == 0) {
        delete m_index;
        m_index = nullptr;
    }
}

CLList::Node* CLList::Find(void* data) const
{
    if (m_index != nullptr) {
        return m_index->First(data);
    }
    Node* node = m_first;
    while (node != nullptr && node->data != data) {
        node = node->next;
    }
    return node;
}

void CLList::MakeIndex()
{
    auto index = std::make_unique<Index>();
    for (Node* node = m_first; node != nullptr; node = node->next) {
        index->Append(node);
    }
    m_index = index.release();
}

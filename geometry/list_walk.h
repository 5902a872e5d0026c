// SPDX-License-Identifier: MIT
#pragma once

#include "host/llist.h"

/// A walk over a host list in list order, each pointer with its type: the one place where the untyped pointers are
/// cast. It uses the list's cursor, so no other walk over the same list may start within it. The node under the cursor
/// may be removed with Delete(1) during the walk, which then goes on with the node that followed.
template <typename T> class TypedWalk
{
public:
    explicit TypedWalk(CLList& list) : m_list(&list) {}

    struct End {
    };
    class Iterator
    {
    public:
        explicit Iterator(CLList* list) : m_list(list) {}
        T* operator*() const { return static_cast<T*>(m_list->Get()); }
        Iterator& operator++()
        {
            m_list->Next();
            return *this;
        }
        bool operator!=(End) const { return m_list->Exists() != 0; }

    private:
        CLList* m_list;
    };

    Iterator begin() const
    {
        m_list->First();
        return Iterator(m_list);
    }
    End end() const { return {}; }

private:
    CLList* m_list;
};

/// The pointer under the list's cursor with its type; null when the cursor is on no node.
template <typename T> T* UnderCursor(const CLList& list)
{
    return static_cast<T*>(list.Get());
}

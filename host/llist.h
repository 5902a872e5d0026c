// SPDX-License-Identifier: MIT
#pragma once

#include "host/export.h"

/// A list of untyped pointers with one cursor. The list owns its nodes, never the data, which it frees only where an
/// operation says so. A record of all zero bytes is an empty list, and an empty list holds no memory.
///
/// The cursor stands on a node, in the gap left by a removed node, or on no node. Insertions leave it where it is.
/// First, Last, Next, Prev, Get, Delete and the insertions take constant time; DeleteItem and IfNotInsertLast do too,
/// on average: a list of more than a few nodes keeps an index of its pointers. Not for several threads at once.
class ORVANE_API CLList
{
public:
    CLList() = default;
    ///@{
    /// Nodes of its own for the same pointers, in the same order; the cursor at the same place.
    CLList(const CLList& other);
    CLList& operator=(const CLList& other);
    ///@}
    /// Frees the nodes; the data stay alive.
    ~CLList();

    /// Puts the cursor on the first node, or on no node when the list is empty.
    void First();
    /// Puts the cursor on the last node, or on no node when the list is empty.
    void Last();
    /// One node on; past the last node the cursor is on no node and stays there. From the gap of a removed node it goes
    /// to the node that followed.
    void Next();
    /// One node back; before the first node the cursor is on no node and stays there. From the gap of a removed node it
    /// goes to the node before.
    void Prev();
    /// 1 when the cursor is on a node, else 0.
    short Exists() const;
    /// The pointer under the cursor; null when it is on no node.
    void* Get() const;
    /// True when the cursor is on the last node.
    bool IsLast() const;

    /// Appends a pointer, present or not; the second argument is kept for callers that pass one and has no effect.
    /// Returns 1. Throws std::bad_alloc and then changes nothing.
    short InsertLast(void* data, long reserved);
    /// Appends a pointer that is not in the list yet. Returns 1 for inserted, 0 for present.
    short IfNotInsertLast(void* data);
    /// Unlinks the node under the cursor and leaves the cursor in its gap. With keepData 0 the data are freed as by
    /// DeleteData. Returns 1 for removed, 0 when the cursor was on no node.
    short Delete(long keepData);
    /// Unlinks the first node that holds the pointer; the data are left alone. Returns 1 for removed, 0 for absent.
    short DeleteItem(void* data);
    /// Frees the memory of the data under the cursor (operator delete, no destructor runs); the node stays, with null.
    void DeleteData();
    /// Unlinks every node; the data are left alone.
    void KillAll();
    /// Frees the memory of every pointer (operator delete, no destructor runs) and unlinks every node. A pointer that
    /// is in the list twice is freed once.
    void KillAllData();
    /// The number of nodes.
    long GetNumNodes() const;

private:
    struct Node;
    struct Index;

    void PutCursor(Node* node);
    void Append(void* data);
    void Unlink(Node* node);
    Node* Find(void* data) const;
    void MakeIndex();

    Node* m_first = nullptr;
    Node* m_last = nullptr;
    Node* m_cursor = nullptr;  ///< the node under the cursor
    Node* m_gapNext = nullptr; ///< while m_inGap: the node after the gap
    Node* m_gapPrev = nullptr; ///< while m_inGap: the node before the gap
    Index* m_index = nullptr;  ///< made when the list grows past a few nodes
    long m_count = 0;
    bool m_inGap = false;
};

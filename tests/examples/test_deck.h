// SPDX-License-Identifier: MIT
#pragma once

#include "examples/deal/deck_files.h"

#include <filesystem>
#include <string>

/// A folder of the test's own with a small plain deck in it, removed at the end.
class TestDeck
{
public:
    static constexpr int kCellWidth = 30;
    static constexpr int kCellHeight = 42;

    TestDeck();
    ~TestDeck();
    TestDeck(const TestDeck&) = delete;
    TestDeck& operator=(const TestDeck&) = delete;

    /// 13 x 4 cards, each of another colour; a back.
    deal::DeckFiles Files() const;
    std::string Path(const std::string& name) const { return (m_folder / name).string(); }

private:
    std::filesystem::path m_folder;
};

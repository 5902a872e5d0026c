// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// Small picture files that a run loads again and again, removed when the program ends: a sheet of two rows of three
/// cards of 6 x 8 pixels, a back, one that is damaged, and the name of one that does not exist.
class SheetFiles
{
public:
    static constexpr int kCardWidth = 6;
    static constexpr int kCardHeight = 8;
    static constexpr int kColumns = 3;
    static constexpr int kRows = 2;

    SheetFiles();
    ~SheetFiles();
    SheetFiles(const SheetFiles&) = delete;
    SheetFiles& operator=(const SheetFiles&) = delete;

    const std::string& Folder() const { return m_folder; }

private:
    std::string m_folder;

public:
    const std::string sheet = m_folder + "/sheet.png";
    const std::string back = m_folder + "/back.png";
    const std::string damaged = m_folder + "/damaged.png";
    const std::string missing = m_folder + "/missing.png";
};

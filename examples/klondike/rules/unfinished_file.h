// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string_view>

namespace klondike
{

/// A file on its way to its place: written beside it under a name that no other program or thread has, and put there at
/// once with Publish. Not published, it goes.
class UnfinishedFile
{
public:
    /// Makes the file, empty. Throws std::system_error.
    explicit UnfinishedFile(const std::filesystem::path& place);
    ~UnfinishedFile();
    UnfinishedFile(const UnfinishedFile&) = delete;
    UnfinishedFile& operator=(const UnfinishedFile&) = delete;

    /// Adds the text and waits until the disk has it. Throws std::system_error.
    void Write(std::string_view text);
    /// Puts the file in its place, over an earlier one. Nothing can be written any more. Throws std::system_error.
    void Publish();

private:
    void Close();

    std::filesystem::path m_place;
    std::filesystem::path m_name;
    int m_descriptor;
};

/// Removes what programs that died have left unfinished on the way to that place.
void RemoveLeftovers(const std::filesystem::path& place);

} // namespace klondike

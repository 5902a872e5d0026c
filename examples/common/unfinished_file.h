// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <filesystem>
#include <string_view>

namespace common
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

    /// Adds the bytes. Throws std::system_error.
    void Write(std::string_view bytes);
    /// Waits until the disk has all of it, and puts it in its place, over an earlier file. Nothing can be written any
    /// more. Throws std::system_error.
    void Publish();

private:
    void Close();

    std::filesystem::path m_place;
    std::filesystem::path m_name;
    int m_descriptor;
};

/// True for a name as an unfinished file has.
bool IsUnfinished(const std::filesystem::path& file);
/// Nobody writes so long: an older unfinished file is that of a program that died.
inline constexpr std::chrono::hours kLongestWriting{1};

/// Removes what programs that died have left unfinished on the way to that place.
void RemoveLeftovers(const std::filesystem::path& place);

} // namespace common

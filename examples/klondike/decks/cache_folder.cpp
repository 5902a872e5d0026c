// SPDX-License-Identifier: MIT
#include "examples/klondike/decks/cache_folder.h"

#include "examples/common/unfinished_file.h"
#include "examples/klondike/decks/deck_cache.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cstdint>
#include <string_view>
#include <vector>

namespace klondike
{

namespace
{

namespace fs = std::filesystem;

/// Counts up when decks are drawn differently: the pictures of an earlier program are then drawn anew.
constexpr int kDrawing = 1;

constexpr std::string_view kPrefix = "deck-";
constexpr std::size_t kKeyDigits = 16;

/// The 64-bit FNV-1a hash.
std::uint64_t Hash(std::string_view text)
{
    std::uint64_t hash = 0xCBF29CE484222325U;
    for (const char byte : text) {
        hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001B3U;
    }
    return hash;
}

/// A file's path, time and length. Throws DeckError when it is missing.
std::string Stamp(const std::string& file)
{
    std::error_code error;
    const auto time = fs::last_write_time(file, error);
    const std::uintmax_t length = error ? 0 : fs::file_size(file, error);
    if (error) {
        throw DeckError("cannot read '" + file + "': " + error.message());
    }
    const auto ticks = static_cast<long long>(time.time_since_epoch().count());
    return fs::absolute(file, error).string() + '\n' + std::to_string(ticks) + '\n' + std::to_string(length) + '\n';
}

std::string KeyOf(const Deck& deck)
{
    std::string text = std::to_string(kDrawing) + ' ' + std::to_string(static_cast<int>(deck.kind)) + ' ' +
                       std::to_string(deck.columns) + ' ' + std::to_string(deck.rows) + '\n' + Stamp(deck.faces);
    if (!deck.back.empty()) {
        text += Stamp(deck.back);
    }
    std::array<char, kKeyDigits> digits{};
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), Hash(text), 16);
    const std::string hash(digits.data(), error == std::errc() ? end : digits.data());
    return std::string(digits.size() - hash.size(), '0') + hash;
}

/// A file of the cache's own.
struct Entry {
    fs::path path;
    fs::file_time_type time;
    std::uintmax_t length = 0;
};

/// True for names as CacheFolderFiles gives them, whole or unfinished.
bool IsOurs(const fs::path& file)
{
    const std::string name = file.filename().string();
    const std::string_view key = std::string_view(name).substr(0, kPrefix.size() + kKeyDigits);
    return key.size() < name.size() && name[key.size()] == '-' && key.starts_with(kPrefix) &&
           key.find_first_not_of("0123456789abcdef", kPrefix.size()) == std::string_view::npos &&
           (file.extension() == ".png" || common::IsUnfinished(file));
}

std::vector<Entry> EntriesOf(const fs::path& folder)
{
    std::vector<Entry> entries;
    std::error_code error;
    for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
        std::error_code gone; // by another program
        const Entry entry{at->path(), at->last_write_time(gone), at->file_size(gone)};
        if (!gone && IsOurs(entry.path)) {
            entries.push_back(entry);
        }
    }
    return entries;
}

} // namespace

CacheFolderFiles::CacheFolderFiles(const fs::path& folder, const Deck& deck, CardSize size)
{
    const std::string name =
        std::string(kPrefix) + KeyOf(deck) + "-" + std::to_string(size.width) + "x" + std::to_string(size.height);
    sheet = folder / (name + "-faces.png");
    back = folder / (name + "-back.png");
}

void MarkUsed(const CacheFolderFiles& files)
{
    for (const fs::path& file : {files.sheet, files.back}) {
        std::error_code ignored; // a folder that is only to be read
        fs::last_write_time(file, fs::file_time_type::clock::now(), ignored);
    }
}

void TrimCache(const CacheFolderFiles& files)
{
    std::vector<Entry> entries = EntriesOf(files.sheet.parent_path());
    std::sort(entries.begin(), entries.end(), [](const Entry& a, const Entry& b) { return a.time < b.time; });
    std::uintmax_t total = 0;
    for (const Entry& entry : entries) {
        total += entry.length;
    }
    const auto now = fs::file_time_type::clock::now();
    for (const Entry& entry : entries) {
        const bool isKept = entry.path == files.sheet || entry.path == files.back;
        const bool goes = common::IsUnfinished(entry.path) ? now - entry.time > common::kLongestWriting
                                                           : !isKept && total > kCacheLimit;
        std::error_code ignored;
        if (goes && fs::remove(entry.path, ignored)) {
            total -= entry.length;
        }
    }
}

} // namespace klondike

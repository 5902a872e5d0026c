// SPDX-License-Identifier: MIT
#include "examples/klondike/rules/save_file.h"

#include "examples/common/unfinished_file.h"
#include "examples/klondike/rules/save.h"

#include <fstream>
#include <stdexcept>
#include <system_error>

namespace klondike
{

namespace
{

namespace fs = std::filesystem;

[[noreturn]] void Fail(const fs::path& path, const std::string& what, const std::error_code& why)
{
    throw std::runtime_error(path.string() + " " + what + ": " + why.message());
}

/// The first name of the form FILE.damaged, FILE.damaged-2 that is free.
fs::path NameForDamaged(const fs::path& path)
{
    fs::path name = path;
    name += ".damaged";
    std::error_code ignored;
    for (int number = 2; fs::exists(fs::symlink_status(name, ignored)); ++number) {
        name = path;
        name += ".damaged-" + std::to_string(number);
    }
    return name;
}

/// Returns what became of the file, to follow what is wrong with it.
std::string SetAside(const fs::path& path)
{
    const fs::path name = NameForDamaged(path);
    std::error_code error;
    fs::rename(path, name, error);
    return error ? " (it could not be renamed: " + error.message() + ")"
                 : "; it is kept as " + name.filename().string();
}

} // namespace

void SaveAtomically(const fs::path& path, std::string_view text)
{
    const fs::path folder = path.has_parent_path() ? path.parent_path() : fs::path(".");
    std::error_code error;
    fs::create_directories(folder, error);
    if (error) {
        Fail(folder, "cannot be made", error);
    }
    try {
        common::UnfinishedFile file(path);
        file.Write(text);
        file.Publish();
    } catch (const std::system_error& failure) {
        Fail(path, "cannot be written", failure.code());
    }
    common::RemoveLeftovers(path);
}

std::optional<std::string> ReadText(const fs::path& path, std::size_t limit)
{
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (status.type() == fs::file_type::not_found) {
        return std::nullopt;
    }
    if (status.type() != fs::file_type::regular) {
        Fail(path, "cannot be read", error ? error : std::make_error_code(std::errc::not_supported));
    }
    std::ifstream file(path, std::ios::binary);
    std::string text(limit, '\0');
    file.read(text.data(), static_cast<std::streamsize>(limit));
    if (file.bad() || !file.is_open()) {
        Fail(path, "cannot be read", std::make_error_code(std::errc::io_error));
    }
    text.resize(static_cast<std::size_t>(file.gcount()));
    return text;
}

LoadedGame LoadOrSetAside(const fs::path& path)
{
    std::optional<std::string> text;
    try {
        text = ReadText(path, kMostSaveSize + 1);
    } catch (const std::runtime_error& error) {
        return {std::nullopt, error.what()};
    }
    if (!text) {
        return {};
    }
    try {
        return {FromText(*text), ""};
    } catch (const std::runtime_error& error) {
        return {std::nullopt, error.what() + SetAside(path)};
    }
}

} // namespace klondike

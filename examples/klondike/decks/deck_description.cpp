// SPDX-License-Identifier: MIT
#include "examples/klondike/decks/deck_description.h"

#include <fstream>
#include <sstream>
#include <string_view>

namespace klondike
{

namespace
{

constexpr std::size_t kLongest = std::size_t{1} << 16;

std::string_view Trimmed(std::string_view text)
{
    constexpr std::string_view kBlanks = " \t\r\f\v";
    const std::size_t first = text.find_first_not_of(kBlanks);
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
}

std::string Beginning(const std::string& file)
{
    std::ifstream in(file, std::ios::binary);
    std::string text(kLongest, '\0');
    in.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(in.gcount()));
    return text;
}

} // namespace

std::map<std::string, std::string> ReadDescription(const std::string& file, char separator)
{
    std::map<std::string, std::string> values;
    std::istringstream lines(Beginning(file));
    for (std::string line; std::getline(lines, line);) {
        const std::string_view trimmed = Trimmed(line);
        if (trimmed.empty() || trimmed[0] == '#' || trimmed[0] == '[') {
            continue;
        }
        const std::size_t end = trimmed.find(separator);
        const bool hasValue = end != std::string_view::npos;
        values[std::string(Trimmed(trimmed.substr(0, end)))] = hasValue ? Trimmed(trimmed.substr(end + 1)) : "";
    }
    return values;
}

} // namespace klondike

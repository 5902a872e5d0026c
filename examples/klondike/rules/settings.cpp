// SPDX-License-Identifier: MIT
#include "examples/klondike/rules/settings.h"

#include "examples/klondike/rules/save_file.h"
#include "examples/klondike/rules/value_text.h"

#include <algorithm>
#include <stdexcept>

namespace klondike
{

namespace
{

constexpr std::size_t kMostFileSize = 65536;
constexpr std::size_t kMostNameSize = 64;

/// The keys, in the order of the file.
template <typename AnySettings, typename Use> void ForEachKey(AnySettings& settings, const Use& use)
{
    use("draw-three", settings.game.drawThree);
    use("redeals", settings.game.redeals);
    use("scoring", settings.game.scoring);
    use("speed", settings.speed);
    use("reduced-motion", settings.reducedMotion);
    use("left-handed", settings.leftHanded);
    use("auto-move", settings.autoMove);
    use("full-screen", settings.fullScreen);
    use("deck", settings.deckName);
}

/// Writes lines; a value that would not be read again is left out.
struct Writer {
    std::string& text;

    void Add(std::string_view key, std::string_view value) const { text.append(key).append("=").append(value) += '\n'; }

    void operator()(std::string_view key, bool value) const { Add(key, value ? "yes" : "no"); }
    void operator()(std::string_view key, int value) const { Add(key, std::to_string(value)); }
    void operator()(std::string_view key, Scoring value) const { Add(key, ScoringText(value)); }
    void operator()(std::string_view key, const std::optional<std::uint32_t>& value) const
    {
        Add(key, RedealsText(value));
    }
    void operator()(std::string_view key, const std::string& value) const
    {
        if (IsDeckName(value)) {
            Add(key, value);
        }
    }
};

/// Takes one line's value into the field with its key, if it can be read.
struct Reader {
    std::string_view key;
    std::string_view text;

    void operator()(std::string_view field, bool& value) const
    {
        if (key == field && (text == "yes" || text == "no")) {
            value = text == "yes";
        }
    }
    void operator()(std::string_view field, int& value) const
    {
        const auto speed = NumberFromText<int>(text);
        if (key == field && speed && *speed >= kInstantSpeed && *speed <= kFastestSpeed) {
            value = *speed;
        }
    }
    void operator()(std::string_view field, Scoring& value) const
    {
        if (key == field) {
            ReadScoring(text, value);
        }
    }
    void operator()(std::string_view field, std::optional<std::uint32_t>& value) const
    {
        if (key == field) {
            ReadRedeals(text, value);
        }
    }
    void operator()(std::string_view field, std::string& value) const
    {
        if (key == field && IsDeckName(text)) {
            value = text;
        }
    }
};

} // namespace

bool IsDeckName(std::string_view name)
{
    return !name.empty() && name.size() <= kMostNameSize && name.front() != '.' &&
           std::none_of(name.begin(), name.end(), [](char c) {
               const auto byte = static_cast<unsigned char>(c);
               return byte < 0x20 || byte == 0x7F || c == '/' || c == '\\' || c == ':';
           });
}

std::string SettingsToText(const Settings& settings)
{
    std::string text;
    ForEachKey(settings, Writer{text});
    return text;
}

Settings SettingsFromText(std::string_view text)
{
    Settings settings;
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(line.size() + 1, text.size()));
        const std::size_t equals = line.find('=');
        if (equals != std::string_view::npos) {
            ForEachKey(settings, Reader{line.substr(0, equals), line.substr(equals + 1)});
        }
    }
    return settings;
}

Settings LoadSettings(const std::filesystem::path& path)
{
    try {
        return SettingsFromText(ReadText(path, kMostFileSize).value_or(""));
    } catch (const std::runtime_error&) {
        return {};
    }
}

void SaveSettings(const std::filesystem::path& path, const Settings& settings)
{
    SaveAtomically(path, SettingsToText(settings));
}

} // namespace klondike

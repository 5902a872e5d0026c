// SPDX-License-Identifier: MIT
#include "examples/klondike/decks/deck_catalog.h"

#include "examples/klondike/decks/deck_description.h"
#include "examples/klondike/decks/deck_error.h"
#include "examples/klondike/decks/drawing_file.h"
#include "examples/klondike/decks/environment.h"
#include "examples/klondike/decks/sheet_grid.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <set>
#include <sstream>

namespace klondike
{

namespace
{

namespace fs = std::filesystem;

constexpr const char* kDesktopFile = "index.desktop";

/// A file's name as one reads it: "old_french.svgz" is "Old french".
std::string NameFrom(const fs::path& file)
{
    std::string name = file.stem().string();
    std::replace(name.begin(), name.end(), '_', ' ');
    if (!name.empty() && name[0] >= 'a' && name[0] <= 'z') {
        name[0] = static_cast<char>(name[0] - 'a' + 'A');
    }
    return name;
}

/// A side of a grid. Throws DeckError.
int GridSide(const std::string& text, const fs::path& file)
{
    constexpr int kMost = 1000;
    int side = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), side);
    if (error != std::errc() || end != text.data() + text.size() || side < 1 || side > kMost) {
        throw DeckError("'" + file.string() + "': '" + text + "' is no number of cells");
    }
    return side;
}

Deck SheetFrom(const fs::path& description)
{
    Deck deck;
    deck.name = NameFrom(description);
    deck.faces = fs::path(description).replace_extension(".png").string();
    for (const auto& [key, value] : ReadDescription(description.string(), ' ')) {
        if (key == "name" && !value.empty()) {
            deck.name = value;
        } else if (key == "back" && !value.empty()) {
            deck.back = (description.parent_path() / value).string();
        } else if (key == "columns") {
            deck.columns = GridSide(value, description);
        } else if (key == "rows") {
            deck.rows = GridSide(value, description);
        } else {
            throw DeckError("'" + description.string() + "' has an unknown line '" + key + "'");
        }
    }
    CellSize(deck);
    return deck;
}

DrawingFile RequireDrawing(const fs::path& file)
{
    if (!fs::is_regular_file(file)) {
        throw DeckError("'" + file.string() + "' is missing");
    }
    DrawingFile drawing = ReadDrawing(file.string());
    if (!drawing.problem.empty()) {
        throw DeckError("'" + file.string() + "' " + drawing.problem);
    }
    return drawing;
}

Deck DrawingFrom(const fs::path& file)
{
    Deck deck;
    deck.name = NameFrom(file);
    deck.kind = RequireDrawing(file).hasElements ? Deck::Kind::SvgElements : Deck::Kind::SvgGrid;
    deck.faces = file.string();
    return deck;
}

Deck DescribedDrawingFrom(const fs::path& desktop)
{
    std::map<std::string, std::string> values = ReadDescription(desktop.string(), '=');
    const fs::path drawing = values["SVG"];
    if (drawing.empty() || drawing.has_parent_path()) {
        throw DeckError("'" + desktop.string() + "' names no drawing beside it");
    }
    Deck deck = DrawingFrom(desktop.parent_path() / drawing);
    if (deck.kind != Deck::Kind::SvgElements) {
        throw DeckError("'" + deck.faces + "' lacks the element of a card or of the back");
    }
    if (!values["Name"].empty()) {
        deck.name = values["Name"];
    }
    return deck;
}

/// The deck that a file stands for, if it does. Throws DeckError.
std::optional<Deck> DeckFrom(const fs::path& file)
{
    const std::string extension = file.extension().string();
    if (file.filename() == kDesktopFile) {
        return DescribedDrawingFrom(file);
    }
    if (extension == ".deck") {
        return SheetFrom(file);
    }
    // The drawing of a described deck is that deck.
    if ((extension == ".svg" || extension == ".svgz") && !fs::exists(file.parent_path() / kDesktopFile)) {
        return DrawingFrom(file);
    }
    return std::nullopt;
}

/// The regular files of a folder and of the folders in it; those that may not be looked at count as missing.
std::vector<fs::path> FilesIn(const fs::path& folder, bool isTop = true)
{
    std::vector<fs::path> files;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        std::error_code ignored;
        if (entry->is_regular_file(ignored)) {
            files.push_back(entry->path());
        } else if (isTop && entry->is_directory(ignored)) {
            const std::vector<fs::path> inner = FilesIn(entry->path(), false);
            files.insert(files.end(), inner.begin(), inner.end());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

class CatalogBuilder
{
public:
    /// Adds what the function makes, if anything, or why it threw.
    template <typename Make> void Add(const Make& make)
    {
        try {
            if (std::optional<Deck> deck = make()) {
                m_found.push_back(std::move(*deck));
            }
        } catch (const DeckError& error) {
            m_catalog.problems.emplace_back(error.what());
        } catch (const fs::filesystem_error& error) {
            m_catalog.problems.emplace_back(DeckError(error.what()).what());
        }
    }

    /// The decks added since the last call go into the catalog by their names.
    void EndFolder()
    {
        std::stable_sort(m_found.begin(), m_found.end(), [](const Deck& a, const Deck& b) { return a.name < b.name; });
        for (Deck& deck : m_found) {
            deck.name = UniqueName(deck.name);
            m_catalog.decks.push_back(std::move(deck));
        }
        m_found.clear();
    }

    DeckCatalog Take() { return std::move(m_catalog); }

private:
    std::string UniqueName(const std::string& name)
    {
        std::string unique = name;
        for (int number = 2; !m_names.insert(unique).second; ++number) {
            unique = name + " " + std::to_string(number);
        }
        return unique;
    }

    DeckCatalog m_catalog;
    std::vector<Deck> m_found;
    std::set<std::string> m_names;
};

Deck OwnDeck(const fs::path& assets)
{
    Deck deck;
    deck.name = "Cardtable";
    deck.faces = (assets / "deck.png").string();
    deck.back = (assets / "back.png").string();
    CellSize(deck);
    return deck;
}

/// True when one of the folders is the same one, perhaps written otherwise.
bool Holds(const std::vector<std::string>& folders, const fs::path& folder)
{
    return std::any_of(folders.begin(), folders.end(), [&](const std::string& other) {
        std::error_code ignored;
        return fs::equivalent(other, folder, ignored);
    });
}

} // namespace

std::vector<std::string> DeckFolders(const std::string& own)
{
    std::vector<fs::path> folders{own};
    std::istringstream shared(EnvironmentVariable("XDG_DATA_DIRS", "/usr/local/share:/usr/share"));
    for (std::string folder; std::getline(shared, folder, ':');) {
        folders.push_back(fs::path(folder) / "aisleriot" / "cards"); // of gnome-cards-data
        folders.push_back(fs::path(folder) / "carddecks");           // of kdegames-card-data
    }
    std::vector<std::string> present;
    for (const fs::path& folder : folders) {
        std::error_code ignored;
        if (fs::is_directory(folder, ignored) && !Holds(present, folder)) {
            present.push_back(folder.string());
        }
    }
    return present;
}

DeckCatalog FindDecks(const std::string& assets, const std::vector<std::string>& folders)
{
    CatalogBuilder catalog;
    catalog.Add([&] { return std::optional(OwnDeck(assets)); });
    catalog.EndFolder();
    for (const std::string& folder : folders) {
        for (const fs::path& file : FilesIn(folder)) {
            catalog.Add([&] { return DeckFrom(file); });
        }
        catalog.EndFolder();
    }
    return catalog.Take();
}

} // namespace klondike

// SPDX-License-Identifier: MIT
#include "examples/klondike/labels/fonts.h"

#include "examples/klondike/decks/environment.h"

#include <filesystem>
#include <vector>

namespace klondike
{

namespace
{

namespace fs = std::filesystem;

std::vector<fs::path> FontFolders()
{
    std::vector<fs::path> folders;
    if (const std::string home = EnvironmentVariable("HOME"); !home.empty()) {
        folders.push_back(fs::path(home) / ".local/share/fonts");
    }
    for (const char* root : {"/usr/local/share/fonts", "/usr/share/fonts"}) {
        for (const char* folder : {"truetype/dejavu", "dejavu-sans-fonts", "dejavu", "TTF", ""}) {
            folders.push_back(fs::path(root) / folder);
        }
    }
    return folders;
}

std::string Find(const char* name)
{
    for (const fs::path& folder : FontFolders()) {
        std::error_code ignored;
        if (fs::is_regular_file(folder / name, ignored)) {
            return (folder / name).string();
        }
    }
    return {};
}

} // namespace

FontFiles FindFonts(const char* variable)
{
    const std::string chosen = EnvironmentVariable(variable);
    return chosen.empty() ? FontFiles{Find("DejaVuSans.ttf"), Find("DejaVuSans-Bold.ttf")} : FontFiles{chosen, {}};
}

} // namespace klondike

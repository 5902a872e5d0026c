// SPDX-License-Identifier: MIT
#pragma once

#include "examples/deal/deck_files.h"

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

namespace deal
{

/// What the command line asks for.
struct Options {
    DeckFiles deck;
    int width = 1280;
    int height = 720;
    std::uint64_t seed = 1;
    double speed = 1.0;
    std::string outputFolder = "out";
    bool help = false;
};

/// A command line that cannot be followed; the text is for the user.
class UsageError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Reads the arguments after the program's name. The deck is the one in the assets folder unless they name another.
/// Throws UsageError.
Options ParseOptions(const std::vector<std::string>& arguments, const std::string& assetsFolder);

/// The text of --help.
std::string HelpText();

} // namespace deal

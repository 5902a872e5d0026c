// SPDX-License-Identifier: MIT
#include "examples/klondike/rules/folders.h"

#include <cstdlib>
#include <stdexcept>
#include <string>

namespace klondike
{

namespace
{

std::filesystem::path FromEnvironment(const char* name)
{
    const char* const value = std::getenv(name);
    return value == nullptr ? "" : value;
}

std::filesystem::path OwnFolder(const char* variable, const char* belowHome)
{
    constexpr const char* kOwnName = "cardtable-klondike";
    if (const std::filesystem::path base = FromEnvironment(variable); base.is_absolute()) {
        return base / kOwnName;
    }
    const std::filesystem::path home = FromEnvironment("HOME");
    if (home.empty()) {
        throw std::runtime_error(std::string("there is no folder to keep games in: neither ") + variable +
                                 " nor HOME is set");
    }
    return home / belowHome / kOwnName;
}

} // namespace

std::filesystem::path DataFolder()
{
    return OwnFolder("XDG_DATA_HOME", ".local/share");
}

std::filesystem::path CacheFolder()
{
    return OwnFolder("XDG_CACHE_HOME", ".cache");
}

} // namespace klondike

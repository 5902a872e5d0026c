// SPDX-License-Identifier: MIT
#include "examples/klondike/rules/save_file.h"

#include "examples/klondike/rules/save.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <random>

namespace
{

using namespace klondike;
namespace fs = std::filesystem;

/// A folder that goes with the test.
class KlondikeSaveFile : public testing::Test
{
protected:
    KlondikeSaveFile() { fs::remove_all(folder); }
    ~KlondikeSaveFile() override { fs::remove_all(folder); }

    static std::string Read(const fs::path& path)
    {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    /// How many files there are in the saved game's folder, itself among them.
    std::ptrdiff_t NumFiles() const
    {
        return std::distance(fs::directory_iterator(file.parent_path()), fs::directory_iterator());
    }

    const fs::path folder = fs::path(testing::TempDir()) / ("klondike_save_" + std::to_string(std::random_device()()));
    const fs::path file = folder / "deep" / "game";
};

TEST_F(KlondikeSaveFile, IsReplacedWhole)
{
    Game game(5, {});
    EXPECT_FALSE(LoadOrSetAside(file).game);
    EXPECT_EQ(LoadOrSetAside(file).message, "");
    SaveAtomically(file, "an earlier and longer text that is no game" + ToText(game));
    game.Apply({Move::Kind::Draw});
    fs::path leftover = file; // of a save that was broken off
    leftover += ".new";
    std::ofstream(leftover) << std::string(5000, 'x');
    SaveAtomically(file, ToText(game));
    const LoadedGame loaded = LoadOrSetAside(file);
    ASSERT_TRUE(loaded.game && loaded.message.empty());
    EXPECT_EQ(ToText(*loaded.game), ToText(game));
    EXPECT_EQ(NumFiles(), 1);
}

TEST_F(KlondikeSaveFile, IsSetAsideWhenDamaged)
{
    const std::string names[] = {"game.damaged", "game.damaged-2", "game.damaged-3"};
    for (const std::string& name : names) {
        SaveAtomically(file, "damaged, to be " + name);
        const LoadedGame loaded = LoadOrSetAside(file);
        EXPECT_FALSE(loaded.game);
        EXPECT_NE(loaded.message.find(name), std::string::npos) << loaded.message;
        EXPECT_FALSE(fs::exists(file));
    }
    for (const std::string& name : names) {
        EXPECT_EQ(Read(file.parent_path() / name), "damaged, to be " + name);
    }
    SaveAtomically(file, std::string(2 * kMostSaveSize, 'x'));
    EXPECT_FALSE(LoadOrSetAside(file).game);
    EXPECT_EQ(fs::file_size(file.parent_path() / "game.damaged-4"), 2 * kMostSaveSize);
}

TEST_F(KlondikeSaveFile, TellsWhatCannotBeReadOrWritten)
{
    fs::create_directories(file);
    EXPECT_NE(LoadOrSetAside(file).message, "");
    EXPECT_THROW(SaveAtomically(file, "text"), std::runtime_error);
    EXPECT_TRUE(fs::is_directory(file));
    EXPECT_EQ(NumFiles(), 1);
    SaveAtomically(folder / "plain", "text");
    EXPECT_THROW(SaveAtomically(folder / "plain" / "game", "text"), std::runtime_error);
    EXPECT_EQ(Read(folder / "plain"), "text");
}

} // namespace

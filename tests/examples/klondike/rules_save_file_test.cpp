// SPDX-License-Identifier: MIT
#include "examples/klondike/rules/save_file.h"

#include "examples/klondike/rules/save.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <iterator>
#include <random>
#include <thread>
#include <vector>

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
    SaveAtomically(file, ToText(game));
    const LoadedGame loaded = LoadOrSetAside(file);
    ASSERT_TRUE(loaded.game && loaded.message.empty());
    EXPECT_EQ(ToText(*loaded.game), ToText(game));
    EXPECT_EQ(NumFiles(), 1);
}

TEST_F(KlondikeSaveFile, LeavesNoUnfinishedFilesOfDiedPrograms)
{
    SaveAtomically(file, "text");
    const auto old = fs::file_time_type::clock::now() - std::chrono::hours(2);
    const auto makeFile = [&](const std::string& name, bool isOld) {
        std::ofstream(file.parent_path() / name) << std::string(5000, 'x');
        if (isOld) {
            fs::last_write_time(file.parent_path() / name, old);
        }
    };
    makeFile("game.4711-1.new", true);
    makeFile("game.4711-23.new", true);
    const std::string kept[] = {"game.new", "game.mine.new", "game.4711-1", "other.4711-1.new"};
    for (const std::string& name : kept) {
        makeFile(name, true);
    }
    makeFile("game.4712-1.new", false); // somebody is at it
    SaveAtomically(file, "text");
    for (const std::string& name : kept) {
        EXPECT_TRUE(fs::exists(file.parent_path() / name)) << name;
    }
    EXPECT_TRUE(fs::exists(file.parent_path() / "game.4712-1.new"));
    EXPECT_EQ(NumFiles(), 6) << "with the save itself";
}

/// Saves texts of its own, each of one letter and as many of them as the letter says, over and over.
void SaveLetters(const fs::path& file, char first)
{
    for (int i = 0; i < 60; ++i) {
        const char letter = static_cast<char>(first + i % 5);
        SaveAtomically(file, std::string(static_cast<std::size_t>(letter) * 97, letter));
    }
}

TEST_F(KlondikeSaveFile, IsWholeWhenManySaveAtOnce)
{
    SaveAtomically(file, "");
    std::vector<pid_t> programs;
    for (const char first : {'A', 'K'}) {
        const pid_t program = fork();
        ASSERT_GE(program, 0);
        if (program == 0) {
            std::thread second(SaveLetters, file, static_cast<char>(first + 5));
            SaveLetters(file, first);
            second.join();
            _exit(0); // a failure to save has ended the program already, with another status
        }
        programs.push_back(program);
    }
    std::size_t read = 0;
    while (!programs.empty()) {
        const std::string text = Read(file);
        if (!text.empty()) {
            ++read;
            ASSERT_EQ(text, std::string(static_cast<std::size_t>(text[0]) * 97, text[0]));
        }
        int status = 0;
        if (waitpid(programs.back(), &status, WNOHANG) == programs.back()) {
            EXPECT_EQ(status, 0);
            programs.pop_back();
        }
    }
    EXPECT_GT(read, 0U);
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

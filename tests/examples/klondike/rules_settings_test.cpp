// SPDX-License-Identifier: MIT
#include "examples/klondike/rules/settings.h"

#include "examples/klondike/rules/folders.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

namespace
{

using namespace klondike;

Settings AllChanged()
{
    Settings settings;
    settings.game = {true, 3, Scoring::Vegas};
    settings.speed = 0;
    settings.reducedMotion = true;
    settings.leftHanded = true;
    settings.autoMove = false;
    settings.fullScreen = true;
    settings.deckName = "My d\xC3\xA9"
                        "ck = 2";
    return settings;
}

TEST(KlondikeSettings, AreKept)
{
    EXPECT_EQ(SettingsFromText(SettingsToText(Settings())), Settings());
    EXPECT_EQ(SettingsFromText(SettingsToText(AllChanged())), AllChanged());
    const std::filesystem::path file =
        std::filesystem::path(testing::TempDir()) / ("klondike_settings_" + std::to_string(std::random_device()()));
    EXPECT_EQ(LoadSettings(file), Settings());
    SaveSettings(file, AllChanged());
    EXPECT_EQ(LoadSettings(file), AllChanged());
    std::filesystem::remove(file);
    EXPECT_EQ(LoadSettings(testing::TempDir()), Settings());
}

TEST(KlondikeSettings, DamagedOnesAreTheDefaults)
{
    const std::string lines[] = {"speed=5",
                                 "speed=-1",
                                 "speed=99999999999",
                                 "speed=",
                                 "speed",
                                 "redeals=-1",
                                 "redeals=x",
                                 "scoring=most",
                                 "draw-three=1",
                                 "auto-move=NO",
                                 "left-handed=",
                                 "deck=",
                                 "deck=../secret",
                                 "deck=a/b",
                                 "deck=.x",
                                 "deck=a\\b",
                                 "deck=a\tb",
                                 "unknown=yes",
                                 "=",
                                 "",
                                 "deck=" + std::string(65, 'a')};
    std::string all;
    for (const std::string& line : lines) {
        EXPECT_EQ(SettingsFromText(line), Settings()) << line;
        all += line + "\n";
    }
    EXPECT_EQ(SettingsFromText(SettingsToText(AllChanged()) + all), AllChanged());
    Settings settings = AllChanged();
    settings.deckName = "a\nspeed=4";
    EXPECT_EQ(SettingsFromText(SettingsToText(settings)).speed, 0);
}

TEST(KlondikeSettings, AnyTextGivesSettingsThatAreKept)
{
    std::mt19937 random(8);
    const std::string text = SettingsToText(AllChanged());
    for (int round = 0; round < 5000; ++round) {
        std::string damaged = text;
        for (int change = 0; change < 3; ++change) {
            damaged[random() % damaged.size()] = static_cast<char>(random());
        }
        const Settings settings = SettingsFromText(damaged);
        ASSERT_EQ(SettingsFromText(SettingsToText(settings)), settings);
        ASSERT_TRUE(settings.speed >= kInstantSpeed && settings.speed <= kFastestSpeed);
    }
}

TEST(KlondikeFolders, FollowTheEnvironment)
{
    setenv("HOME", "/home/player", 1);
    for (const char* const unusable : {"", "relative/folder"}) {
        setenv("XDG_DATA_HOME", unusable, 1);
        setenv("XDG_CACHE_HOME", unusable, 1);
        EXPECT_EQ(DataFolder(), "/home/player/.local/share/cardtable-klondike");
        EXPECT_EQ(CacheFolder(), "/home/player/.cache/cardtable-klondike");
    }
    setenv("XDG_DATA_HOME", "/data", 1);
    EXPECT_EQ(DataFolder(), "/data/cardtable-klondike");
    unsetenv("HOME");
    EXPECT_EQ(DataFolder(), "/data/cardtable-klondike");
    EXPECT_THROW(CacheFolder(), std::runtime_error);
}

} // namespace

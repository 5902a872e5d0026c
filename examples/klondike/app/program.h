// SPDX-License-Identifier: MIT
#pragma once

#include "examples/klondike/app/celebration.h"
#include "examples/klondike/app/command_reader.h"
#include "examples/klondike/app/deck_supply.h"
#include "examples/klondike/app/keeper.h"
#include "examples/klondike/app/menus.h"
#include "examples/klondike/app/play_clock.h"
#include "examples/klondike/app/player.h"
#include "examples/klondike/app/popup.h"
#include "examples/klondike/app/table_view.h"
#include "examples/klondike/app/tool_bar.h"
#include "examples/klondike/labels/text_painter.h"
#include "examples/klondike/rules/game.h"
#include "examples/klondike/rules/settings.h"
#include "examples/klondike/text/play.h"
#include "orvane/window/loop.h"
#include "orvane/window/program.h"
#include "orvane/window/window.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>

namespace klondike
{

/// What a game in a window starts with.
struct Setup {
    Game game{0, {}};
    Settings settings{};
    std::string message{};                ///< a line for the player to begin with
    std::filesystem::path saveFile{};     ///< where the game is kept; empty: nowhere
    std::filesystem::path settingsFile{}; ///< likewise the settings
    DeckPlaces decks{};
    std::function<std::uint64_t()> chooseDeal{}; ///< a new game's number; empty: by chance
    int commands = -1;                           ///< a file descriptor to read commands from; less than 0: none
    std::ostream* answers = nullptr;             ///< where their answers go; null: nowhere
    bool describe = false;                       ///< the table is printed there after every change
};

/// Klondike in a window.
class Program final : public orvane::Program, private GameListener
{
public:
    /// Host and window outlive it; the clock is for the loop.
    Program(orvane::Host& host, orvane::Window& window, Setup setup, orvane::Loop::Clock clock = {});
    ~Program() override;
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    /// Runs the program.
    orvane::Loop& Loop() { return m_loop; }
    const Game& TheGame() const { return m_game; }
    TableView& View() { return m_view; }
    /// True while something goes on by itself: cards move, commands wait, decks are looked for or on their
    /// way.
    bool IsBusy() const;
    ///@{
    /// Commands wait to be followed; and: there are none now, but more may come, or the first deck is on its way.
    bool HasCommands() const { return m_reader != nullptr && m_reader->HasLines(); }
    bool AwaitsInput() const;
    ///@}

    ///@{
    /// For the loop.
    bool Frame() override;
    void Pointer(const orvane::PointerEvent& event) override;
    void Key(const orvane::KeyEvent& event) override;
    void Resized(int width, int height) override;
    void FocusChanged(bool focused) override;
    void Woken() override;
    bool Quit() override;
    ///@}

private:
    enum class Target { None, Table, ToolBar, Popup };
    /// The one press that counts; others are passed over while it lasts.
    struct Pressed {
        Target target = Target::None;
        orvane::PointerKind kind = orvane::PointerKind::Mouse;
        orvane::PointerButton button = orvane::PointerButton::None;
        std::int64_t finger = 0;
    };

    void GameChanged() override;
    void Say(const std::string& text) override;

    void PointerDown(const orvane::PointerEvent& event);
    void PointerUp(const orvane::PointerEvent& event);
    void PointerMoved(const orvane::PointerEvent& event);
    void CancelPress();
    bool PopupKey(const orvane::KeyEvent& event);
    bool ToolBarKey(const orvane::KeyEvent& event);
    bool CursorKey(const orvane::KeyEvent& event);
    void ShortcutKey(const orvane::KeyEvent& event);

    void Act(Action action);
    void NewGame();
    void GiveUpTo(const std::function<void()>& next);
    void ShowMenu();
    void ShowDecks();
    MenuCalls Calls();
    void Change(const Settings& settings);
    void ApplySettings();
    void SetFullScreen(bool fullScreen);

    void LayOut();
    void WantDeck();
    void TakeDeck();
    void TakeCommands();
    void FollowWin();
    void UpdateBar();
    void CountTime();
    void PlanQuietWork();
    void DoQuietWork();
    bool Follow(const std::string& command);

    orvane::Window& m_window;
    Game m_game;
    Settings m_settings;
    TextPainter m_painter;
    TableView m_view;
    Player m_player;
    Celebration m_celebration;
    ToolBar m_toolBar;
    Popup m_popup;
    enum class Shown { Menu, Decks, Other } m_popupShows = Shown::Other;

    enum class WinStage { Playing, Celebrating, Told } m_winStage = WinStage::Playing;
    std::string m_message;
    Pressed m_pressed;
    Keeper m_keeper;
    const std::function<std::uint64_t()> m_chooseDeal;
    PlayClock m_clock;
    bool m_isExamined = false;  ///< for being stuck
    bool m_isAnswering = false; ///< a command, which tells of its changes itself
    std::optional<DeckFiles> m_newDeck;
    bool m_deckIsComing = false;
    bool m_isLaidOut = false;

    orvane::Loop m_loop;
    orvane::Loop::Timer m_quietTimer = 0;
    DeckSupply m_decks; ///< wakes the loop from its threads, as the reader
    std::ostream* const m_answers;
    std::optional<Conversation> m_conversation;
    std::unique_ptr<CommandReader> m_reader;
};

} // namespace klondike

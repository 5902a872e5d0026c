// SPDX-License-Identifier: MIT
#include "examples/klondike/app/menus.h"

#include "examples/klondike/rules/value_text.h"

#include <cstdlib>
#include <optional>
#include <utility>

namespace klondike
{

namespace
{

using Kind = PanelLine::Kind;
using Call = std::function<void()>;

PopupLine Title(std::string text)
{
    return {{std::move(text), Kind::Title}};
}

PopupLine Text(std::string text, std::string end = {})
{
    return {{std::move(text), Kind::Text, std::move(end)}};
}

PopupLine Rule()
{
    return {{"", Kind::Separator}};
}

PopupLine Item(std::string text, std::string end, Call call)
{
    return {{std::move(text), Kind::Item, std::move(end)}, std::move(call)};
}

PopupLine Switch(std::string text, bool on, Call call)
{
    PopupLine line = Item(std::move(text), on ? "on" : "off", std::move(call));
    line.panel.isChecked = on;
    return line;
}

const char* SpeedText(int speed)
{
    switch (speed) {
    case kInstantSpeed:
        return "instant";
    case 1:
        return "slow";
    case 2:
        return "normal";
    case 3:
        return "fast";
    default:
        return "very fast";
    }
}

Scoring Next(Scoring scoring)
{
    return scoring == Scoring::None ? Scoring::Standard : scoring == Scoring::Standard ? Scoring::Vegas : Scoring::None;
}

/// Without limit, none, one, two.
std::optional<std::uint32_t> NextRedeals(const std::optional<std::uint32_t>& redeals)
{
    if (!redeals) {
        return 0U;
    }
    return *redeals < 2U ? std::optional(*redeals + 1U) : std::nullopt;
}

} // namespace

std::vector<PopupLine> MainMenu(const Settings& settings, const Game& game, const MenuCalls& calls)
{
    const auto act = [&](Action action) -> Call { return [calls, action] { calls.act(action); }; };
    // The line's call changes a copy of the settings.
    const auto change = [&](auto edit) -> Call {
        return [calls, settings, edit] {
            Settings changed = settings;
            edit(changed);
            calls.change(changed);
        };
    };
    return {
        Title("Klondike"),
        Item("New game", "N", act(Action::NewGame)),
        Item("Restart deal " + std::to_string(game.DealNumber()), "R", act(Action::Restart)),
        Item("Help", "F1", act(Action::Help)),
        Item("Quit", "Q", calls.quit),
        Rule(),
        Item("Deck", settings.deckName, act(Action::Decks)),
        Item("Speed", SpeedText(settings.speed),
             change([](Settings& s) { s.speed = s.speed < kFastestSpeed ? s.speed + 1 : kInstantSpeed; })),
        Switch("Full screen", settings.fullScreen, act(Action::FullScreen)),
        Switch("Left-handed", settings.leftHanded, change([](Settings& s) { s.leftHanded = !s.leftHanded; })),
        Switch("Reduced motion", settings.reducedMotion,
               change([](Settings& s) { s.reducedMotion = !s.reducedMotion; })),
        Switch("Safe cards go home", settings.autoMove, change([](Settings& s) { s.autoMove = !s.autoMove; })),
        Rule(),
        {{"From the next deal on", Kind::Note}},
        Item("Cards a draw", settings.game.drawThree ? "three" : "one",
             change([](Settings& s) { s.game.drawThree = !s.game.drawThree; })),
        Item("Waste turned over", settings.game.redeals ? std::to_string(*settings.game.redeals) + " times" : "always",
             change([](Settings& s) { s.game.redeals = NextRedeals(s.game.redeals); })),
        Item("Score", ScoringText(settings.game.scoring),
             change([](Settings& s) { s.game.scoring = Next(s.game.scoring); })),
    };
}

std::vector<PopupLine> DeckMenu(const std::vector<Deck>& decks, const Settings& settings, const MenuCalls& calls)
{
    std::vector<PopupLine> lines{Title("Decks")};
    const std::size_t current = DeckLine(decks, settings.deckName);
    for (std::size_t i = 0; i < decks.size(); ++i) {
        const std::string name = i == 0 ? std::string() : decks[i].name;
        lines.push_back(Item(decks[i].name, "", [calls, settings, name] {
            Settings changed = settings;
            changed.deckName = name;
            calls.change(changed);
        }));
        lines.back().panel.isChecked = lines.size() - 1 == current;
    }
    lines.push_back(Rule());
    lines.push_back(Item("Close", "Esc", calls.close));
    return lines;
}

std::size_t DeckLine(const std::vector<Deck>& decks, const std::string& name)
{
    for (std::size_t i = 1; i < decks.size(); ++i) {
        if (decks[i].name == name) {
            return i + 1; // after the title
        }
    }
    return 1;
}

std::vector<PopupLine> HelpText(const MenuCalls& calls)
{
    return {
        Title("How to play"),
        Text("Drag cards, or tap them and then the pile they go to. A second tap plays them where they go best."),
        Text("A tap on the stock draws. A right click sends a card home."),
        Rule(),
        Text("Go from pile to pile", "arrows, 1 to 7"),
        Text("Take, play, draw", "Enter, Space"),
        Text("Send a card home", "Home"),
        Text("Draw", "D"),
        Text("Undo, redo", "U, Y"),
        Text("Hint", "H"),
        Text("Finish a game that is clear", "F"),
        Text("New game, the same again", "N, R"),
        Text("Choose a deck", "C"),
        Text("Buttons", "Tab"),
        Text("Menu, full screen", "M, F11"),
        Rule(),
        Item("Close", "Esc", calls.close),
    };
}

std::vector<PopupLine> WonMessage(const Game& game, const MenuCalls& calls)
{
    std::vector<PopupLine> lines{Title("The game is won")};
    lines.push_back(Text("Time", TimeText(game.Seconds())));
    lines.push_back(Text("Moves", std::to_string(game.Played().size())));
    if (const std::string score = ScoreText(game); !score.empty()) {
        lines.push_back(Text("Score", score));
    }
    lines.push_back(Rule());
    lines.push_back(Item("New game", "N", [calls] { calls.act(Action::NewGame); }));
    lines.push_back(Item("Look at the table", "Esc", calls.close));
    return lines;
}

std::vector<PopupLine> GiveUpQuestion(const std::function<void()>& giveUp, const MenuCalls& calls)
{
    return {Title("Give this game up?"), Item("Give it up", "", giveUp), Item("Go on playing", "Esc", calls.close)};
}

std::string TimeText(std::uint32_t seconds)
{
    const std::string rest = std::to_string(seconds % 60);
    return std::to_string(seconds / 60) + (rest.size() < 2 ? ":0" : ":") + rest;
}

std::string ScoreText(const Game& game)
{
    const std::int64_t score = game.Score();
    switch (game.GameOptions().scoring) {
    case Scoring::None:
        return {};
    case Scoring::Standard:
        return std::to_string(score);
    case Scoring::Vegas:
        break;
    }
    return (score < 0 ? "-$" : "$") + std::to_string(std::llabs(score));
}

} // namespace klondike

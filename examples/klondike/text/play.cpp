// SPDX-License-Identifier: MIT
#include "examples/klondike/text/play.h"

#include "examples/klondike/rules/advice.h"
#include "examples/klondike/rules/deal.h"
#include "examples/klondike/text/command.h"
#include "examples/klondike/text/describe.h"

#include <istream>
#include <ostream>

namespace klondike
{

namespace
{

constexpr std::size_t kMostLine = 1000;

} // namespace

void Conversation::Begin() const
{
    if (m_describe) {
        m_out << Describe(m_game);
    }
}

bool Conversation::Answer(std::string_view line)
{
    const std::variant<Command, std::string> read = ParseCommand(line);
    if (const std::string* const error = std::get_if<std::string>(&read)) {
        m_out << *error << "\n";
        return true;
    }
    return Answer(std::get<Command>(read));
}

bool Conversation::Answer(const Command& command)
{
    switch (command.kind) {
    case Command::Kind::Move:
    case Command::Kind::Draw:
    case Command::Kind::Home:
        Play(command);
        break;
    case Command::Kind::Auto:
        Finish();
        break;
    case Command::Kind::Undo:
        Report(m_game.Undo(), "there is nothing to undo");
        break;
    case Command::Kind::Redo:
        Report(m_game.Redo(), "there is nothing to redo");
        break;
    case Command::Kind::New:
        m_game = Game(command.deal ? *command.deal : RandomDealNumber(), m_game.GameOptions());
        TellChange();
        break;
    case Command::Kind::Restart:
        m_game.Restart();
        TellChange();
        break;
    case Command::Kind::Hint:
        Hint();
        break;
    case Command::Kind::Describe:
        m_out << Describe(m_game);
        break;
    case Command::Kind::Help:
        m_out << CommandHelp();
        break;
    case Command::Kind::Quit:
        return false;
    }
    return true;
}

void Conversation::Play(const Command& command)
{
    const std::optional<Move> move = ToMove(m_game, command);
    Report(move && !m_game.Apply(*move).empty(),
           command.kind == Command::Kind::Draw ? "there is nothing more to draw" : "the rules do not allow this move");
}

void Conversation::Finish()
{
    bool changed = false;
    for (auto move = FinishMove(m_game); move && !m_game.Apply(*move).empty(); move = FinishMove(m_game)) {
        changed = true;
    }
    Report(changed, "not yet: stock and waste must be empty, and no card face down");
}

void Conversation::Hint() const
{
    const std::vector<Move> hints = Hints(m_game);
    m_out << (hints.empty() ? "no move brings the game on" : "try: " + CommandText(hints.front())) << "\n";
}

void Conversation::Report(bool changed, const char* otherwise) const
{
    if (changed) {
        TellChange();
    } else {
        m_out << otherwise << "\n";
    }
}

void Conversation::TellChange() const
{
    if (m_describe) {
        m_out << Describe(m_game);
    }
    if (m_game.IsWon()) {
        m_out << "the game is won, score " << m_game.Score() << "\n";
    } else if (IsStuck(m_game)) {
        m_out << "the game is stuck: no move brings it on; undo, restart or new\n";
    }
}

bool ReadLine(std::istream& in, std::string& line)
{
    line.clear();
    for (char c = 0; in.get(c) && c != '\n';) {
        if (line.size() < kMostLine) {
            line += c;
        }
    }
    return !in.fail() || !line.empty();
}

int RunText(std::istream& in, std::ostream& out, Game& game, bool describe)
{
    Conversation conversation(out, game, describe);
    conversation.Begin();
    std::string line;
    while (out && ReadLine(in, line) && conversation.Answer(line)) {
        out.flush();
    }
    out.flush();
    return out ? 0 : 1;
}

} // namespace klondike

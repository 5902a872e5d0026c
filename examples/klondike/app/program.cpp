// SPDX-License-Identifier: MIT
#include "examples/klondike/app/program.h"

#include "examples/klondike/rules/advice.h"
#include "examples/klondike/rules/deal.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <utility>

namespace klondike
{

namespace
{

/// After so long without a change the game is saved and examined.
constexpr std::uint64_t kQuietTime = 400000;

double SpeedFactor(int speed)
{
    constexpr std::array<double, kFastestSpeed + 1> kFactors{cardkit::Table::kInstant, 0.6, 1.0, 1.7, 3.0};
    return kFactors[static_cast<std::size_t>(std::clamp(speed, 0, kFastestSpeed))];
}

SlotSign StockSign(const Game& game)
{
    const Options& options = game.GameOptions();
    return !options.redeals || game.RedealsUsed() < *options.redeals ? SlotSign::Recycle : SlotSign::NoMore;
}

std::vector<std::size_t> Foundations()
{
    std::vector<std::size_t> piles;
    for (std::size_t i = 0; i < kNumFoundations; ++i) {
        piles.push_back(kFirstFoundation + i);
    }
    return piles;
}

} // namespace

Program::Program(orvane::Host& host, orvane::Window& window, Setup setup, orvane::Loop::Clock clock)
    : m_window(window), m_game(std::move(setup.game)), m_settings(std::move(setup.settings)),
      m_view(window.Width(), window.Height()), m_player(m_game, m_view, *this), m_celebration(m_view.Cards()),
      m_toolBar(m_painter), m_popup(m_painter), m_message(std::move(setup.message)),
      m_keeper(std::move(setup.saveFile), std::move(setup.settingsFile)),
      m_chooseDeal(setup.chooseDeal ? std::move(setup.chooseDeal) : &RandomDealNumber),
      m_loop(host, window, *this, std::move(clock)), m_decks(setup.decks, [this] { m_loop.Wake(); }),
      m_answers(setup.answers)
{
    if (m_message.empty()) {
        m_message = m_painter.Error();
    }
    if (m_answers != nullptr) {
        m_conversation.emplace(*m_answers, m_game, setup.describe);
        m_conversation->Begin();
        m_answers->flush();
    }
    if (setup.commands >= 0) {
        m_reader = std::make_unique<CommandReader>(setup.commands, [this] { m_loop.Wake(); });
    }
    ApplySettings();
    m_keeper.GameChanged();
    m_clock.Input(m_loop.Now());
}

Program::~Program() = default;

bool Program::IsBusy() const
{
    return HasCommands() || m_view.Cards().IsMoving() || m_celebration.IsRunning() || m_deckIsComing ||
           m_newDeck.has_value() || m_decks.IsLooking();
}

bool Program::AwaitsInput() const
{
    return (!m_view.HasDeck() && m_deckIsComing) ||
           (m_reader != nullptr && !m_reader->HasLines() && !m_reader->HasEnded());
}

// ---- frames ----

bool Program::Frame()
{
    TakeDeck();
    TakeCommands();
    m_celebration.Frame();
    const bool movesByItself = m_player.Frame();
    FollowWin();
    const bool cardsMove = m_view.Cards().Frame();
    // What waits for the cards to lie still is looked at once more when they do.
    const bool waits = HasCommands() || (m_newDeck && !m_player.IsPressed());
    return cardsMove || movesByItself || waits || m_celebration.IsRunning();
}

void Program::Woken()
{
    DeckSupply::Delivery delivery = m_decks.Take();
    if (delivery.files) {
        m_newDeck = std::move(delivery.files);
        m_deckIsComing = false;
    }
    if (!delivery.problem.empty()) {
        m_deckIsComing = m_decks.IsWaiting();
        Say(delivery.problem);
    }
    if (delivery.foundDecks && m_popup.IsShown() && m_popupShows == Shown::Decks) {
        ShowDecks();
    }
    if (m_window.IsHidden()) { // there are no frames then
        m_view.Cards().FinishAll();
        TakeCommands();
    }
}

void Program::TakeDeck()
{
    const bool isQuiet = !m_view.Cards().IsMoving() && !m_player.IsPressed();
    if (!m_newDeck || (m_view.HasDeck() && !isQuiet)) {
        return;
    }
    const DeckFiles files = *std::exchange(m_newDeck, std::nullopt);
    const bool isFirst = !m_view.HasDeck();
    LayOut();
    try {
        m_view.UseDeck(files);
    } catch (const std::runtime_error& error) {
        Say(error.what());
        return;
    }
    if (isFirst && m_game.Played().empty()) {
        m_view.DealOut(m_game);
    } else if (isFirst) {
        m_view.LayDown(m_game);
    }
    m_player.PlaceHighlights();
}

void Program::TakeCommands()
{
    // The next one comes when the cards of the last one lie; and the first when there are cards.
    while (m_reader != nullptr && !m_loop.HasEnded() && !m_view.Cards().IsMoving() &&
           (m_view.HasDeck() || !m_deckIsComing)) {
        const std::optional<std::string> line = m_reader->Take();
        if (!line) {
            return;
        }
        if (!Follow(*line)) {
            Quit();
            m_loop.Stop();
        }
    }
}

bool Program::Follow(const std::string& command)
{
    if (!m_conversation) {
        return true;
    }
    m_celebration.End();
    m_player.Cancel();
    const std::uint64_t deal = m_game.DealNumber();
    const std::size_t played = m_game.Played().size();
    const std::size_t undone = m_game.Undone().size();
    m_isAnswering = true;
    const bool goesOn = m_conversation->Answer(command);
    m_answers->flush();
    const bool isFresh = m_game.Played().empty() && m_game.Undone().empty();
    if (isFresh && (deal != m_game.DealNumber() || played + undone > 0)) {
        LayOut();
        m_player.Begin(m_game);
    } else if (m_game.Played().size() != played || m_game.Undone().size() != undone) {
        m_player.Follow();
    }
    m_isAnswering = false;
    return goesOn;
}

void Program::FollowWin()
{
    if (!m_game.IsWon()) {
        m_winStage = WinStage::Playing;
        return;
    }
    if (m_winStage == WinStage::Told || !m_view.HasDeck() || m_popup.IsShown() || m_player.IsPressed()) {
        return;
    }
    if (m_winStage == WinStage::Playing && !m_view.Cards().IsMoving()) {
        m_winStage = WinStage::Celebrating;
        m_player.HideCursor();
        m_celebration.Begin(Foundations());
    } else if (m_winStage == WinStage::Celebrating && !m_celebration.IsRunning()) {
        m_winStage = WinStage::Told;
        m_popupShows = Shown::Other;
        m_popup.Show(WonMessage(m_game, Calls()));
    }
    m_loop.RequestFrame();
}

// ---- what changes ----

void Program::GameChanged()
{
    m_message.clear();
    m_isExamined = false;
    m_keeper.GameChanged();
    m_view.SetStockSign(StockSign(m_game));
    if (m_conversation && !m_isAnswering) {
        m_conversation->TellChange();
        m_answers->flush();
    }
    UpdateBar();
    PlanQuietWork();
}

void Program::Say(const std::string& text)
{
    m_message = text;
    UpdateBar();
}

void Program::UpdateBar()
{
    m_toolBar.SetEnabled(Action::Undo, !m_game.Played().empty());
    m_toolBar.SetEnabled(Action::Redo, !m_game.Undone().empty());
    m_toolBar.SetEnabled(Action::Hint, !m_game.IsWon());
    m_toolBar.SetEnabled(Action::Finish, CanFinish(m_game));
    std::string status = m_message;
    if (status.empty()) {
        const std::string score = ScoreText(m_game);
        status = TimeText(m_game.Seconds()) + (score.empty() ? "" : "  ·  " + score);
    }
    m_toolBar.SetStatus(status);
}

void Program::PlanQuietWork()
{
    m_loop.Cancel(m_quietTimer);
    m_quietTimer = m_loop.CallAt(m_loop.Now() + kQuietTime, [this] { DoQuietWork(); });
}

void Program::DoQuietWork()
{
    if (m_view.Cards().IsMoving() || m_player.IsPressed()) {
        PlanQuietWork();
        return;
    }
    if (const std::string problem = m_keeper.Save(m_game); !problem.empty()) {
        Say(problem);
    }
    if (!std::exchange(m_isExamined, true) && !m_game.IsWon() && IsStuck(m_game)) {
        Say("No move brings this game on");
    }
}

// ---- size, pictures ----

void Program::Resized(int width, int height)
{
    if (width < 1 || height < 1) {
        return; // reduced to nothing: the table stays as it was
    }
    CancelPress();
    LayOut();
    WantDeck();
    UpdateBar();
}

void Program::LayOut()
{
    LayoutWishes wishes;
    wishes.cardAspect = m_decks.Aspect();
    wishes.leftHanded = m_settings.leftHanded;
    wishes.wasteApart = m_game.GameOptions().drawThree ? 3 : 1;
    const Layout layout = MakeLayout(m_window.Width(), m_window.Height(), wishes);
    if (layout == m_view.Places() && m_isLaidOut) {
        return;
    }
    m_isLaidOut = true;
    m_view.Resize(layout);
    m_view.SetStockSign(StockSign(m_game));
    m_toolBar.Resize(layout.toolBar, layout.textPixels, m_settings.leftHanded);
    m_popup.Resize(layout.width, layout.height, layout.textPixels);
    m_player.PlaceHighlights();
}

void Program::WantDeck()
{
    if (m_decks.Want(m_settings.deckName, CardRoom(m_window.Width(), m_window.Height()))) {
        m_newDeck.reset(); // of an earlier wish
        m_deckIsComing = true;
    }
}

void Program::FocusChanged(bool focused)
{
    if (!focused) {
        CancelPress();
    }
}

bool Program::Quit()
{
    m_keeper.Save(m_game);
    return true;
}

// ---- menus ----

MenuCalls Program::Calls()
{
    return {[this](Action action) {
                m_popup.Hide();
                Act(action);
            },
            [this](const Settings& settings) { Change(settings); }, [this] { m_popup.Hide(); },
            [this] {
                Quit();
                m_loop.Stop();
            }};
}

void Program::ShowMenu()
{
    m_popupShows = Shown::Menu;
    m_popup.Show(MainMenu(m_settings, m_game, Calls()));
}

void Program::ShowDecks()
{
    m_popupShows = Shown::Decks;
    m_popup.Show(DeckMenu(m_decks.Decks(), m_settings, Calls()), DeckLine(m_decks.Decks(), m_settings.deckName));
}

void Program::Change(const Settings& settings)
{
    m_settings = settings;
    ApplySettings();
    if (m_popupShows == Shown::Menu) {
        m_popup.Update(MainMenu(m_settings, m_game, Calls()));
    } else if (m_popupShows == Shown::Decks) {
        m_popup.Update(DeckMenu(m_decks.Decks(), m_settings, Calls()));
    }
    if (const std::string problem = m_keeper.Save(m_settings); !problem.empty()) {
        Say(problem);
    }
}

void Program::ApplySettings()
{
    m_view.Cards().SetSpeed(SpeedFactor(m_settings.speed));
    m_view.Cards().SetReducedMotion(m_settings.reducedMotion);
    m_player.SetAutoMove(m_settings.autoMove);
    LayOut();
    WantDeck();
}

void Program::SetFullScreen(bool fullScreen)
{
    if (m_window.SetFullScreen(fullScreen)) {
        Settings changed = m_settings;
        changed.fullScreen = fullScreen;
        Change(changed);
    }
}

void Program::GiveUpTo(const std::function<void()>& next)
{
    if (m_game.IsWon() || m_game.Played().empty()) {
        next();
        return;
    }
    m_popupShows = Shown::Other;
    m_popup.Show(GiveUpQuestion(
        [this, next] {
            m_popup.Hide();
            next();
        },
        Calls()));
}

void Program::NewGame()
{
    Game game(m_chooseDeal(), m_settings.game);
    m_player.Cancel();
    m_game = game;
    LayOut(); // the waste may lie otherwise
    m_player.Begin(std::move(game));
}

void Program::Act(Action action)
{
    m_celebration.End();
    switch (action) {
    case Action::NewGame:
        GiveUpTo([this] { NewGame(); });
        break;
    case Action::Restart:
        GiveUpTo([this] { m_player.Restart(); });
        break;
    case Action::Draw:
        m_player.Draw();
        break;
    case Action::Undo:
        m_player.Undo();
        break;
    case Action::Redo:
        m_player.Redo();
        break;
    case Action::Hint:
        m_player.ShowHint();
        break;
    case Action::Finish:
        m_player.Finish();
        break;
    case Action::Menu:
        m_player.Cancel();
        ShowMenu();
        break;
    case Action::Decks:
        m_player.Cancel();
        ShowDecks();
        break;
    case Action::Help:
        m_player.Cancel();
        m_popupShows = Shown::Other;
        m_popup.Show(HelpText(Calls()));
        break;
    case Action::FullScreen:
        SetFullScreen(!m_window.IsFullScreen());
        break;
    }
}

} // namespace klondike

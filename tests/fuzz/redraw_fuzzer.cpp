// SPDX-License-Identifier: MIT
// A game at its table, frame by frame: what is composed from damage alone equals the composing of everything, bit for
// bit, and the target bitmap holds nothing but what the frame's own draws would put into an empty one.
#include "cardtable/cardtable.h"
#include "host/bitmap_manager.h"
#include "host/canvas.h"
#include "host/globals.h"
#include "host/polygon_render.h"
#include "host/rect.h"
#include "host/render.h"
#include "host/window.h"
#include "orvane/orvane.h"
#include "tests/fuzz/check.h"
#include "tests/fuzz/input.h"
#include "tests/fuzz/sheet_files.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <utility>
#include <vector>

namespace
{

constexpr int kLeastFrames = 40;

Tally frames("frames compared");
Tally drawnQuads("draws repeated");

/// Passes everything on to the host's renderer and keeps the draws into one bitmap, to repeat them.
class KeepingRenderer final : public PolygonRender
{
public:
    KeepingRenderer() : m_renderer(std::exchange(glb->polygonRender, this)) {}
    ~KeepingRenderer() override { glb->polygonRender = m_renderer; }
    KeepingRenderer(const KeepingRenderer&) = delete;
    KeepingRenderer& operator=(const KeepingRenderer&) = delete;

    void Watch(const Bitmap* target)
    {
        m_watched = target;
        m_draws.clear();
    }
    void Repeat(Bitmap* target)
    {
        for (const Call& call : m_draws) {
            Send(call);
            CRect* none = nullptr;
            m_renderer->Draw(target, none);
            ++drawnQuads;
        }
        Send(m_now);
    }

    void SetTexture(Bitmap* texture) override
    {
        m_now.texture = texture;
        m_renderer->SetTexture(texture);
    }
    void SetTexCoords(long u0, long v0, long u1, long v1, long u2, long v2, long u3, long v3) override
    {
        m_now.texels = {u0, v0, u1, v1, u2, v2, u3, v3};
        m_renderer->SetTexCoords(u0, v0, u1, v1, u2, v2, u3, v3);
    }
    void SetVertices(long x0, long y0, float, long x1, long y1, float, long x2, long y2, float, long x3, long y3,
                     float) override
    {
        m_now.corners = {x0, y0, x1, y1, x2, y2, x3, y3};
        m_renderer->SetVertices(x0, y0, 0, x1, y1, 0, x2, y2, 0, x3, y3, 0);
    }
    int IsPointInside(long x, long y) override { return m_renderer->IsPointInside(x, y); }
    void SetRenderState(long state, long value) override
    {
        m_now.state = value;
        m_renderer->SetRenderState(state, value);
    }
    void Draw(Bitmap* target, CRect*& clip) override
    {
        if (target == m_watched) {
            m_draws.push_back(m_now);
        }
        m_renderer->Draw(target, clip);
    }
    CRect* GetBoundingBox() override { return m_renderer->GetBoundingBox(); }
    CRect* GetLastDrawnRect() override { return m_renderer->GetLastDrawnRect(); }

private:
    struct Call {
        std::array<long, 8> corners{};
        std::array<long, 8> texels{};
        Bitmap* texture = nullptr;
        long state = 0;
    };

    void Send(const Call& call)
    {
        const auto& c = call.corners;
        const auto& t = call.texels;
        m_renderer->SetVertices(c[0], c[1], 0, c[2], c[3], 0, c[4], c[5], 0, c[6], c[7], 0);
        m_renderer->SetTexCoords(t[0], t[1], t[2], t[3], t[4], t[5], t[6], t[7]);
        m_renderer->SetTexture(call.texture);
        m_renderer->SetRenderState(1, call.state);
    }

    PolygonRender* m_renderer;
    Call m_now;
    const Bitmap* m_watched = nullptr;
    std::vector<Call> m_draws;
};

const SheetFiles& Files()
{
    static const SheetFiles files;
    return files;
}

std::vector<std::uint8_t> PixelsOf(const Bitmap& bitmap)
{
    const std::uint8_t* const pixels = bitmap.Buffer();
    return {pixels, pixels + static_cast<std::ptrdiff_t>(4) * bitmap.Width() * bitmap.Height()};
}

bool SamePixels(const Bitmap& a, const Bitmap& b)
{
    const std::size_t size =
        std::size_t{4} * static_cast<std::size_t>(a.Width()) * static_cast<std::size_t>(a.Height());
    return a.Width() == b.Width() && a.Height() == b.Height() &&
           (size == 0 || std::memcmp(a.Buffer(), b.Buffer(), size) == 0);
}

class Game
{
public:
    explicit Game(Input& input);
    ~Game();
    Game(const Game&) = delete;
    Game& operator=(const Game&) = delete;

    void Act();
    void Frame();

private:
    static constexpr int kWidth = 72;
    static constexpr int kHeight = 56;
    static constexpr long kPockets = 3;

    static orvane::Settings HostSettings(std::uint64_t& now);
    CPocket& AnyPocket() { return *m_table->GetPocket(m_input.Between(0, kPockets - 1)); }
    double X() { return m_input.Real(-9, 9); }
    double Y() { return m_input.Real(-7, 7); }
    C3DMoveList* NewList(long frames);
    void AddCard();
    void RemoveCard();
    void Fly();
    void Land();
    void ChangeCard();
    void MoveControls();
    void MoveTable();
    void MoveWindow();
    void PaintFelt();
    void SetModes();
    void ResizeScreen();
    void ResizeTarget();

    Input& m_input;
    std::uint64_t m_now = 1000000;
    orvane::Host m_host{HostSettings(m_now)};
    KeepingRenderer m_renderer;
    std::vector<std::unique_ptr<C3DMoveList>> m_lists;
    CDialog m_dialog;
    CDialog m_window;
    Canvas m_felt;
    CControlBase m_anchors[kPockets];
    Canvas m_flying;
    Canvas m_windowPicture;
    Bitmap* m_target = BitmapManager::Instance().Create(60, 44);
    Bitmap* m_repeated = BitmapManager::Instance().Create(60, 44);
    Bitmap* m_feltPicture = BitmapManager::Instance().Create(60, 44);
    Bitmap* m_smallPicture = BitmapManager::Instance().Create(20, 16);
    std::unique_ptr<CCardTable> m_table = std::make_unique<CCardTable>();
};

orvane::Settings Game::HostSettings(std::uint64_t& now)
{
    orvane::Settings settings;
    settings.width = kWidth;
    settings.height = kHeight;
    settings.background = {20, 90, 50, 255};
    settings.clock = [&now] { return now; };
    settings.logSink = [](const char*, orvane::LogLevel, const char*) {};
    return settings;
}

Game::Game(Input& input) : m_input(input)
{
    SetCameraFOV(40, 30);
    m_feltPicture->FillRect({0, 0, 60, 44}, {30, 80, 60, 255});
    m_smallPicture->FillRect({2, 2, 16, 12}, {200, 60, 60, 120});
    m_felt.Create(0, 0, 60, 44);
    m_felt.SetBitmap(m_feltPicture);
    m_flying.Create(0, 0, 60, 44);
    m_flying.SetBitmap(m_target);
    m_windowPicture.Create(1, 1, 20, 16);
    m_windowPicture.SetBitmap(m_smallPicture);
    m_dialog.AddCntrlBefore(&m_felt, nullptr);
    for (CControlBase& anchor : m_anchors) {
        m_dialog.AddCntrlBefore(&anchor, nullptr);
    }
    m_dialog.AddCntrlBefore(&m_flying, nullptr);
    m_window.AddCntrlBefore(&m_windowPicture, nullptr);
    m_dialog.Show();

    m_table->SetCardSize(SheetFiles::kCardWidth, SheetFiles::kCardHeight);
    m_table->SetCardDimension(2, 3);
    m_table->Init(kPockets, SheetFiles::kRows, SheetFiles::kColumns, SheetFiles::kColumns);
    m_table->LoadTextures(Files().sheet.c_str(), Files().back.c_str(), 1, 0.5);
    m_table->SetTargetBitmap(m_target);
    for (long i = 0; i < kPockets; ++i) {
        m_table->GetPocket(i)->SetUseControls(&m_dialog, &m_anchors[i]);
    }
    SetModes();
    AddCard();
}

Game::~Game()
{
    m_table.reset();
    for (Bitmap* bitmap : {m_target, m_repeated, m_feltPicture, m_smallPicture}) {
        BitmapManager::Instance().Destroy(bitmap);
    }
}

C3DMoveList* Game::NewList(long frameCount)
{
    auto list = std::make_unique<C3DMoveList>();
    list->Init(0, m_input.Below(2));
    for (std::uint32_t i = 0; i <= m_input.Below(2); ++i) {
        auto* const move = new C3DMove;
        move->Init(X(), Y(), m_input.Real(8, 30), X(), Y(), m_input.Real(18, 30), frameCount);
        move->SetRotX(180.0 * m_input.Below(2), m_input.OneIn(2) ? 180.0 : m_input.Real(-400, 400));
        if (m_input.OneIn(3)) {
            move->SetRotY(0, m_input.Real(-90, 270));
            move->SetRotZ(0, m_input.Real(-90, 270));
            move->SetScale(1, m_input.Real(0.2, 2.5));
        }
        list->AddMove(move);
    }
    m_lists.push_back(std::move(list));
    return m_lists.back().get();
}

void Game::AddCard()
{
    CPocket& pocket = AnyPocket();
    pocket.AddMove(NewList(1));
    pocket.AddCard(m_input.OneIn(4) ? kFaceDownCard : m_input.Between(0, 5));
    if (m_input.OneIn(2)) {
        pocket.DrawCard(pocket.GetNumCards(), 0, nullptr);
    }
}

void Game::RemoveCard()
{
    CPocket& pocket = AnyPocket();
    if (m_input.OneIn(3)) {
        pocket.RemoveCards();
    } else if (m_input.OneIn(3)) {
        pocket.RemoveCard();
    } else {
        pocket.RemoveCard(m_input.Between(0, 4));
    }
}

void Game::Fly()
{
    CObject* card = nullptr;
    CPocket& pocket = AnyPocket();
    const long position = m_input.Between(1, std::max(1L, pocket.GetNumCards()));
    pocket.GetCard(card, position);
    if (card == nullptr) {
        AddCard();
        return;
    }
    pocket.ShowCard(static_cast<int>(position), m_input.OneIn(8));
    m_table->StartAnim(NewList(m_input.Between(1, 7)), card);
}

void Game::Land()
{
    CObject* card = nullptr;
    CPocket& pocket = AnyPocket();
    const long position = m_input.Between(1, std::max(1L, pocket.GetNumCards()));
    pocket.GetCard(card, position);
    if (card != nullptr) {
        m_table->RemoveObject(card);
        pocket.RemoveCardControl(static_cast<int>(position));
        if (m_input.OneIn(2)) {
            pocket.DrawCard(position, 0, nullptr);
        } else {
            pocket.RedrawCard(position, nullptr);
        }
    }
}

void Game::ChangeCard()
{
    CPocket& pocket = AnyPocket();
    const long position = m_input.Between(1, 4);
    switch (m_input.Below(4)) {
    case 0:
        pocket.SetShaded(position, m_input.Int(1));
        break;
    case 1:
        pocket.ForceRedrawStatics();
        break;
    case 2: {
        CObject* card = nullptr;
        pocket.GetCard(card, position);
        if (card != nullptr) {
            card->StampObject();
        }
        break;
    }
    default:
        pocket.ChangeCard(position, m_input.OneIn(3) ? kFaceDownCard : m_input.Between(0, 6));
    }
}

void Game::MoveControls()
{
    CPocket& pocket = AnyPocket();
    const int position = static_cast<int>(m_input.Between(1, 4));
    switch (m_input.Below(4)) {
    case 0:
        return pocket.LiftCard(position);
    case 1:
        return pocket.ChangeZOrder(position, &m_anchors[m_input.Below(kPockets)]);
    case 2:
        return pocket.ShowCard(position, m_input.OneIn(2));
    default:
        m_dialog.AddCntrlBefore(&m_anchors[m_input.Below(kPockets)], &m_flying);
    }
}

void Game::MoveTable()
{
    const int x = m_input.Int(12);
    const int y = m_input.Int(12);
    m_dialog.SetPos(x, y);
    m_table->SetSurfaceOffset(x, y);
}

void Game::MoveWindow()
{
    switch (m_input.Below(5)) {
    case 0:
        m_window.Hide();
        break;
    case 1:
        m_window.Show();
        break;
    case 2:
        m_dialog.Hide();
        m_dialog.Show();
        break;
    case 3:
        m_windowPicture.SetSize(m_input.Int(24), m_input.Int(24));
        break;
    default:
        m_window.SetPos(m_input.Int(60), m_input.Int(50));
    }
}

/// By hand, so the areas are told by hand.
void Game::PaintFelt()
{
    const render::Rectangle<int> area{m_input.Int(60), m_input.Int(40), m_input.Int(20), m_input.Int(20)};
    const auto shade = static_cast<std::uint8_t>(m_input.Byte());
    if (m_input.OneIn(2)) {
        m_feltPicture->FillRect(area, {shade, 80, 60, m_input.OneIn(2) ? shade : std::uint8_t{255}});
        m_felt.Invalidate();
    } else {
        m_smallPicture->FillRect({area.x % 20, area.y % 16, 5, 5}, {shade, 10, 60, shade});
        // A window may stand at the end of all numbers.
        const auto inside = [](long edge) { return static_cast<int>(std::min(edge, 2147483646L) + 1); };
        Render::Instance().InvalidateArea({inside(m_window.X()), inside(m_window.Y()), 20, 16});
    }
}

void Game::SetModes()
{
    m_table->m_sortByDepth = m_input.Below(2);
    m_table->m_skipStampDrawBefore = m_input.Below(2);
    m_table->m_skipStampDrawAfter = m_input.OneIn(4) ? 1 : 0;
    m_table->m_stampMode = m_input.Between(0, 2);
}

void Game::ResizeScreen()
{
    m_host.SetActiveSize(static_cast<int>(m_input.Between(0, 90)), static_cast<int>(m_input.Between(0, 70)));
    SetCameraFOV(40, 30);
}

void Game::ResizeTarget()
{
    m_target->Realloc(static_cast<int>(m_input.Between(0, 80)), static_cast<int>(m_input.Between(0, 60)));
    m_flying.SetBitmap(m_target);
    m_flying.SetSize(m_target->Width(), m_target->Height());
}

void Game::Act()
{
    using Action = void (Game::*)();
    static constexpr Action kActions[] = {
        &Game::AddCard,      &Game::AddCard,      &Game::RemoveCard, &Game::Fly,        &Game::Fly,
        &Game::Fly,          &Game::Land,         &Game::ChangeCard, &Game::ChangeCard, &Game::MoveControls,
        &Game::MoveTable,    &Game::MoveWindow,   &Game::MoveWindow, &Game::PaintFelt,  &Game::SetModes,
        &Game::ResizeScreen, &Game::ResizeTarget,
    };
    (this->*kActions[m_input.Below(std::size(kActions) + 8) % std::size(kActions)])();
}

void Game::Frame()
{
    m_now += m_input.OneIn(4) ? 16667ULL * m_input.Byte() : 16667ULL;
    m_renderer.Watch(m_target);
    m_table->Handler();
    m_host.Compose();
    const Bitmap& screen = m_host.Screen();
    const std::vector<std::uint8_t> fromDamage = PixelsOf(screen);
    m_host.ComposeAll();
    FUZZ_CHECK(fromDamage == PixelsOf(screen));

    m_repeated->Realloc(m_target->Width(), m_target->Height());
    m_renderer.Repeat(m_repeated);
    FUZZ_CHECK(SamePixels(*m_repeated, *m_target));
    ++frames;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    Game game(input);
    for (int frame = 0; frame < kLeastFrames || !input.IsEmpty(); ++frame) {
        game.Act();
        game.Frame();
    }
    return 0;
}

// SPDX-License-Identifier: MIT
#include "tests/reliability/scripted_deal.h"

#include "host/bitmap_manager.h"

#include <cmath>
#include <cstring>
#include <new>

namespace
{

constexpr int kScreenWidth = 120;
constexpr int kScreenHeight = 90;
constexpr double kDepth = 150.0;
constexpr long kFlightFrames = 9;

double FieldOfView(int side)
{
    return 2.0 * std::atan(side / 2.0 / kDepth) * 180.0 / 3.141592653589793;
}

/// Takes bytes into a checksum.
void Mix(std::uint64_t& sum, const void* data, std::size_t size)
{
    const auto* const bytes = static_cast<const unsigned char*>(data);
    for (std::size_t i = 0; i < size; ++i)
        sum = (sum ^ bytes[i]) * 0x100000001B3U;
}

/// A new move that the list has taken over.
C3DMove& AddMove(C3DMoveList& list, std::unique_ptr<C3DMove> move)
{
    list.AddMove(move.get());
    return *move.release();
}

double ColumnX(int column)
{
    return column * 15.0 - 35.75;
}

} // namespace

ScriptedDeal::ScriptedDeal(const DealPictures& pictures) : m_pictures(pictures)
{
    WriteStart();
    WriteDeal();
}

ScriptedDeal::~ScriptedDeal()
{
    m_owner.reset();
    m_table.reset();
    BitmapManager::Instance().Destroy(m_target);
}

void ScriptedDeal::StartHost()
{
    orvane::Settings settings;
    settings.width = kScreenWidth;
    settings.height = kScreenHeight;
    settings.clock = [this] { return m_now; };
    settings.logSink = [](const char*, orvane::LogLevel, const char*) {};
    m_host.emplace(settings);
    SetCameraFOV(FieldOfView(kScreenWidth), FieldOfView(kScreenHeight));
}

void ScriptedDeal::LoadTextures()
{
    m_table->SetCardSize(DealPictures::kWidth, DealPictures::kHeight);
    m_table->SetAdditionalCardSize(DealPictures::kWidth, DealPictures::kHeight);
    m_table->SetCardDimension(DealPictures::kWidth / 2.0, DealPictures::kHeight / 2.0);
    // A file that does not fit into memory is reported as one that cannot be loaded.
    if (m_table->LoadTextures(m_pictures.sheet.Path(), m_pictures.back.Path(), 1, 0.5) == 0 ||
        m_table->LoadAdditionalCardTexture(m_pictures.sheet.Path()) == 0)
        throw std::bad_alloc();
}

void ScriptedDeal::MakeTarget()
{
    if (m_target == nullptr)
        m_target = BitmapManager::Instance().Create(kScreenWidth, kScreenHeight);
    m_table->SetTargetBitmap(m_target);
    m_table->m_skipStampDrawBefore = 1;
    m_canvas.Create(0, 0, kScreenWidth, kScreenHeight);
    m_canvas.SetBitmap(m_target);
}

void ScriptedDeal::ShowDialog()
{
    for (CControlBase* control : {&m_stockAnchor, &m_pileAnchor, static_cast<CControlBase*>(&m_canvas)})
        m_dialog.AddCntrlBefore(control, nullptr);
    m_dialog.Show();
    Stock().SetUseControls(&m_dialog, &m_stockAnchor);
    Pile().SetUseControls(&m_dialog, &m_pileAnchor);
    Pile().SetUseAdditionalTexture(1);
}

void ScriptedDeal::SetRest(C3DMoveList& list, int column, double turn)
{
    list.Init(0, 0);
    auto move = std::make_unique<C3DMove>();
    move->Init(ColumnX(column), 20.25, kDepth, ColumnX(column), 20.25, kDepth, 1);
    move->SetRotX(turn, turn);
    AddMove(list, std::move(move));
}

void ScriptedDeal::WriteStart()
{
    start.emplace_back([this] { StartHost(); });
    start.emplace_back([this] { m_table = std::make_unique<CCardTable>(); });
    start.emplace_back([this] { m_table->Init(2, 2, DealPictures::kColumns, DealPictures::kColumns); });
    start.emplace_back([this] { LoadTextures(); });
    start.emplace_back([this] { MakeTarget(); });
    start.emplace_back([this] { ShowDialog(); });
    for (int i = 0; i < kCards; ++i) {
        start.emplace_back([this, i] { SetRest(m_stockRest[i], i, 0.0); });
        start.emplace_back([this, i] { SetRest(m_pileRest[i], i + 3, 180.0); });
        start.emplace_back([this, i] { Stock().AddMove(&m_stockRest[i]); });
        start.emplace_back([this, i] { Pile().AddMove(&m_pileRest[i]); });
    }
}

void ScriptedDeal::WriteFrames(int count)
{
    for (int i = 0; i < count; ++i) {
        deal.emplace_back([this] {
            m_now += 16667;
            m_table->Handler();
        });
        deal.emplace_back([this] { m_host->Compose(); });
        deal.emplace_back([this] { ++m_numFrames; });
    }
}

/// The card on top of the stock becomes one of the pile's and flies there.
void ScriptedDeal::WriteFlight(int number)
{
    deal.emplace_back([this] { Pile().AddCard(Stock().GetCard()); });
    deal.emplace_back([this, number] {
        C3DMoveList& flight = m_flights[number];
        flight.Init(0, 1);
        auto move = std::make_unique<C3DMove>();
        move->Init(ColumnX(kCards - 1 - number), 20.25, kDepth, ColumnX(number + 3), 20.25, kDepth, kFlightFrames);
        move->SetZ(kDepth, -0.4, kDepth, -0.4);
        move->SetRotX(0.0, 180.0);
        AddMove(flight, std::move(move));
    });
    deal.emplace_back([this, number] {
        CObject* card = nullptr;
        Pile().GetCard(card);
        m_table->StartAnim(&m_flights[number], card);
    });
    deal.emplace_back([this] { Stock().RemoveCard(Stock().GetNumCards()); });
}

void ScriptedDeal::WriteLanding(int number)
{
    deal.emplace_back([this, number] {
        CObject* card = nullptr;
        Pile().GetCard(card, number + 1);
        m_table->RemoveObject(card);
    });
    deal.emplace_back([this, number] { Pile().DrawCard(number + 1, 0, nullptr); });
}

/// A card of nobody's pocket, which goes with the list that flies it.
void ScriptedDeal::WriteOwnedCard()
{
    deal.emplace_back([this] {
        m_owner = std::make_unique<C3DMoveList>();
        m_owner->Init(1, 0);
    });
    for (int i = 0; i < 2; ++i) {
        deal.emplace_back([this] {
            auto move = std::make_unique<C3DMove>();
            move->Init(0.0, -20.0, kDepth, 30.0, -20.0, kDepth, 3);
            AddMove(*m_owner, std::move(move));
        });
    }
    deal.emplace_back([this] {
        std::unique_ptr<CObject> card(m_table->GetCardObj(0, 1, 0.0, 0.0, 1.0, 1.0, 0));
        m_table->AddObject(card.get());
        auto side = std::make_unique<CPolygon>();
        card->AddPolygon(side.get());
        side.release();
        const CSceneHandler copy(*m_table);
        m_table->StartAnim(m_owner.get(), card.get());
        card.release();
    });
}

void ScriptedDeal::WriteDeal()
{
    for (int i = 0; i < kCards; ++i) {
        deal.emplace_back([this, i] { Stock().AddCard(i + 1); });
        deal.emplace_back([this, i] { Stock().DrawCard(i + 1, 0, nullptr); });
    }
    WriteFrames(1);
    for (int i = 0; i < kCards; ++i) {
        WriteFlight(i);
        WriteFrames(2);
    }
    deal.emplace_back([this] { m_table->m_sortByDepth = 1; });
    WriteOwnedCard();
    WriteFrames(static_cast<int>(kFlightFrames) + 2);
    for (int i = 0; i < kCards; ++i)
        WriteLanding(i);
    deal.emplace_back([this] { m_owner.reset(); });
    deal.emplace_back([this] { Pile().ChangeCard(1, 5); });
    deal.emplace_back([this] {
        Pile().SetShaded(2, 1);
        Pile().ForceRedrawStatics();
    });
    deal.emplace_back([this] {
        CRect total;
        CRect* pointer = &total;
        Pile().GetTotalClip(pointer);
    });
    WriteFrames(2);
    deal.emplace_back([this] { NoteRest(); });
    deal.emplace_back([this] { Pile().RemoveCards(); });
    deal.emplace_back([this] { m_table->m_sortByDepth = 0; });
    WriteFrames(1);
}

void ScriptedDeal::NoteRest()
{
    const Bitmap& screen = m_host->Screen();
    m_atRest = 0xCBF29CE484222325U;
    Mix(m_atRest, screen.Buffer(),
        std::size_t{4} * static_cast<std::size_t>(screen.Width()) * static_cast<std::size_t>(screen.Height()));
    for (long position = 1; position <= Pile().GetNumCards(); ++position) {
        CObject* card = nullptr;
        const long value = Pile().GetCard(card, position);
        Mix(m_atRest, &value, sizeof value);
        double placement[7];
        card->GetPosition(placement[0], placement[1], placement[2]);
        card->GetRotate(placement[3], placement[4], placement[5]);
        card->GetScale(placement[6]);
        Mix(m_atRest, placement, sizeof placement);
    }
}

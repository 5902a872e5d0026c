// SPDX-License-Identifier: MIT
#include "bench/table_scene.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <stdexcept>

namespace bench
{

namespace
{

constexpr int kColumns = 13;
constexpr int kRows = 4;
constexpr int kCardsAPocket = 52;
constexpr std::uint32_t kFramePeriod = 16667;
/// The part of the table at the top that the single flight has to itself, pixels.
constexpr int kFlightHeight = 260;
/// The projection cuts fractions of half pixels off: a quarter pixel keeps whole pixels whole.
constexpr double kAim = 0.25;
constexpr double kFaceUp = 180.0; ///< about x

orvane::Settings HostSettings(int width, int height, const std::uint64_t& now)
{
    orvane::Settings settings;
    settings.width = width;
    settings.height = height;
    settings.framePeriod = kFramePeriod;
    settings.clock = [&now] { return now; };
    return settings;
}

/// Numbers from 0 to 1 that fill that range evenly, wherever the sequence is cut off; each axis has its own step.
double Spread(int number, double step)
{
    const double value = (number + 0.5) * step;
    return value - std::floor(value);
}
// Powers of the real root of x^5 = x + 1, whose multiples fill several dimensions at once.
constexpr double kStep1 = 0.8566748838545029;
constexpr double kStep2 = 0.7338918566271260;
constexpr double kStep3 = 0.6287067210378087;
constexpr double kStep4 = 0.5385972572236101;

void Append(C3DMoveList& moves, std::unique_ptr<C3DMove> move)
{
    moves.AddMove(move.get());
    move.release();
}

double FieldOfView(double halfSide, double distance)
{
    return 2.0 * std::atan(halfSide / distance) * 180.0 / std::numbers::pi;
}

std::int64_t AreaOf(const CRect& rect)
{
    return std::int64_t{rect.Width()} * rect.Height();
}

CRect Common(const CRect& a, const CRect& b)
{
    CRect common;
    common.Set(std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
               std::min(a.bottom, b.bottom));
    if (common.Width() <= 0 || common.Height() <= 0) {
        common.Set(0, 0, 0, 0);
    }
    return common;
}

} // namespace

TableScene::TableScene(int width, int height, int resting)
    : m_width(width), m_height(height), m_host(HostSettings(width, height, m_now)), m_picture(DrawTable(width, height)),
      m_target(MakeBitmap(width, height))
{
    m_pictureCanvas.Create(0, 0, width, height);
    m_pictureCanvas.SetBitmap(m_picture.get());
    m_flightCanvas.Create(0, 0, width, height);
    m_flightCanvas.SetBitmap(m_target.get());
    m_dialog.AddCntrlBefore(&m_pictureCanvas, nullptr);
    m_dialog.AddCntrlBefore(&m_flightCanvas, nullptr);
    m_dialog.Show();

    m_table.SetCardSize(kCardWidth, kCardHeight);
    m_table.SetCardDimension(kCardWidth / 2.0, kCardHeight / 2.0);
    m_table.Init(resting / kCardsAPocket + 1, kRows, kColumns, kColumns);
    m_table.m_skipStampDrawBefore = 1;
    m_table.SetTargetBitmap(m_target.get());
    const double distance = 0.9 * std::max<double>(width, height * 16.0 / 9.0);
    SetCameraFOV(FieldOfView(width / 2, distance), FieldOfView(height / 2, distance));
    m_table.GetActiveCamera()->SetPosition(0.0, 0.0, -distance);

    const TemporaryPicture sheet(*DrawSheet(kColumns, kRows, kCardWidth, kCardHeight));
    const TemporaryPicture back(*DrawSheet(1, 1, kCardWidth, kCardHeight));
    if (m_table.LoadTextures(sheet.Path(), back.Path(), 0, 1.0) == 0) {
        throw std::runtime_error("cannot load the card sheet");
    }
    Rest(resting);
    m_host.Compose();
}

TableScene::~TableScene()
{
    m_flights.clear();
    m_table.Exit();
}

void TableScene::Rest(int count)
{
    for (long pocket = 0; m_table.GetPocket(pocket) != nullptr; ++pocket) {
        m_table.GetPocket(pocket)->SetUseControls(&m_dialog, &m_flightCanvas);
    }
    constexpr int kTop = 40;
    const int under = std::min(count, kUnderFlight);
    for (int i = 0; i < under; ++i) {
        LayDown(i / kCardsAPocket, i, (2 * i + 1) * m_width / (2 * kUnderFlight) - kCardWidth / 2, kTop);
    }
    for (int i = under; i < count; ++i) {
        const double left = Spread(i, kStep1) * (m_width - kCardWidth);
        const double top = kFlightHeight + Spread(i, kStep2) * (m_height - kFlightHeight - kCardHeight);
        LayDown(i / kCardsAPocket, i, static_cast<int>(left), static_cast<int>(top));
    }
}

void TableScene::LayDown(long pocketIndex, int value, int left, int top)
{
    CPocket& pocket = *m_table.GetPocket(pocketIndex);
    const double x = WorldX(left + kCardWidth / 2.0 + kAim);
    const double y = WorldY(top + kCardHeight / 2.0 + kAim);
    auto move = std::make_unique<C3DMove>();
    move->Init(x, y, 0.0, x, y, 0.0, 1);
    move->SetRotX(kFaceUp, kFaceUp);
    auto rest = std::make_unique<C3DMoveList>();
    Append(*rest, std::move(move));
    pocket.AddMove(rest.get());
    m_rests.push_back(std::move(rest));
    pocket.AddCard(value % (kColumns * kRows));
    pocket.DrawCard(pocket.GetNumCards(), 0, nullptr);
}

void TableScene::FlyOne()
{
    constexpr int kPixelsAFrame = 10;
    constexpr double kMargin = 80.0;
    const Pose from{WorldX(kMargin), WorldY(80.0), 0.0, kFaceUp - 40.0, -20.0};
    const Pose to{WorldX(m_width - kMargin), WorldY(110.0), 0.0, kFaceUp + 40.0, 20.0};
    Fly(from, to, static_cast<int>(to.x - from.x) / kPixelsAFrame, 0);
}

void TableScene::FlyMany(int count, bool farToNear)
{
    constexpr int kFrames = 60;
    m_table.m_sortByDepth = farToNear ? 1 : 0;
    for (int i = 0; i < count; ++i) {
        const auto pose = [&](double first, double second, double third) {
            return Pose{WorldX((0.1 + 0.8 * first) * m_width), WorldY((0.1 + 0.8 * second) * m_height),
                        20.0 - 40.0 * third, kFaceUp - 60.0 + 120.0 * third, 90.0 * first - 45.0};
        };
        Fly(pose(Spread(i, kStep1), Spread(i, kStep2), Spread(i, kStep3)),
            pose(Spread(i, kStep4), Spread(i, kStep1), Spread(i, kStep2)), kFrames, i);
    }
}

void TableScene::Fly(const Pose& from, const Pose& to, int frames, int value)
{
    Flight flight;
    flight.card.reset(m_table.GetCardObj(value / kColumns % kRows, value % kColumns, 0.0, 0.0, 1.0, 1.0, 0));
    flight.moves = std::make_unique<C3DMoveList>();
    flight.moves->Init(0, 1);
    const auto leg = [&](const Pose& a, const Pose& b) {
        auto move = std::make_unique<C3DMove>();
        move->Init(a.x, a.y, a.z, b.x, b.y, b.z, frames);
        move->SetRotX(a.rotX, b.rotX);
        move->SetRotZ(a.rotZ, b.rotZ);
        Append(*flight.moves, std::move(move));
    };
    leg(from, to);
    leg(to, from);
    m_table.StartAnim(flight.moves.get(), flight.card.get());
    m_flights.push_back(std::move(flight));
    m_loop = std::max(m_loop, 2 * frames - 2); // a little less than the moves last, so that none ever ends
}

const std::vector<render::Rectangle<int>>& TableScene::Run()
{
    m_now += kFramePeriod;
    if (++m_frame % m_loop == 0) {
        for (const Flight& flight : m_flights) {
            flight.moves->First();
        }
    }
    m_table.Handler();
    return m_host.Compose();
}

TableScene::Pixels TableScene::CountedFrame()
{
    const auto drawn = [this] {
        return m_table.LastDrawnRectsBegin() != m_table.LastDrawnRectsEnd() ? *m_table.LastDrawnRectsBegin() : CRect();
    };
    const CRect before = drawn();
    Pixels pixels;
    for (const render::Rectangle<int>& area : Run()) {
        pixels.composed += std::int64_t{area.width} * area.height;
    }
    const CRect now = drawn();
    pixels.moved = AreaOf(before) + AreaOf(now) - AreaOf(Common(before, now));
    return pixels;
}

} // namespace bench

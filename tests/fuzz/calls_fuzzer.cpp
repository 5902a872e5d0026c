// SPDX-License-Identifier: MIT
// The whole exported interface in random order with hostile values. The calls keep the duties of a game and no others:
// cameras, lights, dialogs with pockets and anchors outlive their use, and nobody deletes what another one owns.
#include "cardtable/cardtable.h"
#include "geometry/lifetime.h"
#include "geometry/list_walk.h"
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
#include <memory>
#include <optional>
#include <vector>

namespace
{

Tally calls("calls");

/// A world costs more to make than a step.
constexpr int kLeastSteps = 120;

/// Sets pointers to null when what they name dies.
template <typename T, std::uint32_t count> class Slots final : public LifeListener
{
public:
    explicit Slots(LifeRegistry& registry) : m_registry(registry) { registry.Add(*this); }
    ~Slots() { m_registry.Remove(*this); }
    Slots(const Slots&) = delete;
    Slots& operator=(const Slots&) = delete;

    T*& Any(Input& input) { return m_things[input.Below(count)]; }
    void Ended(const void* thing) noexcept override
    {
        for (T*& slot : m_things) {
            if (slot == thing) {
                slot = nullptr;
            }
        }
    }
    auto begin() { return m_things.begin(); }
    auto end() { return m_things.end(); }

private:
    LifeRegistry& m_registry;
    std::array<T*, count> m_things{};
};

/// Everything a game could hold at once, and the calls it could make.
class World
{
public:
    explicit World(Input& input);
    ~World();
    World(const World&) = delete;
    World& operator=(const World&) = delete;

    void Step();
    void CheckAll();

private:
    using Call = void (World::*)();

    // What to make a call on. Null where nothing of the kind is left.
    CObject* AnyObject();
    CPolygon* AnyPolygon();
    CSceneHandler* AnyScene();
    CCardTable* AnyTable() { return m_tables[m_input.Below(2)].get(); }
    CPocket* AnyPocket();
    Bitmap* AnyBitmap() { return m_bitmaps[m_input.Below(std::size(m_bitmaps))]; }
    CCamera* AnyCamera() { return m_input.OneIn(5) ? nullptr : &m_cameras[m_input.Below(3)]; }
    CLight* AnyLight() { return m_input.OneIn(3) ? nullptr : &m_light; }
    CControlBase* AnyControl();
    CDialog* AnyDialog();
    C3DMove* AnyMove();
    const char* AnyFile();

    long Number(long usual) { return m_input.Number(usual); }
    /// Not as many as the largest grid that is allowed: cutting it takes a second.
    long GridSide()
    {
        const long side = Number(5);
        return side == 65535 || side == 65536 ? 17 : side;
    }
    double Place() { return m_input.Real(-12, 12); }
    double Depth() { return m_input.Real(-5, 60); }
    double Angle() { return m_input.OneIn(2) ? 180.0 * m_input.Below(3) : m_input.Real(-400, 400); }
    double Scale() { return m_input.OneIn(2) ? 1.0 : m_input.Real(-1, 3); }
    double Fraction() { return m_input.OneIn(2) ? 1.0 : m_input.Real(-0.5, 1.5); }

    void MakeTable();
    void EndTable();
    void SetUpTable();
    void LoadTable();
    void AskTable();
    void FrameOfTable();
    void DrawTable();
    void MakeCard();
    void DressCard();

    void FillPocket();
    void EmptyPocket();
    void AskPocket();
    void DrawPocket();
    void ChangePocketCard();
    void SetUpPocket();
    void ShowPocketCards();
    void MovePocketControls();

    void MakeScene();
    void EndScene();
    void CopyScene();
    void SetUpScene();
    void ChangeScene();
    void FrameOfScene();
    void AnimateScene();
    void DrawFrames();
    void AskScene();

    void MakeObject();
    void EndObject();
    void PlaceObject();
    void ChangeObject();
    void DrawObject();

    void MakePolygon();
    void EndPolygon();
    void PlacePolygon();
    void TurnPolygon();
    void DrawPolygon();

    void MakeList();
    void EndList();
    void ChangeList();
    void StepList();
    void MakeMove();
    void ChangeMove();
    void StepMove();
    void PointMove();

    void ChangeBitmap();
    void PaintBitmap();
    void ChangeControl();
    void ChangeDialog();
    void ChangeHost();
    void PassTime();
    void Compose();
    void ChangeProjection();
    void UseRenderer();
    void UseHostList();

    void CheckScene(CSceneHandler& scene);
    void CheckRectangles(CSceneHandler& scene);
    void CheckPocket(CPocket& pocket);
    void CheckDialog(CDialog& dialog);
    bool IsPocketControl(const CControlBase& control);
    template <typename Action> void EveryPocket(Action action);

    Input& m_input;
    std::uint64_t m_now = 1000000;
    std::optional<orvane::Host> m_host;
    CCamera m_cameras[3];
    CLight m_light;
    CDialog m_dialogs[2];
    CControlBase m_anchors[2];
    std::unique_ptr<CDialog> m_looseDialogs[2];
    std::unique_ptr<Canvas> m_canvases[3];
    Bitmap* m_bitmaps[6] = {};
    C3DMove* m_moves[3] = {}; ///< in no list
    CPointMove m_pointMove;
    CLList m_list;
    Slots<CPolygon, 5> m_polygons{PolygonLives()};
    Slots<CObject, 5> m_objects{ObjectLives()};
    Slots<C3DMoveList, 5> m_lists{MoveListLives()};
    std::unique_ptr<CSceneHandler> m_scenes[2];
    std::unique_ptr<CCardTable> m_tables[2];
};

const SheetFiles& Files()
{
    static const SheetFiles files;
    return files;
}

World::World(Input& input) : m_input(input)
{
    m_scenes[0] = std::make_unique<CSceneHandler>();
    m_bitmaps[0] = BitmapManager::Instance().Create(40, 30);
    m_bitmaps[1] = BitmapManager::Instance().Create(9, 7);
    PaintBitmap();
    if (!input.OneIn(48)) {
        ChangeHost();
    }
    if (!input.OneIn(8)) {
        MakeTable();
        SetUpTable();
        LoadTable();
    }
    MakeList();
    MakeObject();
}

World::~World()
{
    // In an order that differs from run to run.
    std::array<Call, 6> ends{&World::EndTable, &World::EndScene,   &World::EndObject,
                             &World::EndList,  &World::EndPolygon, &World::MakeMove};
    std::rotate(ends.begin(), ends.begin() + m_input.Below(6), ends.end());
    for (const Call end : ends) {
        (this->*end)();
        CheckAll();
    }
    for (C3DMoveList*& list : m_lists) {
        delete list;
    }
    for (CObject*& object : m_objects) {
        delete object;
    }
    for (CPolygon*& polygon : m_polygons) {
        if (polygon != nullptr && polygon->m_owner == nullptr) {
            delete polygon;
        }
    }
    for (C3DMove* move : m_moves) {
        delete move;
    }
    for (auto& table : m_tables) {
        table.reset();
    }
    for (Bitmap* bitmap : m_bitmaps) {
        BitmapManager::Instance().Destroy(bitmap);
    }
}

// ---- What to make a call on

CObject* World::AnyObject()
{
    if (m_input.OneIn(2)) {
        if (CPocket* const pocket = AnyPocket()) {
            CObject* card = nullptr;
            pocket->GetCard(card, m_input.Between(1, 4));
            return card;
        }
    }
    return m_objects.Any(m_input);
}

CPolygon* World::AnyPolygon()
{
    if (m_input.OneIn(4)) {
        if (CObject* const object = AnyObject()) {
            return m_input.OneIn(3) ? object->GetClearPoly() : object->GetFrontPoly();
        }
    }
    return m_polygons.Any(m_input);
}

CSceneHandler* World::AnyScene()
{
    const std::uint32_t which = m_input.Below(4);
    return which < 2 ? m_scenes[which].get() : m_tables[which - 2].get();
}

CPocket* World::AnyPocket()
{
    CCardTable* const table = AnyTable();
    return table != nullptr ? table->GetPocket(m_input.OneIn(8) ? Number(3) : m_input.Between(0, 1)) : nullptr;
}

CControlBase* World::AnyControl()
{
    const std::uint32_t which = m_input.Below(8);
    if (which < 2) {
        return &m_anchors[which];
    }
    if (which < 5) {
        return m_canvases[which - 2].get();
    }
    return which == 5 ? nullptr : m_dialogs[which - 6].FirstControl();
}

CDialog* World::AnyDialog()
{
    const std::uint32_t which = m_input.Below(4);
    return which < 2 ? &m_dialogs[which] : m_looseDialogs[which - 2].get();
}

C3DMove* World::AnyMove()
{
    C3DMoveList* const list = m_input.OneIn(2) ? m_lists.Any(m_input) : nullptr;
    return list != nullptr ? list->Get() : m_moves[m_input.Below(3)];
}

const char* World::AnyFile()
{
    switch (m_input.Below(8)) {
    case 0:
        return nullptr;
    case 1:
        return Files().missing.c_str();
    case 2:
        return Files().damaged.c_str();
    case 3:
        return Files().back.c_str();
    default:
        return Files().sheet.c_str();
    }
}

// ---- The table

void World::MakeTable()
{
    auto& table = m_tables[m_input.Below(2)];
    if (table == nullptr) {
        table = std::make_unique<CCardTable>();
    }
}

void World::EndTable()
{
    auto& table = m_tables[m_input.Below(2)];
    if (table != nullptr && m_input.OneIn(2)) {
        table->Exit();
    } else {
        // The table's own camera goes with it, and a scene that was copied from it may name that.
        for (auto& scene : m_scenes) {
            if (scene != nullptr && table != nullptr && scene->GetActiveCamera() == &table->m_camera) {
                scene->SetActiveCamera(nullptr);
            }
        }
        for (auto& other : m_tables) {
            if (other != nullptr && table != nullptr && other != table &&
                other->GetActiveCamera() == &table->m_camera) {
                other->SetActiveCamera(nullptr);
            }
        }
        table.reset();
    }
}

void World::SetUpTable()
{
    CCardTable* const table = AnyTable();
    if (table == nullptr) {
        return;
    }
    table->SetCardDimension(m_input.Real(1, 4), m_input.Real(1, 6));
    if (m_input.OneIn(6)) {
        table->SetCardSize(Number(20), Number(20));
        table->SetAdditionalCardSize(Number(20), Number(20));
    } else {
        table->SetCardSize(SheetFiles::kCardWidth, SheetFiles::kCardHeight);
        table->SetAdditionalCardSize(3, 4);
    }
    table->SetSurfaceOffset(m_input.Int(9), m_input.Int(9));
    table->SetPersistent(AnyBitmap());
    const long pockets = std::min(Number(3), 5L); // there is a test of its own for the end of memory
    if (m_input.OneIn(6)) {
        table->Init(pockets, GridSide(), GridSide(), GridSide());
    } else {
        table->Init(pockets, SheetFiles::kRows, SheetFiles::kColumns, SheetFiles::kColumns);
    }
    calls += 5;
}

void World::LoadTable()
{
    CCardTable* const table = AnyTable();
    if (table == nullptr) {
        return;
    }
    switch (m_input.Below(4)) {
    case 0:
        table->LoadAdditionalCardTexture(AnyFile());
        break;
    case 1:
        table->LoadBackTexture(AnyFile());
        break;
    default:
        table->LoadTextures(m_input.OneIn(4) ? AnyFile() : Files().sheet.c_str(),
                            m_input.OneIn(4) ? AnyFile() : Files().back.c_str(), m_input.Int(1), m_input.Real(-2, 2));
    }
}

void World::AskTable()
{
    CCardTable* const table = AnyTable();
    if (table == nullptr) {
        return;
    }
    table->GetPocket(Number(3));
    table->GetCardTexture(Number(3), Number(3));
    table->GetAdditionalCardTexture(Number(3), Number(3));
    table->GetShadedCardTexture(Number(3), Number(3));
    table->HasTargetBitmap();
    calls += 4;
}

void World::FrameOfTable()
{
    CCardTable* const table = AnyTable();
    if (table == nullptr) {
        return;
    }
    if (m_input.OneIn(4)) {
        table->EraseLastDrawnRegions();
    }
    if (m_input.OneIn(4)) {
        table->InvalidateDrawnRegions();
    }
    m_now += 16667;
    table->Handler();
    CheckRectangles(*table);
    calls += 1;
}

void World::DrawTable()
{
    CCardTable* const table = AnyTable();
    if (table == nullptr) {
        return;
    }
    Bitmap* const target = AnyBitmap();
    switch (m_input.Below(6)) {
    case 0:
        return table->Draw(Number(3), target);
    case 1:
        return table->Redraw(target);
    case 2:
        return table->DrawPocket(Number(3), Number(3), target);
    case 3:
        return table->DrawCard(Number(3), Number(4), Number(3), target);
    case 4:
        return table->RedrawPocket(Number(3), target);
    default:
        return table->RedrawCard(Number(3), Number(4), target);
    }
}

void World::MakeCard()
{
    CCardTable* const table = AnyTable();
    CObject*& slot = m_objects.Any(m_input);
    if (table != nullptr && slot == nullptr) {
        slot = table->GetCardObj(Number(1), Number(2), Fraction() - 1, Fraction() - 1, Fraction(), Fraction(),
                                 m_input.Int(1));
    }
}

void World::DressCard()
{
    if (CCardTable* const table = AnyTable()) {
        table->ChangeCard(AnyObject(), Number(2), Number(3), m_input.Int(1));
        table->SetShaded(AnyObject(), Number(2), Number(3));
        calls += 1;
    }
}

// ---- A pocket

void World::FillPocket()
{
    CPocket* const pocket = AnyPocket();
    if (pocket == nullptr) {
        return;
    }
    pocket->AddMove(m_lists.Any(m_input));
    pocket->AddCard(m_input.OneIn(6) ? Number(100) : m_input.Between(0, 5));
    pocket->AddCard(m_input.OneIn(4) ? kFaceDownCard : m_input.Between(0, 5));
    calls += 2;
}

void World::EmptyPocket()
{
    CPocket* const pocket = AnyPocket();
    if (pocket == nullptr) {
        return;
    }
    switch (m_input.Below(8)) {
    case 0:
        pocket->RemoveCards();
        break;
    case 1:
        pocket->RemoveMoves();
        break;
    case 2:
    case 3:
        pocket->RemoveCard();
        break;
    default:
        pocket->RemoveCard(Number(4));
    }
}

void World::AskPocket()
{
    CPocket* const pocket = AnyPocket();
    if (pocket == nullptr) {
        return;
    }
    CObject* card = nullptr;
    pocket->GetCard();
    pocket->GetCard(card);
    pocket->GetCard(card, Number(4));
    pocket->GetCard(Number(4));
    pocket->GetMove(Number(4));
    CPolygon* polygon = nullptr;
    pocket->GetClearPoly(Number(4), polygon);
    CRect* clip = nullptr;
    pocket->GetClip(Number(4), clip);
    CRect total;
    clip = m_input.OneIn(4) ? nullptr : &total;
    pocket->GetTotalClip(clip);
    pocket->StaticCardMember(m_input.Int(4));
    pocket->GetUseAdditionalTexture();
    calls += 9;
}

void World::DrawPocket()
{
    CPocket* const pocket = AnyPocket();
    if (pocket == nullptr) {
        return;
    }
    pocket->m_skipTopCard = m_input.Int(1);
    switch (m_input.Below(4)) {
    case 0:
        return pocket->Draw(Number(2), AnyBitmap());
    case 1:
        return pocket->DrawCard(Number(4), Number(2), AnyBitmap());
    case 2:
        return pocket->Redraw(AnyBitmap());
    default:
        return pocket->RedrawCard(Number(4), AnyBitmap());
    }
}

void World::ChangePocketCard()
{
    if (CPocket* const pocket = AnyPocket()) {
        pocket->ChangeCard(Number(4), m_input.OneIn(4) ? kFaceDownCard : Number(6));
        pocket->SetShaded(Number(4), m_input.Int(1));
        calls += 1;
    }
}

void World::SetUpPocket()
{
    CPocket* const pocket = AnyPocket();
    if (pocket == nullptr) {
        return;
    }
    pocket->SetCamera(AnyCamera());
    pocket->SetUseAdditionalTexture(m_input.Int(1));
    if (m_input.OneIn(3)) {
        CDialog* const dialog = m_input.OneIn(5) ? nullptr : &m_dialogs[m_input.Below(2)];
        CControlBase* const anchor = m_input.OneIn(5) ? nullptr : &m_anchors[m_input.Below(2)];
        pocket->SetUseControls(dialog, anchor);
    }
    calls += 2;
}

void World::ShowPocketCards()
{
    CPocket* const pocket = AnyPocket();
    if (pocket == nullptr) {
        return;
    }
    pocket->ShowCard(m_input.Int(4), m_input.OneIn(2));
    pocket->AddStaticCard(AnyObject(), m_input.Int(4), m_lists.Any(m_input));
    if (m_input.OneIn(3)) {
        pocket->ForceRedrawStatics();
    }
    calls += 1;
}

void World::MovePocketControls()
{
    CPocket* const pocket = AnyPocket();
    if (pocket == nullptr) {
        return;
    }
    switch (m_input.Below(5)) {
    case 0:
        return pocket->LiftCard(m_input.Int(4));
    case 1:
        return pocket->ChangeZOrder(m_input.Int(4), AnyControl());
    case 2:
        return pocket->RemoveCardControl(m_input.Int(4));
    case 3:
        return pocket->RemoveLastCardControl();
    default:
        return pocket->RemoveAllCardControls();
    }
}

// ---- A scene

void World::MakeScene()
{
    auto& scene = m_scenes[m_input.Below(2)];
    if (scene == nullptr) {
        scene = std::make_unique<CSceneHandler>();
    }
}

void World::EndScene()
{
    m_scenes[m_input.Below(2)].reset();
}

void World::CopyScene()
{
    const CSceneHandler* const from = AnyScene();
    if (from == nullptr) {
        return;
    }
    if (m_input.OneIn(2)) {
        const CSceneHandler copy(*from);
        calls += 1;
    } else if (CSceneHandler* const to = AnyScene()) {
        *to = *from;
    }
}

void World::SetUpScene()
{
    CSceneHandler* const scene = AnyScene();
    if (scene == nullptr) {
        return;
    }
    scene->Init(Number(9), Number(9));
    if (!m_input.OneIn(3)) {
        scene->SetTargetBitmap(AnyBitmap());
    }
    if (m_input.OneIn(4)) {
        scene->SetActiveCamera(AnyCamera());
        scene->SetLight(AnyLight());
    }
    scene->m_stampMode = Number(2);
    scene->m_skipStampDrawBefore = Number(1);
    scene->m_skipStampDrawAfter = Number(1);
    scene->m_sortByDepth = Number(1);
    calls += 3;
}

void World::ChangeScene()
{
    CSceneHandler* const scene = AnyScene();
    if (scene == nullptr) {
        return;
    }
    switch (m_input.Below(12)) {
    case 0:
        return scene->RemoveAllPolygons();
    case 1:
        return scene->RemoveAllCameras();
    case 2:
        return scene->AddCamera(AnyCamera());
    case 3:
        return scene->RemoveCamera(AnyCamera());
    case 4:
    case 5:
        return scene->AddPolygon(AnyPolygon());
    case 6:
        return scene->RemovePolygon(AnyPolygon());
    case 7:
        return scene->RemoveObject(AnyObject());
    default:
        return scene->AddObject(AnyObject());
    }
}

void World::FrameOfScene()
{
    CSceneHandler* const scene = AnyScene();
    if (scene == nullptr) {
        return;
    }
    m_now += 16667;
    if (m_input.OneIn(8)) {
        scene->UpdateAllMoves();
        scene->PushLastDrawnRect();
        calls += 1;
    } else {
        scene->Handler();
        CheckRectangles(*scene);
    }
}

void World::AnimateScene()
{
    CSceneHandler* const scene = AnyScene();
    if (scene == nullptr) {
        return;
    }
    if (m_input.OneIn(3)) {
        scene->InsertMoveList(m_lists.Any(m_input), Number(1), Number(9));
    } else {
        scene->StartAnim(m_lists.Any(m_input), AnyObject());
    }
}

void World::DrawFrames()
{
    CSceneHandler* const scene = AnyScene();
    if (scene == nullptr) {
        return;
    }
    if (m_input.OneIn(2)) {
        scene->DrawFirstFrame(m_lists.Any(m_input), AnyObject(), AnyBitmap());
    } else {
        scene->DrawLastFrame(m_lists.Any(m_input), AnyObject(), AnyBitmap());
    }
}

void World::AskScene()
{
    CSceneHandler* const scene = AnyScene();
    if (scene == nullptr) {
        return;
    }
    long x = 0;
    long y = 0;
    scene->ProjectPoint2Screen(Place(), Place(), Depth(), x, y);
    scene->IsPointInside(m_input.OneIn(2) ? x : Number(90), m_input.OneIn(2) ? y : Number(70), AnyObject());
    scene->IsAnyPolyAnim();
    scene->GetLight();
    calls += 3;
}

// ---- An object

void World::MakeObject()
{
    CObject*& slot = m_objects.Any(m_input);
    if (slot == nullptr) {
        slot = new CObject;
        CPolygon* const polygon = new CPolygon;
        polygon->Set3D(-2, 3, 0, 2, 3, 0, 2, -3, 0, -2, -3, 0);
        polygon->SetTexture(AnyBitmap(), 9, 7, 0, 0, 1, 1);
        slot->AddPolygon(polygon);
        calls += 2;
    }
}

void World::EndObject()
{
    delete m_objects.Any(m_input); // the slot is emptied by the object's end
}

void World::PlaceObject()
{
    CObject* const object = AnyObject();
    if (object == nullptr) {
        return;
    }
    object->SetPosition(Place(), Place(), Depth());
    object->SetRotate(Angle(), Angle(), Angle());
    object->SetScale(Scale());
    double x = 0;
    double y = 0;
    double z = 0;
    object->GetPosition(x, y, z);
    object->GetRotate(x, y, z);
    object->GetScale(x);
    calls += 5;
}

void World::ChangeObject()
{
    CObject* const object = AnyObject();
    if (object == nullptr) {
        return;
    }
    switch (m_input.Below(10)) {
    case 0:
        object->Off();
        break;
    case 1:
        object->StampObject();
        break;
    case 2:
        object->SetCamera(AnyCamera());
        break;
    case 3:
        object->AttachToScene(AnyScene());
        break;
    case 4:
        object->DettachFromScene(AnyScene());
        break;
    case 5:
        object->SetClearPoly(AnyPolygon());
        break;
    case 6: {
        // A card's own object, cloned over, keeps its place in its pocket; its polygons are new.
        object->Clone(AnyObject());
        break;
    }
    case 7:
        object->AddPolygon(AnyPolygon());
        break;
    default:
        object->On();
    }
}

void World::DrawObject()
{
    CObject* const object = AnyObject();
    if (object == nullptr) {
        return;
    }
    object->Draw(AnyScene(), AnyBitmap());
    object->IsPointInside(Number(90), Number(70), AnyScene());
    object->GetClip();
    object->GetFrontPoly();
    calls += 3;
}

// ---- A polygon

void World::MakePolygon()
{
    CPolygon*& slot = m_polygons.Any(m_input);
    if (slot != nullptr) {
        return;
    }
    const CPolygon* const other = AnyPolygon();
    slot = other != nullptr && m_input.OneIn(3) ? new CPolygon(*other) : new CPolygon;
    slot->On();
    calls += 1;
}

void World::EndPolygon()
{
    CPolygon* const polygon = m_polygons.Any(m_input);
    if (polygon != nullptr && polygon->m_owner == nullptr) {
        delete polygon;
    }
}

void World::PlacePolygon()
{
    CPolygon* const polygon = AnyPolygon();
    if (polygon == nullptr) {
        return;
    }
    polygon->SetPosition(Place(), Place(), Depth());
    polygon->SetRotate(Angle(), Angle(), Angle());
    polygon->SetScale(Scale());
    double values[12];
    for (double& value : values) {
        value = m_input.Real(-4, 4);
    }
    polygon->Set3D(m_input.OneIn(8) ? nullptr : values);
    polygon->SetTexture(AnyBitmap(), m_input.Int(20), m_input.Int(20), Fraction() - 1, Fraction() - 1, Fraction(),
                        Fraction());
    calls += 4;
}

void World::TurnPolygon()
{
    CPolygon* const polygon = AnyPolygon();
    if (polygon == nullptr) {
        return;
    }
    switch (m_input.Below(8)) {
    case 0:
        return polygon->Rotate(Angle(), Angle(), Angle());
    case 1:
        return polygon->ResetCoords();
    case 2:
        return polygon->Clone(AnyPolygon());
    case 3:
        if (const CPolygon* const other = AnyPolygon()) {
            *polygon = *other;
        }
        return;
    case 4:
        return polygon->SetStamp(Number(1));
    case 5:
        return polygon->Off();
    case 6:
        return polygon->SetParent(AnyObject());
    default:
        return polygon->On();
    }
}

void World::DrawPolygon()
{
    CPolygon* const polygon = AnyPolygon();
    if (polygon == nullptr) {
        return;
    }
    polygon->RotatePolygon();
    polygon->Project(AnyCamera());
    polygon->IsPointInside(Number(90), Number(70));
    polygon->GetBoundingBox();
    CRect clip;
    polygon->DrawToSurface(AnyBitmap(), m_input.OneIn(3) ? nullptr : &clip);
    double x = 0;
    double y = 0;
    double z = 0;
    polygon->GetPoint(Number(4), x, y, z);
    polygon->ResetCoords();
    calls += 6;
}

// ---- Moves and lists

void World::MakeList()
{
    C3DMoveList*& slot = m_lists.Any(m_input);
    if (slot == nullptr) {
        slot = new C3DMoveList;
    }
    auto* const move = new C3DMove;
    move->Init(Place(), Place(), Depth(), Place(), Place(), Depth(),
               m_input.OneIn(8) ? Number(9) : m_input.Between(1, 6));
    move->SetRotX(Angle(), Angle());
    slot->AddMove(move);
    calls += 3;
}

void World::EndList()
{
    delete m_lists.Any(m_input); // the slot is emptied by the list's end
}

void World::ChangeList()
{
    C3DMoveList* const list = m_lists.Any(m_input);
    if (list == nullptr) {
        return;
    }
    switch (m_input.Below(6)) {
    case 0:
        list->Init(Number(1), Number(1));
        break;
    case 1:
        list->RemoveAll();
        break;
    case 2: {
        C3DMove*& slot = m_moves[m_input.Below(3)];
        if (slot == nullptr) {
            slot = list->Get();
            list->Delete();
        }
        break;
    }
    case 3: {
        // A move of another list, or of this one, stays where it is.
        C3DMove* const move = AnyMove();
        list->AddMove(move);
        for (C3DMove*& slot : m_moves) {
            if (slot != nullptr && slot->m_held) {
                slot = nullptr;
            }
        }
        break;
    }
    case 4:
        list->StampObject();
        break;
    default:
        if (m_input.OneIn(4)) {
            delete list->Get();
        } else {
            list->Init(0, Number(1));
        }
    }
}

void World::StepList()
{
    C3DMoveList* const list = m_lists.Any(m_input);
    if (list == nullptr) {
        return;
    }
    for (int i = 0; i < 4; ++i) {
        switch (m_input.Below(8)) {
        case 0:
            list->First();
            break;
        case 1:
            list->Last();
            break;
        case 2:
            list->Prev();
            break;
        case 3:
            list->SkipAhead();
            break;
        case 4:
            list->Set3D();
            break;
        case 5:
            list->Exists();
            break;
        default:
            m_now += m_input.OneIn(4) ? m_input.Word() : 16667;
            list->Next(Number(1));
        }
    }
    calls += 3;
}

void World::MakeMove()
{
    C3DMove*& slot = m_moves[m_input.Below(3)];
    if (slot != nullptr) {
        delete slot;
        slot = nullptr;
        return;
    }
    const C3DMove* const other = AnyMove();
    slot = other != nullptr && m_input.OneIn(3) ? new C3DMove(*other) : new C3DMove;
}

void World::ChangeMove()
{
    C3DMove* const move = AnyMove();
    if (move == nullptr) {
        return;
    }
    const long frames = m_input.OneIn(3) ? Number(20) : m_input.Between(1, 5);
    switch (m_input.Below(7)) {
    case 0:
        move->Init(AnyObject(), frames);
        break;
    case 1:
        move->Init(AnyCamera(), frames);
        break;
    case 2:
        move->Init(AnyPolygon(), frames);
        break;
    case 3:
        move->Exit();
        break;
    case 4:
        if (const C3DMove* const other = AnyMove()) {
            *move = *other;
        }
        break;
    case 5:
        move->SetX(Place(), Fraction(), Place(), Fraction());
        move->SetY(Place(), Fraction(), Place(), Fraction());
        move->SetZ(Depth(), Fraction(), Depth(), Fraction());
        move->SetRotX(Angle(), Fraction(), Angle(), Fraction());
        move->SetRotY(Angle(), Fraction(), Angle(), Fraction());
        move->SetRotZ(Angle(), Fraction(), Angle(), Fraction());
        move->SetScale(Scale(), Fraction(), Scale(), Fraction());
        calls += 6;
        break;
    default:
        move->SetX(Place(), Place());
        move->SetY(Place(), Place());
        move->SetZ(Depth(), Depth());
        move->SetRotX(Angle(), Angle());
        move->SetRotY(Angle(), Angle());
        move->SetRotZ(Angle(), Angle());
        move->SetScale(Scale(), Scale());
        calls += 6;
    }
}

void World::StepMove()
{
    C3DMove* const move = AnyMove();
    if (move == nullptr) {
        return;
    }
    switch (m_input.Below(4)) {
    case 0:
        move->First();
        break;
    case 1:
        move->Prev();
        break;
    case 2:
        move->Last();
        break;
    default:
        move->Next();
    }
    double x = 0;
    double y = 0;
    double z = 0;
    move->Set3D();
    move->Get3DPos(x, y, z);
    move->Get3DRot(x, y, z);
    move->IsLast();
    move->Exists();
    move->GetObjectPtr();
    calls += 6;
}

void World::PointMove()
{
    if (m_input.OneIn(2)) {
        m_pointMove.Set(Place(), Place(), Number(300));
    } else {
        m_pointMove.Set(Place(), Fraction(), Place(), Fraction(), Number(300));
    }
    m_pointMove.Advance(std::max(0L, Number(300)));
    m_pointMove.Prev();
    m_pointMove.GetPoint();
    m_pointMove.FramesLeft();
    m_pointMove.Last();
    m_pointMove.Next();
    m_pointMove.GetPoint();
    calls += 7;
}

// ---- The host

void World::ChangeBitmap()
{
    Bitmap*& bitmap = m_bitmaps[m_input.Below(std::size(m_bitmaps))];
    if (bitmap == nullptr) {
        bitmap = BitmapManager::Instance().Create(m_input.Int(40), m_input.Int(40));
    } else if (m_input.OneIn(2)) {
        bitmap->Realloc(m_input.Int(40), m_input.Int(40));
    } else if (m_input.OneIn(2)) {
        Bitmap* destroyed = bitmap; // the slot goes on naming it
        BitmapManager::Instance().Destroy(destroyed);
    } else {
        BitmapManager::Instance().Destroy(bitmap);
    }
}

void World::PaintBitmap()
{
    Bitmap* const bitmap = AnyBitmap();
    if (bitmap == nullptr) {
        return;
    }
    const auto shade = static_cast<std::uint8_t>(m_input.Byte());
    bitmap->FillRect({m_input.Int(20), m_input.Int(20), m_input.Int(40), m_input.Int(40)}, {shade, 200, 90, shade});
    render::Rectangle<int> cleared{m_input.Int(20), m_input.Int(20), m_input.Int(9), m_input.Int(9)};
    bitmap->ClearRect(cleared);
    Render::Instance().Copy(AnyBitmap(), bitmap, m_input.Int(20), m_input.Int(20), m_input.Int(20), m_input.Int(20),
                            m_input.Int(40), m_input.Int(40));
    calls += 2;
}

void World::ChangeControl()
{
    auto& slot = m_canvases[m_input.Below(3)];
    if (slot == nullptr) {
        slot = std::make_unique<Canvas>();
        slot->Create(Number(20), Number(20), Number(40), Number(40));
    } else if (m_input.OneIn(6)) {
        slot.reset();
    }
    CControlBase* const control = AnyControl();
    if (control == nullptr) {
        return;
    }
    switch (m_input.Below(6)) {
    case 0:
        return control->SetPos(Number(40), Number(40));
    case 1:
        return control->SetSize(Number(40), Number(40));
    case 2:
        return control->SetState(m_input.OneIn(3) ? Number(9) : m_input.OneIn(2) ? 2 : 5);
    case 3:
        return control->Invalidate();
    default:
        if (slot != nullptr) {
            slot->SetBitmap(AnyBitmap());
        }
    }
}

void World::ChangeDialog()
{
    auto& slot = m_looseDialogs[m_input.Below(2)];
    if (slot == nullptr) {
        slot = std::make_unique<CDialog>();
    } else if (m_input.OneIn(6)) {
        slot.reset();
    }
    CDialog* const dialog = AnyDialog();
    if (dialog == nullptr) {
        return;
    }
    switch (m_input.Below(8)) {
    case 0:
        return dialog->SetPos(Number(20), Number(20));
    case 1:
        return dialog->Hide();
    case 2:
        dialog->RemoveCntrl(AnyControl());
        return;
    case 3:
        dialog->AddCntrlAfter(AnyControl(), AnyControl());
        return;
    case 4:
    case 5:
        dialog->AddCntrlBefore(AnyControl(), AnyControl());
        return;
    default:
        return dialog->Show();
    }
}

void World::ChangeHost()
{
    if (!m_host) {
        orvane::Settings settings;
        settings.width = 48;
        settings.height = 36;
        settings.clock = [this] { return m_now; };
        settings.logSink = [](const char*, orvane::LogLevel, const char*) {};
        m_host.emplace(settings);
        SetCameraFOV(40, 30);
    } else if (m_input.OneIn(32)) {
        m_host.reset();
    } else {
        m_host->SetActiveSize(static_cast<int>(m_input.Between(0, 70)), static_cast<int>(m_input.Between(0, 70)));
        glb->framePeriod = std::max(1U, m_input.OneIn(4) ? m_input.Word() : 16667U);
    }
}

void World::PassTime()
{
    m_now += m_input.OneIn(3) ? 0 : m_input.Word();
    if (m_input.OneIn(8)) {
        m_now /= 2;
    }
    Tick tick;
    tick.Elapsed();
    tick.Update();
    calls += 2;
}

void World::Compose()
{
    if (!m_host) {
        return;
    }
    if (m_input.OneIn(4)) {
        m_host->ComposeAll();
    } else {
        m_host->Compose();
    }
    Render::Instance().InvalidateArea({m_input.Int(40), m_input.Int(40), m_input.Int(40), m_input.Int(40)});
    calls += 1;
}

void World::ChangeProjection()
{
    if (m_input.OneIn(2)) {
        SetCameraFOV(40, 30);
    } else {
        SetCameraFOV(m_input.Real(-10, 200), m_input.Real(-10, 200));
    }
    CCamera& camera = m_cameras[m_input.Below(3)];
    camera.SetPosition(Place(), Place(), m_input.Real(-20, 5));
    camera.SetRotate(Angle(), Angle(), Angle());
    m_light.SetPosition(Place(), Place(), Place());
    m_light.SetProjectionPlane(Place());
    calls += 4;
}

void World::UseRenderer()
{
    PolygonRender& render = *glb->polygonRender;
    render.SetTexture(AnyBitmap());
    render.SetRenderState(Number(2), Number(2));
    long v[8];
    for (long& value : v) {
        value = Number(90);
    }
    render.SetVertices(v[0], v[1], 0, v[2], v[3], 0, v[4], v[5], 0, v[6], v[7], 0);
    for (long& value : v) {
        value = m_input.OneIn(3) ? Number(90) : static_cast<long>(m_input.Below(2)) * 9 * 65536;
    }
    render.SetTexCoords(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7]);
    CRect clip;
    CRect* clipPointer = m_input.OneIn(3) ? nullptr : &clip;
    render.Draw(AnyBitmap(), clipPointer);
    render.IsPointInside(Number(90), Number(90));
    render.GetBoundingBox();
    render.GetLastDrawnRect();
    calls += 7;
}

void World::UseHostList()
{
    for (int i = 0; i < 4; ++i) {
        switch (m_input.Below(10)) {
        case 0:
            m_list.First();
            break;
        case 1:
            m_list.Last();
            break;
        case 2:
            m_list.Next();
            break;
        case 3:
            m_list.Prev();
            break;
        case 4:
            m_list.Delete(1);
            break;
        case 5:
            m_list.DeleteItem(m_input.OneIn(3) ? nullptr : &m_cameras[m_input.Below(3)]);
            break;
        case 6:
            m_list.IfNotInsertLast(&m_cameras[m_input.Below(3)]);
            break;
        case 7: {
            CLList copy(m_list);
            m_list = copy;
            break;
        }
        default:
            m_list.InsertLast(m_input.OneIn(3) ? nullptr : &m_cameras[m_input.Below(3)], 0);
        }
        FUZZ_CHECK((m_list.Get() == nullptr) || m_list.Exists() != 0);
    }
    calls += 3;
}

// ---- What always holds

/// A polygon stands at most once in a scene, and every one of them lives.
void World::CheckScene(CSceneHandler& scene)
{
    std::vector<const CPolygon*> listed;
    for (const CPolygon* polygon : TypedWalk<CPolygon>(scene.m_polygons)) {
        FUZZ_CHECK(polygon != nullptr);
        listed.push_back(polygon);
        FUZZ_CHECK(polygon->OnFlag() == 0 || polygon->OnFlag() == 1); // reads it
    }
    FUZZ_CHECK(listed.size() == static_cast<std::size_t>(scene.m_polygons.GetNumNodes()));
    std::sort(listed.begin(), listed.end());
    FUZZ_CHECK(std::adjacent_find(listed.begin(), listed.end()) == listed.end());
    for (const CObject* object : TypedWalk<CObject>(scene.m_attached)) {
        FUZZ_CHECK(object->GetClip() != nullptr);
    }
}

/// Every rectangle that a frame recorded lies in the target. Without one the renderer's latest draw was another's.
void World::CheckRectangles(CSceneHandler& scene)
{
    const Bitmap* const target = scene.GetTargetBitmap();
    if (target == nullptr) {
        return;
    }
    for (auto rect = scene.LastDrawnRectsBegin(); rect != scene.LastDrawnRectsEnd(); ++rect) {
        FUZZ_CHECK(!rect->IsEmpty() && rect->left >= 0 && rect->top >= 0);
        FUZZ_CHECK(rect->right <= target->Width() && rect->bottom <= target->Height());
    }
}

/// As many values as cards, each card told to tell of its end, no two controls of one position.
void World::CheckPocket(CPocket& pocket)
{
    FUZZ_CHECK(pocket.m_cards.GetNumNodes() == pocket.m_cardObjects.GetNumNodes());
    FUZZ_CHECK(pocket.m_moves.GetNumNodes() == static_cast<long>(pocket.m_moveSerials.size()));
    for (const CObject* card : TypedWalk<CObject>(pocket.m_cardObjects)) {
        FUZZ_CHECK(card->m_keeper == &pocket.m_cardWatch);
    }
    for (const long* value : TypedWalk<long>(pocket.m_cards)) {
        FUZZ_CHECK(*value >= INT32_MIN && *value <= INT32_MAX);
    }
    for (const CardObjects* record : pocket.m_staticCards) {
        FUZZ_CHECK(record->control != nullptr && record->bitmap != nullptr && record->bitmap->m_alive);
        FUZZ_CHECK(pocket.GetCardObject(record->position) == record);
    }
}

template <typename Action> void World::EveryPocket(Action action)
{
    for (auto& table : m_tables) {
        for (long i = 0; table != nullptr && table->GetPocket(i) != nullptr; ++i) {
            action(*table->GetPocket(i));
        }
    }
}

bool World::IsPocketControl(const CControlBase& control)
{
    bool found = false;
    EveryPocket([&](CPocket& pocket) {
        for (const CardObjects* record : pocket.m_staticCards) {
            found = found || record->control == &control;
        }
    });
    return found;
}

/// No control outlives its pocket: those that are not this game's belong to a pocket that lives.
void World::CheckDialog(CDialog& dialog)
{
    long count = 0;
    for (CControlBase* control = dialog.FirstControl(); control != nullptr; control = control->NextControl()) {
        const bool own = control == &m_anchors[0] || control == &m_anchors[1] ||
                         std::any_of(std::begin(m_canvases), std::end(m_canvases),
                                     [control](const auto& canvas) { return canvas.get() == control; });
        FUZZ_CHECK(control->Window() == &dialog);
        FUZZ_CHECK(own || IsPocketControl(*control));
        ++count;
    }
    FUZZ_CHECK(count == dialog.GetNumControls());
}

void World::CheckAll()
{
    for (auto& scene : m_scenes) {
        if (scene != nullptr) {
            CheckScene(*scene);
        }
    }
    for (auto& table : m_tables) {
        if (table != nullptr) {
            CheckScene(*table);
        }
    }
    EveryPocket([this](CPocket& pocket) { CheckPocket(pocket); });
    for (CDialog& dialog : m_dialogs) {
        CheckDialog(dialog);
    }
    for (auto& dialog : m_looseDialogs) {
        if (dialog != nullptr) {
            CheckDialog(*dialog);
        }
    }
}

void World::Step()
{
    static constexpr Call kCalls[] = {
        &World::MakeTable,        &World::EndTable,     &World::SetUpTable,       &World::LoadTable,
        &World::AskTable,         &World::FrameOfTable, &World::FrameOfTable,     &World::FrameOfTable,
        &World::DrawTable,        &World::MakeCard,     &World::DressCard,        &World::FillPocket,
        &World::FillPocket,       &World::EmptyPocket,  &World::AskPocket,        &World::DrawPocket,
        &World::SetUpPocket,      &World::SetUpPocket,  &World::ChangePocketCard, &World::ShowPocketCards,
        &World::MakeScene,        &World::EndScene,     &World::CopyScene,        &World::SetUpScene,
        &World::SetUpScene,       &World::ChangeScene,  &World::ChangeScene,      &World::FrameOfScene,
        &World::FrameOfScene,     &World::AnimateScene, &World::AnimateScene,     &World::DrawFrames,
        &World::AskScene,         &World::MakeObject,   &World::EndObject,        &World::PlaceObject,
        &World::ChangeObject,     &World::ChangeObject, &World::DrawObject,       &World::MakePolygon,
        &World::EndPolygon,       &World::PlacePolygon, &World::TurnPolygon,      &World::DrawPolygon,
        &World::MakeList,         &World::MakeList,     &World::EndList,          &World::ChangeList,
        &World::StepList,         &World::MakeMove,     &World::ChangeMove,       &World::StepMove,
        &World::PointMove,        &World::ChangeBitmap, &World::PaintBitmap,      &World::ChangeControl,
        &World::ChangeDialog,     &World::ChangeHost,   &World::PassTime,         &World::Compose,
        &World::ChangeProjection, &World::UseRenderer,  &World::UseHostList,      &World::MovePocketControls,
    };
    (this->*kCalls[m_input.Below(std::size(kCalls))])();
    ++calls;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Files();
    Input input(data, size);
    World world(input);
    for (int step = 0; step < kLeastSteps || !input.IsEmpty(); ++step) {
        world.Step();
        world.CheckAll();
    }
    return 0;
}

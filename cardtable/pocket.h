// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/export.h"
#include "geometry/lifetime.h"
#include "host/llist.h"

#include <list>
#include <vector>

class Bitmap;
class C3DMoveList;
class CCamera;
class CCardTable;
class CControlBase;
class CDialog;
class CObject;
class CPolygon;
class CRect;
class Canvas;

/// The control that shows one resting card.
struct CardObjects {
    Canvas* control = nullptr; ///< owned by the pocket
    Bitmap* bitmap = nullptr;  ///< the picture that the control shows; owned by the pocket
    int position = -1;         ///< of the card it shows, from 1
};

/// One pile of cards on the card table, bottom to top. Made and destroyed by the table.
///
/// The pocket owns its card objects and its card controls. Its move lists say where each card comes to rest: list k is
/// that of the card at position k + 1. It draws its cards into a bitmap, or, with card controls on, shows each through
/// a control of a dialog, which costs nothing while the card rests. Positions count from 1, the bottom card. Position
/// lookups walk the pile. All calls come from the game's thread.
class CARDTABLE_API CPocket
{
public:
    /// Not 0: Redraw leaves out the top card.
    int m_skipTopCard = 0;

    CPocket();
    CPocket(const CPocket&) = delete;
    CPocket& operator=(const CPocket&) = delete;
    /// Destroys the cards, the card controls and the shared drawing bitmap.
    ~CPocket();

    ///@{
    /// Not 0: cards added from now on take their face from the additional textures.
    void SetUseAdditionalTexture(int use) { m_useAdditionalTexture = use; }
    int GetUseAdditionalTexture() const { return m_useAdditionalTexture; }
    ///@}
    /// The camera of the cards, those present and those added later; not owned.
    void SetCamera(CCamera* camera);

    /// Appends a move list, not owned; it may die before the pocket, whose index then stands for none. Returns 1; 0 for
    /// null.
    long AddMove(C3DMoveList* moves);
    /// The move list at an index from 0; null when there is none.
    C3DMoveList* GetMove(long index);
    /// Forgets the move lists. Returns 1.
    long RemoveMoves();

    /// Puts a card on top: a new card object in no scene, at the origin. Returns 1; 0, and adds nothing, when a texture
    /// is missing or the table has no columns.
    long AddCard(long card);
    /// Removes the top card, and the card control that was made last, whichever card that shows. Returns 1; 0 when the
    /// pocket is empty.
    long RemoveCard();
    /// Removes the card at a position with its card control; the controls of the cards above follow it down. Returns 1;
    /// 0 when there is no such card (a control of that position goes all the same).
    long RemoveCard(long position);
    /// Removes all cards and card controls. Returns 1.
    long RemoveCards();

    ///@{
    /// The top card's value, or that at a position; -1 when there is none. The object is the card's, the pocket's own:
    /// null when the pocket is empty, left alone when there is no such position.
    long GetCard();
    long GetCard(CObject*& object);
    long GetCard(CObject*& object, long position);
    long GetCard(long position);
    long GetNumCards() const;
    ///@}

    /// Gives the card at a position a new value and face, and renders its card control anew. A value without a texture
    /// is stored and the face stays; the face-down value shows the back. Returns 1; 0 when there is no such card.
    long ChangeCard(long position, long card);
    /// Shows the shaded face (shaded not 0) or the ordinary one; the card control follows with ForceRedrawStatics. A
    /// face-down card has no shaded face. Returns 1; 0 when there is no such card.
    long SetShaded(long position, int shaded);

    ///@{
    /// The card's clear polygon and clip rectangle, the card's own; left alone when there is no such card. Return 1.
    long GetClearPoly(long position, CPolygon*& polygon);
    long GetClip(long position, CRect*& clip);
    ///@}
    /// Makes the caller's rectangle the union of the cards' clip rectangles and logs it. An empty pocket leaves it
    /// alone. Returns 1.
    long GetTotalClip(CRect*& clip);

    ///@{
    /// Draws each card, or one, at the end of its moves as a stamp: the card at position p with the move list
    /// p + moveOffset - 1; a card without one is not drawn. With card controls on, shows its control, which is rendered
    /// when it is made and then kept; the target is not used then and may be null.
    void Draw(long moveOffset, Bitmap* target);
    void DrawCard(long position, long moveOffset, Bitmap* target);
    ///@}
    ///@{
    /// The same where each card is now. Polygons that are off are not drawn.
    void Redraw(Bitmap* target);
    void RedrawCard(long position, Bitmap* target);
    ///@}

    /// Card controls are on when neither is null: they are put into the dialog, before the anchor control. Both are not
    /// owned. Controls that exist stay as they are.
    void SetUseControls(CDialog* dialog, CControlBase* anchor);
    ///@{
    /// Shows the card at a position through a card control, made and rendered when there is none: at the end of the
    /// moves, or where the card is when they are null. Returns false when card controls are off.
    bool AddStaticCard(CObject* card, int position, C3DMoveList* moves);
    bool StaticCardMember(int position) const;
    void ShowCard(int position, bool show);
    ///@}
    ///@{
    /// Moves a card control to just before the anchor control, or to just after the given one.
    void LiftCard(int position);
    void ChangeZOrder(int position, CControlBase* after);
    ///@}
    ///@{
    /// Renders every card control anew from the card now at its position.
    void ForceRedrawStatics();
    void RemoveCardControl(int position);
    ///@}
    ///@{
    /// Removes the control that was made last.
    void RemoveLastCardControl();
    void RemoveAllCardControls();
    ///@}

private:
    friend class CCardTable;

    /// Takes a card whose object was deleted elsewhere out of its pocket.
    class CardWatch final : public LifeListener
    {
    public:
        explicit CardWatch(CPocket& pocket) : m_pocket(pocket) {}
        void Ended(const void* thing) noexcept override { m_pocket.ForgetCard(thing); }

    private:
        CPocket& m_pocket;
    };
    /// Where a card value's picture stands in the sheet.
    struct SheetPlace {
        long row;
        long column;
    };

    bool SplitValue(long card, SheetPlace& place) const;
    bool FindCard(long position);
    CObject* CardAt(long position);
    void DeleteObject();
    void ForgetCard(const void* object) noexcept;
    void ControlsFollowDown(int removed);

    CardObjects* GetCardObject(int position) const;
    bool ShowStaticCard(int position);
    void RedrawStaticCard(Bitmap* bitmap, Canvas* canvas, CObject* card, C3DMoveList* moves);
    void ForceRedrawStatic(int position);
    void RemoveRecord(std::list<CardObjects*>::iterator record);
    void RemoveAllRecords();

    static Bitmap* GetTempBitmap();
    static void DestroyTempBitmap();

    CLList m_moves;
    CLList m_cards;
    CLList m_cardObjects;
    CCardTable* m_table = nullptr;
    CCamera* m_camera = nullptr;
    int m_useAdditionalTexture = 0;
    std::list<CardObjects*> m_staticCards;
    CDialog* m_dialog = nullptr;
    bool m_useControls = false;
    CControlBase* m_anchorControl = nullptr;
    static Bitmap* m_drawBitmap; ///< the cards of all pockets are rendered here, one at a time

    std::vector<LifeRegistry::Serial> m_moveSerials; ///< tells each move list from a later one at its address
    CardWatch m_cardWatch{*this};
};

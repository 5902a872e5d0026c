// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/camera.h"
#include "geometry/export.h"
#include "geometry/light.h"
#include "host/llist.h"
#include "scene/scene_handler.h"

#include <list>

class Bitmap;
class CObject;
class CPocket;
class CRect;

/// The card value of a card that shows its back on both sides.
inline constexpr long kFaceDownCard = 100;

/// A card table: a scene with a row of pockets (piles of cards), the card textures cut from image sheets, and a frame
/// that erases and repaints exactly what changed.
///
/// Set-up: construct; SetCardSize, SetCardDimension, SetSurfaceOffset; Init; LoadTextures; SetTargetBitmap; then the
/// pockets through GetPocket. The table owns its pockets and textures. A card value is row * columns + column of the
/// card's picture in the face sheet, or kFaceDownCard; pocket indices count from 0, positions in a pocket from 1 (the
/// bottom card). All calls come from the game's thread.
class CARDTABLE_API CCardTable : public CSceneHandler
{
public:
    CCardTable();
    CCardTable(const CCardTable&) = delete;
    CCardTable& operator=(const CCardTable&) = delete;
    ~CCardTable();

    /// Makes the pockets (none for a count of 0 or less), stores the grid of the sheets - every row holds numColumns
    /// cards, the last one numLastRow - and makes the table's own camera and light the scene's. Earlier pockets are
    /// destroyed. Returns 1.
    long Init(long numPockets, long numRows, long numColumns, long numLastRow);
    /// Destroys the pockets with their cards and all textures; the settings stay. May run twice.
    void Exit();

    ///@{
    /// The size of a card in the face sheet, and in the additional sheet, pixels.
    void SetCardSize(long width, long height);
    void SetAdditionalCardSize(long width, long height);
    ///@}
    /// Half the width and half the height of a card object, world units; for cards built from now on.
    void SetCardDimension(double x, double y);
    /// Where the target bitmap stands on the screen, pixels.
    void SetSurfaceOffset(int x, int y);
    /// A bitmap kept for the game; not owned, and read by nothing here.
    void SetPersistent(Bitmap* bitmap);

    /// The pocket; null for an index out of range, and before Init and after Exit.
    CPocket* GetPocket(long index) const;

    /// One frame: erases what the last frame drew, runs the scene's frame, and has the drawn areas repainted; erasing
    /// and repainting only with a target bitmap. Returns 1. Costs what moves, whatever the size of the table.
    long Handler();
    /// Makes the rectangles of the latest frame transparent in the target bitmap and has them repainted.
    void EraseLastDrawnRegions();
    /// Has the rectangles of the latest frame repainted.
    void InvalidateDrawnRegions();
    ///@{
    /// The rectangles of the latest frame, see CSceneHandler.
    std::list<CRect>::iterator LastDrawnRectsBegin();
    std::list<CRect>::iterator LastDrawnRectsEnd();
    ///@}

    /// Loads the face sheet and the back, cuts one texture per card, and with makeShaded not 0 a shaded copy of each,
    /// every pixel byte times the factor, truncated, modulo 256. Replaces the earlier textures. Returns 1; 0 when a
    /// file cannot be loaded (the earlier faces stay; the back is what loading it gave), a card size is out of range,
    /// or the grid has more than 65,536 cards or rows.
    long LoadTextures(const char* faceSheetFile, const char* backFile, int makeShaded, double shadeFactor);
    /// Cuts a second set of faces from a sheet with the same grid and the additional card size. Returns 1; 0 in
    /// the same cases as LoadTextures, the earlier additional faces then stay.
    long LoadAdditionalCardTexture(const char* sheetFile);
    /// Replaces the back; cards built before show nothing in its place. Returns 1; 0 when the file cannot be loaded,
    /// the table then has no back.
    long LoadBackTexture(const char* file);
    ///@{
    /// The texture numbered row * columns + column, the first one for a number below 0, null past the last. The table's
    /// own. Costs a walk to that number.
    Bitmap* GetCardTexture(long row, long column);
    Bitmap* GetAdditionalCardTexture(long row, long column);
    Bitmap* GetShadedCardTexture(long row, long column);
    ///@}

    ///@{
    /// Shows another face (useAdditional not 0: an additional one) on a card object, or the shaded one. Returns 1; 0
    /// when there is no such texture, or no card, and nothing changes then.
    long ChangeCard(CObject* card, long row, long column, int useAdditional);
    long SetShaded(CObject* card, long row, long column);
    ///@}

    /// Builds the two-sided object of a card: its back, then its face, in the plane z = 0, in no scene. Row -1 is the
    /// face-down card. The rectangle is the part of the texture that is shown, in fractions. It belongs to the caller.
    /// Null when a texture is missing.
    CObject* GetCardObj(long row, long column, double left, double top, double right, double bottom, int useAdditional);

    ///@{
    /// Draw every pocket, one pocket or one card at the end of its moves, see CPocket::Draw; Redraw them where they
    /// are, see CPocket::Redraw. A pocket index out of range logs an error line.
    void Draw(long moveOffset, Bitmap* target);
    void Redraw(Bitmap* target);
    void DrawPocket(long pocket, long moveOffset, Bitmap* target);
    void DrawCard(long pocket, long position, long moveOffset, Bitmap* target);
    void RedrawPocket(long pocket, Bitmap* target);
    void RedrawCard(long pocket, long position, Bitmap* target);
    ///@}

private:
    friend class CPocket;

    void ShowDrawnRegions();
    void DeletePockets();
    /// Makes the card object's face show the back.
    void ShowBackOnFace(CObject& card);

    CCamera m_camera;
    Bitmap* m_backTexture = nullptr;
    CLight m_light;
    long m_numRows = 0;
    long m_numColumns = 0;
    long m_numLastRow = 0;
    long* m_pocketOrder = nullptr;
    CLList m_cardTextures;
    CLList m_shadedTextures;
    CLList m_additionalTextures;
    Bitmap* m_persistent = nullptr;
    CPocket** m_pockets = nullptr;
    long m_numPockets = 0;
    long m_cardWidth = 0;
    long m_cardHeight = 0;
    long m_additionalCardWidth = 0;
    long m_additionalCardHeight = 0;
    double m_cardDimX = 0.0;
    double m_cardDimY = 0.0;
    int m_makeShaded = 0;
    int m_surfaceOffsetX = 0;
    int m_surfaceOffsetY = 0;
};

// SPDX-License-Identifier: MIT
#pragma once

class Bitmap;
class CLList;

/// Destroys every bitmap of a list and empties it.
void DestroyTextures(CLList& textures);

/// How the cards lie in a sheet: rows of numColumns cells without gaps, the last row of numLastRow; pixels.
struct SheetGrid {
    long numRows;
    long numColumns;
    long numLastRow;
    long cardWidth;
    long cardHeight;
};

/// Appends a new bitmap for every cell, row by row; what lies beyond the sheet is transparent. False when bitmaps of
/// that size are not to be had or the grid has far more cells than any sheet; the list keeps those made so far. Throws
/// std::bad_alloc, with the same effect.
bool CutSheet(const Bitmap& sheet, const SheetGrid& grid, CLList& textures);

/// Appends a shaded copy of each face: every byte of every pixel times the factor, the product truncated toward zero
/// and its low eight bits kept, so that a factor above 1 or below 0 wraps. Throws std::bad_alloc; the list keeps the
/// copies made so far.
void ShadeTextures(CLList& faces, double factor, CLList& shaded);

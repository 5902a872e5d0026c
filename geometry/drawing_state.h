// SPDX-License-Identifier: MIT
#pragma once

/// The render state that tells the renderer how a polygon is drawn, and its value for a polygon in motion. The value
/// for one that comes to rest is the scene's stamp mode.
inline constexpr long kDrawingState = 1;
inline constexpr long kDrawForMotion = 0;

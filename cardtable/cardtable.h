// SPDX-License-Identifier: MIT
#pragma once

/// The whole library in one include.

#include "animation/move_3d.h"
#include "animation/move_list.h"
#include "animation/object.h"
#include "animation/point_move.h"
#include "cardtable/card_table.h"
#include "cardtable/pocket.h"
#include "geometry/camera.h"
#include "geometry/light.h"
#include "geometry/polygon.h"
#include "geometry/projection.h"
#include "scene/scene_handler.h"

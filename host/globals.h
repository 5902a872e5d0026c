// SPDX-License-Identifier: MIT
#pragma once

#include "host/export.h"

#include <cstdint>

class PolygonRender;

/// The host's global state.
struct SGlobals {
    /// The renderer of every card; never null. A test may put its own here and puts the earlier one back.
    PolygonRender* polygonRender;
    /// Time of one animation frame in microseconds; never 0. Starts at 16,667.
    std::uint32_t framePeriod;
};

/// Points to the one record from load to unload.
extern ORVANE_API SGlobals* glb;

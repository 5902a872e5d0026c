// SPDX-License-Identifier: MIT
#include "host/globals.h"

#include "orvane/frame_period.h"
#include "orvane/raster/quad_renderer.h"

namespace
{

/// Never destroyed: static objects of the program may draw until their own end.
union RendererHolder {
    RendererHolder() : renderer() {}
    ~RendererHolder() {}
    orvane::raster::QuadRenderer renderer;
};

RendererHolder holder;
SGlobals globals{&holder.renderer, orvane::kDefaultFramePeriod};

} // namespace

SGlobals* glb = &globals;

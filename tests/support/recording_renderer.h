// SPDX-License-Identifier: MIT
#pragma once

#include "host/polygon_render.h"
#include "host/rect.h"

#include <array>
#include <functional>
#include <initializer_list>
#include <map>
#include <optional>
#include <string>
#include <vector>

/// A renderer that writes down what it is asked and answers what the test set. It stands in glb from its making to its
/// end.
class RecordingRenderer final : public PolygonRender
{
public:
    /// All that was in force when Draw was called.
    struct DrawCall {
        std::array<long, 8> vertices{};
        std::array<long, 8> coords{};
        Bitmap* texture = nullptr;
        Bitmap* target = nullptr;
        CRect* clip = nullptr;
        long state = -1;
    };

    RecordingRenderer();
    ~RecordingRenderer() override;

    void SetTexture(Bitmap* texture) override;
    void SetTexCoords(long u0, long v0, long u1, long v1, long u2, long v2, long u3, long v3) override;
    void SetVertices(long x0, long y0, float z0, long x1, long y1, float z1, long x2, long y2, float z2, long x3,
                     long y3, float z3) override;
    int IsPointInside(long x, long y) override;
    void SetRenderState(long state, long value) override;
    void Draw(Bitmap* target, CRect*& clip) override;
    CRect* GetBoundingBox() override;
    CRect* GetLastDrawnRect() override;

    /// The name of a bitmap or rectangle in the log; without one it is "other".
    void Name(const void* thing, const char* name) { m_names[thing] = name; }
    /// The lines since the last call; with words given only those that start with one of them.
    std::vector<std::string> Take(std::initializer_list<const char*> words = {});

    std::vector<std::string> calls;
    std::vector<DrawCall> draws;

    int inside = 0;
    std::optional<CRect> clip;      ///< what Draw leaves in a clip rectangle
    std::optional<CRect> lastDrawn; ///< what GetLastDrawnRect answers
    CRect boundingBox;
    std::function<void(Bitmap&)> paint; ///< what Draw does to a target

private:
    std::string NameOf(const void* thing) const;

    PolygonRender* m_before;
    DrawCall m_current;
    std::map<const void*, std::string> m_names;
};

/// A rectangle by its edges.
CRect Edges(long left, long top, long right, long bottom);

// SPDX-License-Identifier: MIT
#include "tests/support/recording_renderer.h"

#include "host/globals.h"

#include <algorithm>
#include <utility>

namespace
{

std::string Line(const char* word, const std::array<long, 8>& values)
{
    std::string line = word;
    for (const long value : values) {
        line += ' ' + std::to_string(value);
    }
    return line;
}

} // namespace

RecordingRenderer::RecordingRenderer() : m_before(std::exchange(glb->polygonRender, this)) {}

RecordingRenderer::~RecordingRenderer()
{
    glb->polygonRender = m_before;
}

std::string RecordingRenderer::NameOf(const void* thing) const
{
    if (thing == nullptr) {
        return "none";
    }
    const auto name = m_names.find(thing);
    return name != m_names.end() ? name->second : "other";
}

std::vector<std::string> RecordingRenderer::Take(std::initializer_list<const char*> words)
{
    std::vector<std::string> taken = std::exchange(calls, {});
    if (words.size() != 0) {
        std::erase_if(taken, [&](const std::string& line) {
            return std::none_of(words.begin(), words.end(), [&](const char* word) { return line.rfind(word, 0) == 0; });
        });
    }
    return taken;
}

void RecordingRenderer::SetTexture(Bitmap* texture)
{
    m_current.texture = texture;
    calls.push_back("texture " + NameOf(texture));
}

void RecordingRenderer::SetTexCoords(long u0, long v0, long u1, long v1, long u2, long v2, long u3, long v3)
{
    m_current.coords = {u0, v0, u1, v1, u2, v2, u3, v3};
    calls.push_back(Line("coords", m_current.coords));
}

void RecordingRenderer::SetVertices(long x0, long y0, float z0, long x1, long y1, float z1, long x2, long y2, float z2,
                                    long x3, long y3, float z3)
{
    m_current.vertices = {x0, y0, x1, y1, x2, y2, x3, y3};
    const bool flat = z0 == 0.0F && z1 == 0.0F && z2 == 0.0F && z3 == 0.0F;
    calls.push_back(Line(flat ? "vertices" : "vertices with depth", m_current.vertices));
}

int RecordingRenderer::IsPointInside(long x, long y)
{
    calls.push_back("inside " + std::to_string(x) + ' ' + std::to_string(y));
    return inside;
}

void RecordingRenderer::SetRenderState(long state, long value)
{
    m_current.state = value;
    calls.push_back("state " + std::to_string(state) + ' ' + std::to_string(value));
}

void RecordingRenderer::Draw(Bitmap* target, CRect*& drawnClip)
{
    m_current.target = target;
    m_current.clip = drawnClip;
    draws.push_back(m_current);
    calls.push_back("draw " + NameOf(target) + ' ' + NameOf(drawnClip));
    if (drawnClip != nullptr && clip.has_value()) {
        drawnClip->Copy(&*clip);
    }
    if (target != nullptr && paint) {
        paint(*target);
    }
}

CRect* RecordingRenderer::GetBoundingBox()
{
    calls.push_back("box");
    return &boundingBox;
}

CRect* RecordingRenderer::GetLastDrawnRect()
{
    calls.push_back("last rect");
    return lastDrawn.has_value() ? &*lastDrawn : nullptr;
}

CRect Edges(long left, long top, long right, long bottom)
{
    CRect rect;
    rect.Set(left, top, right, bottom);
    return rect;
}

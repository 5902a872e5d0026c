// SPDX-License-Identifier: MIT
// A host of its own behind the declarations in host/: as small as it can be, and enough to play a card game's frames.
#include "tests/second_host/host.h"

#include "host/bitmap_manager.h"
#include "host/canvas.h"
#include "host/globals.h"
#include "host/llist.h"
#include "host/log.h"
#include "host/memory.h"
#include "host/polygon_render.h"
#include "host/rect.h"
#include "host/render.h"
#include "host/tick.h"
#include "host/window.h"

#include <algorithm>
#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <new>
#include <vector>

second_host::State& second_host::TheState()
{
    static State state;
    return state;
}

using second_host::TheState;

// Lists: plain nodes, searched by walking.

struct CLList::Node {
    void* data;
    Node* prev;
    Node* next;
};

CLList::CLList(const CLList& other)
{
    *this = other;
}

CLList& CLList::operator=(const CLList& other)
{
    if (this != &other) {
        KillAll();
        for (const Node* node = other.m_first; node != nullptr; node = node->next) {
            Append(node->data);
            m_cursor = node == other.m_cursor ? m_last : m_cursor;
        }
    }
    return *this;
}

CLList::~CLList()
{
    KillAll();
}

void CLList::PutCursor(Node* node)
{
    m_cursor = node;
    m_inGap = false;
}

void CLList::First()
{
    PutCursor(m_first);
}
void CLList::Last()
{
    PutCursor(m_last);
}

void CLList::Next()
{
    PutCursor(m_inGap ? m_gapNext : m_cursor != nullptr ? m_cursor->next : nullptr);
}

void CLList::Prev()
{
    PutCursor(m_inGap ? m_gapPrev : m_cursor != nullptr ? m_cursor->prev : nullptr);
}

short CLList::Exists() const
{
    return m_cursor != nullptr ? 1 : 0;
}
void* CLList::Get() const
{
    return m_cursor != nullptr ? m_cursor->data : nullptr;
}
bool CLList::IsLast() const
{
    return m_cursor != nullptr && m_cursor == m_last;
}
long CLList::GetNumNodes() const
{
    return m_count;
}

void CLList::Append(void* data)
{
    auto* const node = new Node{data, m_last, nullptr};
    (m_last != nullptr ? m_last->next : m_first) = node;
    m_last = node;
    ++m_count;
}

short CLList::InsertLast(void* data, long /*reserved*/)
{
    Append(data);
    return 1;
}

CLList::Node* CLList::Find(void* data) const
{
    Node* node = m_first;
    while (node != nullptr && node->data != data) {
        node = node->next;
    }
    return node;
}

short CLList::IfNotInsertLast(void* data)
{
    return Find(data) != nullptr ? 0 : InsertLast(data, 0);
}

void CLList::Unlink(Node* node)
{
    (node->prev != nullptr ? node->prev->next : m_first) = node->next;
    (node->next != nullptr ? node->next->prev : m_last) = node->prev;
    if (m_inGap) {
        m_gapNext = m_gapNext == node ? node->next : m_gapNext;
        m_gapPrev = m_gapPrev == node ? node->prev : m_gapPrev;
    } else if (m_cursor == node) {
        m_cursor = nullptr;
        m_inGap = true;
        m_gapNext = node->next;
        m_gapPrev = node->prev;
    }
    delete node;
    --m_count;
}

short CLList::Delete(long keepData)
{
    if (m_cursor == nullptr) {
        return 0;
    }
    if (keepData == 0) {
        DeleteData();
    }
    Unlink(m_cursor);
    return 1;
}

short CLList::DeleteItem(void* data)
{
    Node* const node = Find(data);
    if (node != nullptr) {
        Unlink(node);
    }
    return node != nullptr ? 1 : 0;
}

void CLList::DeleteData()
{
    if (m_cursor != nullptr) {
        ::operator delete(m_cursor->data);
        m_cursor->data = nullptr;
    }
}

void CLList::KillAll()
{
    while (m_first != nullptr) {
        Unlink(m_first);
    }
    PutCursor(nullptr);
}

void CLList::KillAllData()
{
    for (First(); Exists() != 0; Next()) {
        DeleteData();
    }
    KillAll();
}

// Rectangles, memory, clock, log.

CRect::CRect() = default;
CRect::~CRect() = default;

void CRect::Set(long newLeft, long newTop, long newRight, long newBottom)
{
    left = newLeft;
    top = newTop;
    right = newRight;
    bottom = newBottom;
}

void CRect::Copy(CRect* other)
{
    if (other != nullptr) {
        *this = *other;
    }
}

void CRect::Union(CRect* first, CRect* second)
{
    if (first == nullptr || second == nullptr || first->IsEmpty() || second->IsEmpty()) {
        Copy(first == nullptr || (second != nullptr && first->IsEmpty()) ? second : first);
    } else {
        Set(std::min(first->left, second->left), std::min(first->top, second->top),
            std::max(first->right, second->right), std::max(first->bottom, second->bottom));
    }
}

long CRect::Width() const
{
    return right - left;
}
long CRect::Height() const
{
    return bottom - top;
}
bool CRect::IsEmpty() const
{
    return right <= left || bottom <= top;
}

void* xMemcpy(void* destination, const void* source, unsigned long size)
{
    return std::memcpy(destination, source, size);
}

Tick::Tick() : m_start(TheState().now) {}
void Tick::Update()
{
    m_start = TheState().now;
}

std::uint32_t Tick::Elapsed() const
{
    return static_cast<std::uint32_t>(std::min<std::uint64_t>(TheState().now - m_start, UINT32_MAX));
}

Log::Log(const char* name) : m_name(name) {}
Log::~Log() = default;

static void Write(const std::string& channel, const char* format, std::va_list arguments)
{
    char text[200];
    std::vsnprintf(text, sizeof text, format, arguments);
    TheState().lines.push_back(channel + ": " + text);
}

void Log::Error(const char* format, ...) const
{
    std::va_list arguments;
    va_start(arguments, format);
    Write(m_name, format, arguments);
    va_end(arguments);
}

void Log::Info(const char* format, ...) const
{
    std::va_list arguments;
    va_start(arguments, format);
    Write(m_name, format, arguments);
    va_end(arguments);
}

// Bitmaps. Records are kept to the end of the program, so a dead one stays readable.

void Bitmap::Free()
{
    delete[] m_pixels;
    m_pixels = nullptr;
    m_width = 0;
    m_height = 0;
}

bool Bitmap::Realloc(int width, int height)
{
    if (width > kMaxSide || height > kMaxSide) {
        return false;
    }
    Free();
    if (width > 0 && height > 0) {
        m_pixels = new std::uint8_t[4U * static_cast<std::size_t>(width) * static_cast<std::size_t>(height)]();
        m_width = width;
        m_height = height;
    }
    return true;
}

void Bitmap::FillRect(const render::Rectangle<int>& r, const Rgba& c)
{
    const std::uint8_t bytes[] = {c.b, c.g, c.r, c.a}; // callers fill with opaque or transparent colours
    for (int y = std::max(r.y, 0); y < std::min(r.y + r.height, m_height); ++y) {
        for (int x = std::max(r.x, 0); x < std::min(r.x + r.width, m_width); ++x) {
            std::memcpy(m_pixels + 4 * (static_cast<std::ptrdiff_t>(y) * m_width + x), bytes, sizeof bytes);
        }
    }
}

void Bitmap::ClearRect(render::Rectangle<int>& rectangle)
{
    FillRect(rectangle, Rgba{});
}

BitmapManager& BitmapManager::Instance()
{
    static BitmapManager manager;
    return manager;
}

Bitmap* BitmapManager::Create(int width, int height)
{
    static std::vector<Bitmap*>& kept = *new std::vector<Bitmap*>;
    kept.push_back(new Bitmap);
    kept.back()->Realloc(width, height);
    return kept.back();
}

void BitmapManager::Destroy(Bitmap*& bitmap)
{
    if (bitmap != nullptr) {
        bitmap->Free();
        bitmap = nullptr;
    }
}

/// Reads one format only: PPM with 8-bit colours.
Bitmap* BitmapManager::Load(const std::string& file, bool /*flag*/)
{
    std::ifstream stream(file, std::ios::binary);
    std::string magic;
    int width = 0;
    int height = 0;
    int most = 0;
    if (!(stream >> magic >> width >> height >> most) || magic != "P6" || most != 255) {
        return nullptr;
    }
    stream.get();
    Bitmap* const bitmap = Create(width, height);
    std::uint8_t* pixel = bitmap->Buffer();
    for (int i = 0; i < width * height; ++i, pixel += 4) {
        char colour[3] = {};
        stream.read(colour, sizeof colour);
        for (int c = 0; c < 3; ++c) {
            pixel[c] = static_cast<std::uint8_t>(colour[2 - c]);
        }
        pixel[3] = 255;
    }
    return bitmap;
}

Render& Render::Instance()
{
    static Render render;
    return render;
}

int Render::GetActiveWidth() const
{
    return TheState().width;
}
int Render::GetActiveHeight() const
{
    return TheState().height;
}
void Render::InvalidateArea(const render::Rectangle<int>& area)
{
    TheState().areas.push_back(area);
}

void Render::Copy(const Bitmap* source, Bitmap* destination, int dx, int dy, int sx, int sy, int width, int height)
{
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            if (sx + x < source->Width() && sy + y < source->Height() && dx + x < destination->Width() &&
                dy + y < destination->Height()) {
                std::memcpy(destination->Buffer() + 4 * ((dy + y) * destination->Width() + dx + x),
                            source->Buffer() + 4 * ((sy + y) * source->Width() + sx + x), 4);
            }
        }
    }
}

// Controls: nothing is composed here, but they know their places and their order.

CControlBase::~CControlBase()
{
    if (m_window != nullptr) {
        m_window->RemoveCntrl(this);
    }
}

void CControlBase::SetPos(long x, long y)
{
    m_x = x;
    m_y = y;
}

void CControlBase::SetSize(long width, long height)
{
    m_width = width;
    m_height = height;
}

void CControlBase::Invalidate() {}
void CControlBase::SetState(long state)
{
    m_state = state;
}
void CControlBase::Paint(Bitmap&, const render::Rectangle<int>&, long, long) const {}

Canvas::~Canvas() = default;
void Canvas::SetBitmap(Bitmap* bitmap)
{
    m_bitmap = bitmap;
}
void Canvas::Paint(Bitmap&, const render::Rectangle<int>&, long, long) const {}
render::Rectangle<int> Canvas::OpaquePart() const
{
    return {};
}

void Canvas::Create(long x, long y, long width, long height)
{
    SetPos(x, y);
    SetSize(width, height);
}

CWindowBase::~CWindowBase()
{
    while (m_first != nullptr) {
        Unlink(m_first);
    }
}

void CWindowBase::Link(CControlBase* control, CControlBase* before)
{
    CControlBase* const after = before != nullptr ? before->m_prev : m_last;
    control->m_window = this;
    control->m_prev = after;
    control->m_next = before;
    (after != nullptr ? after->m_next : m_first) = control;
    (before != nullptr ? before->m_prev : m_last) = control;
    ++m_count;
}

void CWindowBase::Unlink(CControlBase* control)
{
    (control->m_prev != nullptr ? control->m_prev->m_next : m_first) = control->m_next;
    (control->m_next != nullptr ? control->m_next->m_prev : m_last) = control->m_prev;
    control->m_window = nullptr;
    --m_count;
}

long CWindowBase::AddCntrlBefore(CControlBase* control, CControlBase* before)
{
    Link(control, before);
    return 1;
}

long CWindowBase::AddCntrlAfter(CControlBase* control, CControlBase* after)
{
    Link(control, after->m_next);
    return 1;
}

long CWindowBase::RemoveCntrl(CControlBase* control)
{
    Unlink(control);
    return 1;
}

CDialog::~CDialog() = default;

// The renderer: one sample a pixel, exact for quadrilaterals that are parallelograms.

namespace
{

class PlainRenderer final : public PolygonRender
{
public:
    void SetTexture(Bitmap* texture) override { m_texture = texture; }
    void SetTexCoords(long u0, long v0, long u1, long v1, long u2, long v2, long u3, long v3) override
    {
        const long coords[] = {u0, v0, u1, v1, u2, v2, u3, v3};
        std::copy_n(coords, 8, m_coords);
    }
    void SetVertices(long x0, long y0, float, long x1, long y1, float, long x2, long y2, float, long x3, long y3,
                     float) override
    {
        const long vertices[] = {x0, y0, x1, y1, x2, y2, x3, y3};
        std::copy_n(vertices, 8, m_vertices);
    }
    int IsPointInside(long x, long y) override
    {
        double s = 0;
        double t = 0;
        return Locate(static_cast<double>(x), static_cast<double>(y), s, t) ? 1 : 0;
    }
    void SetRenderState(long, long) override {}
    void Draw(Bitmap* target, CRect*& clip) override
    {
        m_drawn.Set(0, 0, 0, 0);
        if (target == nullptr || m_texture == nullptr || m_texture->Width() == 0 || Area() < 0) {
            return;
        }
        const CRect box = *GetBoundingBox();
        m_drawn.Set(std::max(box.left / 2, 0L), std::max(box.top / 2, 0L),
                    std::min<long>((box.right + 1) / 2, target->Width()),
                    std::min<long>((box.bottom + 1) / 2, target->Height()));
        for (long y = m_drawn.top; y < m_drawn.bottom; ++y) {
            for (long x = m_drawn.left; x < m_drawn.right; ++x) {
                double s = 0;
                double t = 0;
                if (Locate(2.0 * static_cast<double>(x) + 1, 2.0 * static_cast<double>(y) + 1, s, t)) {
                    std::memcpy(target->Buffer() + 4 * (y * target->Width() + x),
                                static_cast<const Bitmap*>(m_texture)->Buffer() +
                                    4 * (Texel(1, s, t) * m_texture->Width() + Texel(0, s, t)),
                                4);
                }
            }
        }
        if (clip != nullptr) {
            *clip = m_drawn;
        }
    }
    CRect* GetBoundingBox() override
    {
        const long* v = m_vertices;
        m_box.Set(std::min({v[0], v[2], v[4], v[6]}), std::min({v[1], v[3], v[5], v[7]}),
                  std::max({v[0], v[2], v[4], v[6]}), std::max({v[1], v[3], v[5], v[7]}));
        return &m_box;
    }
    CRect* GetLastDrawnRect() override { return m_drawn.IsEmpty() ? nullptr : &m_drawn; }

private:
    /// The edges from corner 0 to corners 1 and 3.
    double Edge(int corner, int axis) const
    {
        return static_cast<double>(m_vertices[2 * corner + axis] - m_vertices[axis]);
    }
    double Area() const { return Edge(1, 0) * Edge(3, 1) - Edge(1, 1) * Edge(3, 0); }
    /// Where a point lies along those edges, 0 to 1; false when it lies outside.
    bool Locate(double x, double y, double& s, double& t) const
    {
        x -= static_cast<double>(m_vertices[0]);
        y -= static_cast<double>(m_vertices[1]);
        s = (x * Edge(3, 1) - y * Edge(3, 0)) / Area();
        t = (y * Edge(1, 0) - x * Edge(1, 1)) / Area();
        return s >= 0 && s < 1 && t >= 0 && t < 1;
    }
    long Texel(int axis, double s, double t) const
    {
        const auto at = [&](int corner) { return static_cast<double>(m_coords[2 * corner + axis]); };
        return static_cast<long>(at(0) + (at(1) - at(0)) * s + (at(3) - at(0)) * t) / 65536;
    }

    Bitmap* m_texture = nullptr;
    long m_coords[8] = {};
    long m_vertices[8] = {};
    CRect m_box;
    CRect m_drawn;
};

PlainRenderer renderer;
SGlobals globals{&renderer, 10};

} // namespace

SGlobals* glb = &globals;

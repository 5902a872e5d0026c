// SPDX-License-Identifier: MIT
#include "host/rect.h"

#include "orvane/number32.h"

#include <algorithm>
#include <cstdint>

namespace
{

using orvane::WrapTo32Bits;

long Difference(long end, long start)
{
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(end) - static_cast<std::uint32_t>(start));
}

} // namespace

CRect::CRect() = default;

CRect::~CRect() = default;

void CRect::Set(long newLeft, long newTop, long newRight, long newBottom)
{
    left = WrapTo32Bits(newLeft);
    top = WrapTo32Bits(newTop);
    right = WrapTo32Bits(newRight);
    bottom = WrapTo32Bits(newBottom);
}

void CRect::Copy(CRect* other)
{
    if (other != nullptr) {
        Set(other->left, other->top, other->right, other->bottom);
    }
}

void CRect::Union(CRect* first, CRect* second)
{
    if (first == nullptr || second == nullptr) {
        Copy(first != nullptr ? first : second);
    } else if (first->IsEmpty() || second->IsEmpty()) {
        Copy(first->IsEmpty() && !second->IsEmpty() ? second : first);
    } else {
        Set(std::min(WrapTo32Bits(first->left), WrapTo32Bits(second->left)),
            std::min(WrapTo32Bits(first->top), WrapTo32Bits(second->top)),
            std::max(WrapTo32Bits(first->right), WrapTo32Bits(second->right)),
            std::max(WrapTo32Bits(first->bottom), WrapTo32Bits(second->bottom)));
    }
}

long CRect::Width() const
{
    return Difference(right, left);
}

long CRect::Height() const
{
    return Difference(bottom, top);
}

bool CRect::IsEmpty() const
{
    return WrapTo32Bits(right) <= WrapTo32Bits(left) || WrapTo32Bits(bottom) <= WrapTo32Bits(top);
}

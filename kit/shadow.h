// SPDX-License-Identifier: MIT
#pragma once

#include "animation/move_list.h"
#include "animation/object.h"
#include "host/owned_bitmap.h"
#include "kit/flight_path.h"

#include <memory>

namespace cardkit
{

/// A shadow on the table that follows one flying card: an object of the scene with moves of its own. At both ends of
/// the flight it is hidden under the card.
struct FlyingShadow {
    ///@{
    /// The shadow and its way.
    std::unique_ptr<CObject> object;
    std::unique_ptr<C3DMoveList> moves;
    ///@}
};

/// Makes the shadows of cards of one size.
class ShadowCaster
{
public:
    /// The card's size at rest; the plane is copied.
    ShadowCaster(const TablePlane& plane, CardSize size);

    /// The shadow of a card that flies along that way in that many frames. The caster outlives it.
    FlyingShadow Cast(const Way& way, int frames) const;

private:
    Placement Below(const Placement& card) const;

    TablePlane m_plane;
    double m_halfWidth; ///< of the shadow's picture with its soft margin, world units
    double m_halfHeight;
    OwnedBitmap m_picture;
};

} // namespace cardkit

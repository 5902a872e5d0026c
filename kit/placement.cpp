// SPDX-License-Identifier: MIT
#include "kit/placement.h"

#include "animation/object.h"

namespace cardkit
{

Placement PlacementOf(const CObject& card)
{
    Placement placement;
    card.GetPosition(placement.x, placement.y, placement.z);
    card.GetRotate(placement.rotX, placement.rotY, placement.rotZ);
    card.GetScale(placement.scale);
    return placement;
}

void Place(CObject& card, const Placement& placement)
{
    card.SetPosition(placement.x, placement.y, placement.z);
    card.SetRotate(placement.rotX, placement.rotY, placement.rotZ);
    card.SetScale(placement.scale);
}

} // namespace cardkit

// SPDX-License-Identifier: MIT
#include "cardtable/stamp_marks.h"

#include "animation/object.h"
#include "geometry/list_walk.h"
#include "geometry/polygon.h"

StampMarks::StampMarks(CObject& object) : m_object(object)
{
    for (const CPolygon* polygon : TypedWalk<CPolygon>(m_object.m_polygons)) {
        m_marks.push_back(polygon->IsStamp());
    }
    m_object.StampObject();
}

StampMarks::~StampMarks()
{
    auto mark = m_marks.begin();
    for (CPolygon* polygon : TypedWalk<CPolygon>(m_object.m_polygons)) {
        polygon->SetStamp(*mark++);
    }
}

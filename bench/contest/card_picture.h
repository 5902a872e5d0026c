// SPDX-License-Identifier: MIT
#pragma once

#include "bench/contest/picture.h"

namespace contest
{

/// A court card of that size: see-through rounded corners with soft edges, a border, an index, pips, and a figure of
/// fine lines and hatching, which tell filters apart. Every pixel is the mean of its area.
Picture DrawCard(int width, int height);

} // namespace contest

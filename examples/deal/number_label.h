// SPDX-License-Identifier: MIT
#pragma once

#include "examples/deal/picture.h"

namespace deal
{

/// A number of 0 or more in light digits on a dark plate.
Picture NumberLabel(int number);

} // namespace deal

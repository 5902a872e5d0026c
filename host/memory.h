// SPDX-License-Identifier: MIT
#pragma once

#include "host/export.h"

/// Copies size bytes between areas that do not overlap and returns the destination. A size of 0 is allowed.
ORVANE_API void* xMemcpy(void* destination, const void* source, unsigned long size);

// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

class CDialog;

namespace orvane
{

/// The dialogs on the screen, the lowest first. Older and younger than any host and any static object: dialogs may be
/// shown before the start and hide themselves at the program's end.
std::vector<CDialog*>& ShownDialogs();

} // namespace orvane

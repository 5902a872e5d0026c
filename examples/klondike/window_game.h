// SPDX-License-Identifier: MIT
#pragma once

#include "examples/klondike/app/options.h"
#include "examples/klondike/app/program.h"

namespace klondike
{

/// Plays in a window until the player leaves. Throws std::runtime_error with one line when there is no display.
void PlayInWindow(const Arguments& arguments, Setup setup);

/// Plays the commands of the setup's input without a display or the real time, and writes the picture. Throws
/// std::runtime_error with one line when it cannot be written.
void TakePicture(const Arguments& arguments, Setup setup);

} // namespace klondike

// SPDX-License-Identifier: MIT
#pragma once

namespace klondike
{

/// What a button or a key asks for.
enum class Action { NewGame, Restart, Draw, Undo, Redo, Hint, Finish, Menu, Decks, Help, FullScreen };

} // namespace klondike

// SPDX-License-Identifier: MIT
#include "orvane/dialog_stack.h"

namespace orvane
{

std::vector<CDialog*>& ShownDialogs()
{
    static auto* const dialogs = new std::vector<CDialog*>;
    return *dialogs;
}

} // namespace orvane

// SPDX-License-Identifier: MIT
#include "orvane/window/program.h"

namespace orvane
{

Program::~Program() = default;

void Program::Pointer(const PointerEvent& /*event*/) {}

void Program::Key(const KeyEvent& /*event*/) {}

void Program::Text(const std::string& /*text*/) {}

void Program::Resized(int /*width*/, int /*height*/) {}

void Program::FocusChanged(bool /*focused*/) {}

void Program::Woken() {}

bool Program::Quit()
{
    return true;
}

} // namespace orvane

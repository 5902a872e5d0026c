// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>

namespace deal
{

/// Something that the program cannot go on without did not work; the text is for the user.
class Failure : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

} // namespace deal

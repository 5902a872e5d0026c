// SPDX-License-Identifier: MIT
#pragma once

#include "bench/contest/truth.h"

#include <string>

namespace contest
{

///@{
/// A truth takes seconds to render and serves every contestant: it is kept in a file, readable on the machine that
/// wrote it. Throw std::runtime_error for a file that can't be written or read, or is of another format.
void WriteTruth(const Truth& truth, const std::string& path);
Truth ReadTruth(const std::string& path);
///@}

} // namespace contest

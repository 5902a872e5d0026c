// SPDX-License-Identifier: MIT
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace deal
{

/// Results of the program.
inline constexpr int kSuccess = 0;
inline constexpr int kFailure = 1;
inline constexpr int kUsage = 2;

/// The whole program: follows the arguments after its name and returns what the process is to return.
int RunProgram(const std::vector<std::string>& arguments, const std::string& assetsFolder, std::ostream& out,
               std::ostream& errors);

} // namespace deal

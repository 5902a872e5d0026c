// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace bench
{

/// One curve: points of a number of cards and a value.
struct Curve {
    std::string name;
    std::vector<std::pair<double, double>> points;
};

/// An SVG picture of curves over 1 to 10,000 cards on a logarithmic axis; the values start at 0.
std::string GrowthPlot(const std::string& title, const std::string& unit, const std::vector<Curve>& curves);

} // namespace bench

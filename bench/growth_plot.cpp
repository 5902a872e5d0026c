// SPDX-License-Identifier: MIT
#include "bench/growth_plot.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <sstream>

namespace bench
{

namespace
{

constexpr double kWidth = 640.0;
constexpr double kHeight = 320.0;
constexpr double kLeft = 60.0;
constexpr double kRight = 190.0; ///< with room for the names
constexpr double kTop = 40.0;
constexpr double kBottom = 45.0;
constexpr int kDecades = 4;
constexpr const char* kColours[] = {"#1f6fb4", "#d1495b", "#2e8b57", "#8a5fbf"};

double PlotX(double cards)
{
    return kLeft + std::log10(cards) / kDecades * (kWidth - kLeft - kRight);
}

class Scale
{
public:
    explicit Scale(const std::vector<Curve>& curves)
    {
        double most = 1.0;
        for (const Curve& curve : curves) {
            for (const auto& [cards, value] : curve.points) {
                most = std::max(most, value);
            }
        }
        m_most = std::ceil(most * 1.1 / kStep) * kStep;
    }

    double Y(double value) const { return kHeight - kBottom - value / m_most * (kHeight - kTop - kBottom); }
    double Most() const { return m_most; }

    static constexpr double kStep = 0.25;

private:
    double m_most;
};

void Text(std::ostream& out, double x, double y, const std::string& anchor, const std::string& text,
          const std::string& colour = "#333")
{
    out << "<text x=\"" << x << "\" y=\"" << y << "\" text-anchor=\"" << anchor << "\" fill=\"" << colour << "\">"
        << text << "</text>\n";
}

void DrawAxes(std::ostream& out, const Scale& scale)
{
    const int lines = static_cast<int>(scale.Most() / Scale::kStep + 1e-9);
    for (int line = 0; line <= lines; ++line) {
        const double value = line * Scale::kStep;
        out << "<line x1=\"" << kLeft << "\" y1=\"" << scale.Y(value) << "\" x2=\"" << kWidth - kRight << "\" y2=\""
            << scale.Y(value) << "\" stroke=\"#ddd\"/>\n";
        std::ostringstream label;
        label << value;
        Text(out, kLeft - 8.0, scale.Y(value) + 4.0, "end", label.str());
    }
    for (int decade = 0; decade <= kDecades; ++decade) {
        const double cards = std::pow(10.0, decade);
        Text(out, PlotX(cards), kHeight - kBottom + 18.0, "middle", std::to_string(static_cast<int>(cards)));
    }
    Text(out, PlotX(100.0), kHeight - 8.0, "middle", "cards");
}

} // namespace

std::string GrowthPlot(const std::string& title, const std::string& unit, const std::vector<Curve>& curves)
{
    const Scale scale(curves);
    std::ostringstream out;
    out << "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 " << kWidth << ' ' << kHeight
        << "\" font-family=\"sans-serif\" font-size=\"12\">\n<rect width=\"100%\" height=\"100%\" fill=\"white\"/>\n";
    Text(out, kLeft, 20.0, "start", title + " (" + unit + ")");
    DrawAxes(out, scale);
    double nameY = kTop + 12.0;
    for (std::size_t i = 0; i < curves.size(); ++i) {
        const std::string colour = kColours[i % std::size(kColours)];
        out << "<polyline fill=\"none\" stroke-width=\"2\" stroke=\"" << colour << "\" points=\"";
        for (const auto& [cards, value] : curves[i].points) {
            out << PlotX(cards) << ',' << scale.Y(value) << ' ';
        }
        out << "\"/>\n";
        for (const auto& [cards, value] : curves[i].points) {
            out << "<circle r=\"3\" fill=\"" << colour << "\" cx=\"" << PlotX(cards) << "\" cy=\"" << scale.Y(value)
                << "\"/>\n";
        }
        Text(out, kWidth - kRight + 14.0, nameY, "start", curves[i].name, colour);
        nameY += 18.0;
    }
    out << "</svg>\n";
    return out.str();
}

} // namespace bench

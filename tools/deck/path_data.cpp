// SPDX-License-Identifier: MIT
#include "path_data.h"

#include <array>
#include <locale>
#include <numbers>
#include <sstream>
#include <stdexcept>
#include <string>

namespace deck
{

namespace
{

class PathReader
{
public:
    PathReader(cairo_t* cairo, std::string_view data) : m_cairo(cairo), m_data(std::string(data))
    {
        m_data.imbue(std::locale::classic());
    }

    void Read()
    {
        char command = 0;
        while (m_data >> command) {
            Append(command);
        }
    }

private:
    template <std::size_t count> std::array<double, count> Numbers()
    {
        std::array<double, count> numbers{};
        for (double& number : numbers) {
            if (!(m_data >> number)) {
                throw std::logic_error("path data: a number is missing in \"" + m_data.str() + "\"");
            }
        }
        return numbers;
    }

    void Append(char command)
    {
        switch (command) {
        case 'M': {
            const auto [x, y] = Numbers<2>();
            cairo_move_to(m_cairo, x, y);
            break;
        }
        case 'L': {
            const auto [x, y] = Numbers<2>();
            cairo_line_to(m_cairo, x, y);
            break;
        }
        case 'C': {
            const auto [x1, y1, x2, y2, x, y] = Numbers<6>();
            cairo_curve_to(m_cairo, x1, y1, x2, y2, x, y);
            break;
        }
        case 'Q': {
            const auto [xc, yc, x, y] = Numbers<4>();
            AppendQuadratic(xc, yc, x, y);
            break;
        }
        case 'O': {
            const auto [x, y, radius] = Numbers<3>();
            cairo_new_sub_path(m_cairo);
            cairo_arc(m_cairo, x, y, radius, 0.0, 2.0 * std::numbers::pi);
            cairo_close_path(m_cairo);
            break;
        }
        case 'Z':
            cairo_close_path(m_cairo);
            break;
        default:
            throw std::logic_error(std::string("path data: unknown command ") + command);
        }
    }

    // Cairo knows cubic curves only: the same curve has its control points two thirds of the way to the quadratic one.
    void AppendQuadratic(double xc, double yc, double x, double y)
    {
        double x0 = 0.0;
        double y0 = 0.0;
        cairo_get_current_point(m_cairo, &x0, &y0);
        cairo_curve_to(m_cairo, (x0 + 2.0 * xc) / 3.0, (y0 + 2.0 * yc) / 3.0, (x + 2.0 * xc) / 3.0,
                       (y + 2.0 * yc) / 3.0, x, y);
    }

    cairo_t* m_cairo;
    std::istringstream m_data;
};

} // namespace

void AppendPath(cairo_t* cairo, std::string_view data)
{
    PathReader(cairo, data).Read();
}

} // namespace deck

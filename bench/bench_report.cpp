// SPDX-License-Identifier: MIT
// Turns what the programs measured into a page and two plots:
//
//     bench_report FOLDER
//
// reads times.tsv (name, microseconds, counters) and, when it is there, counts.tsv (name, instructions a frame) in the
// folder, and writes results.md, resting.svg and flying.svg beside them.
#include "bench/growth_plot.h"

#include <cstdio>
#include <fstream>
#include <functional>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace
{

using bench::Curve;

/// What was measured, by name; 0 for what was not.
class Figures
{
public:
    explicit Figures(const std::string& folder)
    {
        ReadLines(folder + "/times.tsv");
        ReadLines(folder + "/counts.tsv");
    }

    double operator()(const std::string& name) const
    {
        const auto found = m_values.find(name);
        return found != m_values.end() ? found->second : 0.0;
    }

private:
    void ReadLines(const std::string& path)
    {
        std::ifstream file(path);
        for (std::string line; std::getline(file, line);) {
            std::istringstream fields(line);
            std::string name;
            fields >> name >> m_values[name];
            for (std::string counter; fields >> counter;) {
                const std::size_t sign = counter.find('=');
                m_values[name + ":" + counter.substr(0, sign)] = std::stod(counter.substr(sign + 1));
            }
        }
    }

    std::map<std::string, double> m_values;
};

/// A ratio with its digits, or a dash when a part was not measured.
std::string Number(double value, int digits = 2)
{
    if (!(value > 0.0) || value > 1e15) {
        return "-";
    }
    char text[32];
    std::snprintf(text, sizeof text, "%.*f", digits, value);
    return text;
}

void WriteFrames(std::ostream& out, const Figures& figures)
{
    out << "## One card flying over 51 resting ones\n\n"
           "| screen | microseconds a frame | pixels composed | over the union of the old and the new rectangle |\n"
           "|---|---|---|---|\n";
    for (const char* screen : {"800/600", "1920/1080"}) {
        const std::string name = std::string("OneFlying/") + screen + "/51";
        std::string size = screen;
        size.replace(size.find('/'), 1, " x ");
        out << "| " << size << " | " << Number(figures(name), 0) << " | " << Number(figures(name + ":pixels"), 0)
            << " | " << Number(figures(name + ":over_union"), 3) << " |\n";
    }
}

void WriteResting(std::ostream& out, const Figures& figures)
{
    out << "\n## The same over more resting cards, 1920 x 1080, as a multiple of the frame over 10\n\n"
           "| resting cards | instructions | pixels | time |\n|---|---|---|---|\n";
    const std::string first = "OneFlying/1920/1080/10";
    for (const char* cards : {"10", "100", "1000", "10000"}) {
        const std::string name = std::string("OneFlying/1920/1080/") + cards;
        out << "| " << cards << " | " << Number(figures(std::string("over/") + cards) / figures("over/10"), 4) << " | "
            << Number(figures(name + ":pixels") / figures(first + ":pixels"), 4) << " | "
            << Number(figures(name) / figures(first)) << " |\n";
    }
}

double ACard(const Figures& figures, const std::string& prefix, const std::string& cards, const std::string& suffix)
{
    return figures(prefix + cards + suffix) / std::stod(cards);
}

void WriteFlying(std::ostream& out, const Figures& figures)
{
    out << "\n## Many cards in flight, 1920 x 1080, a card as a multiple of a card among 100\n\n"
           "| cards in flight | instructions, list order | far to near | time, list order | far to near |\n"
           "|---|---|---|---|---|\n";
    for (const char* cards : {"1", "10", "100", "1000", "10000"}) {
        out << "| " << cards;
        for (const char* order : {"list/", "far/"}) {
            out << " | " << Number(ACard(figures, order, cards, "") / ACard(figures, order, "100", ""), 3);
        }
        for (const char* order : {"/0", "/1"}) {
            out << " | "
                << Number(ACard(figures, "ManyFlying/", cards, order) / ACard(figures, "ManyFlying/", "100", order));
        }
        out << " |\n";
    }
}

void WriteCompose(std::ostream& out, const Figures& figures)
{
    out << "\n## Composing the whole of 1920 x 1080: speed as a multiple of the others\n\n"
           "| picture | microseconds | of SDL2's software renderer | of cairo |\n|---|---|---|---|\n";
    const auto row = [&](const std::string& what, const std::function<double(const std::string&)>& time) {
        const double ours = time("ComposeOurs");
        out << "| " << what << " | " << Number(ours, 0) << " | " << Number(time("ComposeSdl") / ours) << " | "
            << Number(time("ComposeCairo") / ours) << " |\n";
    };
    row("the table alone", [&](const std::string& who) { return figures(who + "/0/0"); });
    for (const char* size : {"71/96", "240/336"}) {
        std::string cards = size;
        cards.replace(cards.find('/'), 1, " x ");
        row("table and 52 cards of " + cards, [&](const std::string& who) { return figures(who + "/" + size); });
        row("the cards' share",
            [&](const std::string& who) { return figures(who + "/" + size) - figures(who + "/0/0"); });
    }
}

void WriteLoading(std::ostream& out, const Figures& figures)
{
    out << "\n## Loading a sheet of 3120 x 1680, decoding left out, as a multiple of copying it into fresh memory\n\n"
           "| cutting | cutting and shading |\n|---|---|\n| "
        << Number(figures("CutSheetIntoCards/0") / figures("CopySheet")) << " | "
        << Number(figures("CutSheetIntoCards/1") / figures("CopySheet")) << " |\n";
}

/// The points that were measured, as multiples of the one at a number of cards.
Curve Relative(const std::string& name, int reference, const std::vector<int>& cards,
               const std::function<double(int)>& value)
{
    Curve curve{name, {}};
    for (const int count : cards) {
        const double ratio = value(count) / value(reference);
        if (ratio > 0.0) {
            curve.points.emplace_back(count, ratio);
        }
    }
    return curve;
}

void Plot(const std::string& folder, const Figures& figures)
{
    std::ofstream(folder + "/resting.svg")
        << bench::GrowthPlot("One card flying over more and more resting ones", "a frame, times that over 10",
                             {Relative("instructions", 10, {10, 100, 1000, 10000},
                                       [&](int cards) { return figures("over/" + std::to_string(cards)); }),
                              Relative("time", 10, {10, 100, 1000, 10000}, [&](int cards) {
                                  return figures("OneFlying/1920/1080/" + std::to_string(cards));
                              })});

    std::vector<Curve> curves;
    for (const bool farToNear : {false, true}) {
        const std::string words = farToNear ? "far to near" : "list order";
        const auto count = [&](int cards) {
            return ACard(figures, farToNear ? "far/" : "list/", std::to_string(cards), "");
        };
        const auto time = [&](int cards) {
            return ACard(figures, "ManyFlying/", std::to_string(cards), farToNear ? "/1" : "/0");
        };
        curves.push_back(Relative("instructions, " + words, 100, {1, 10, 100, 1000, 10000}, count));
        curves.push_back(Relative("time, " + words, 100, {1, 10, 100, 1000, 10000}, time));
    }
    std::ofstream(folder + "/flying.svg")
        << bench::GrowthPlot("Cards in flight", "a card, times one among 100", curves);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: bench_report FOLDER\n");
        return 2;
    }
    const std::string folder = argv[1];
    const Figures figures(folder);
    std::ofstream page(folder + "/results.md");
    page << "# Results\n\n";
    WriteFrames(page, figures);
    WriteResting(page, figures);
    WriteFlying(page, figures);
    WriteCompose(page, figures);
    WriteLoading(page, figures);
    Plot(folder, figures);
    if (!page.flush()) {
        std::fprintf(stderr, "bench_report: cannot write %s/results.md\n", folder.c_str());
        return 1;
    }
    return 0;
}

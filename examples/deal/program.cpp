// SPDX-License-Identifier: MIT
#include "examples/deal/program.h"

#include "examples/common/shuffle.h"
#include "examples/deal/deal_script.h"
#include "examples/deal/failure.h"
#include "examples/deal/frame_statistics.h"
#include "examples/deal/options.h"
#include "examples/deal/recorder.h"

#include <cmath>
#include <exception>
#include <filesystem>
#include <ostream>
#include <system_error>

namespace deal
{

namespace
{

constexpr int kRestFrames = 100;

void MakeFolder(const std::string& folder)
{
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (!std::filesystem::is_directory(folder)) {
        throw Failure("cannot make the folder '" + folder + "'" + (error ? ": " + error.message() : ""));
    }
}

void PrintSummary(std::ostream& out, int frames, const FrameStatistics& moving, const FrameStatistics& resting,
                  std::int64_t screenPixels)
{
    const double share = 100.0 * moving.RepaintedPixelsAFrame() / static_cast<double>(screenPixels);
    out << frames << " frames, in " << moving.Frames() << " of them something moved: median "
        << std::lround(moving.MedianMicroseconds()) << " us, worst " << std::lround(moving.WorstMicroseconds())
        << " us\n"
        << "repainted in each of these: " << std::lround(moving.RepaintedPixelsAFrame()) << " of " << screenPixels
        << " pixels (" << std::lround(share) << "%)\n"
        << resting.Frames() << " frames at rest repainted " << resting.RepaintedPixels() << " pixels, median "
        << std::lround(resting.MedianMicroseconds()) << " us\n";
}

void Deal(const Options& options, std::ostream& out)
{
    MakeFolder(options.outputFolder);
    HeadlessTable table(options.width, options.height, Patience::kPiles, GridOf(options.deck));
    Patience patience(table, options.deck, common::ShuffledDeck(DeckFiles::kCards, options.seed));
    Recorder recorder(table);
    FrameStatistics moving;
    int frames = 0;
    table.SetFrameObserver([&](const FrameReport& report) {
        if (report.repaintedPixels > 0) {
            moving.Add(report);
        }
        frames = report.number;
        recorder.Add(report);
    });
    DealScript script(patience, options.speed);
    script.SetSceneObserver([&out](const char* scene) { out << scene << std::endl; });
    script.Play();

    FrameStatistics resting;
    table.SetFrameObserver([&](const FrameReport& report) { resting.Add(report); });
    for (int i = 0; i < kRestFrames; ++i) {
        table.Frame();
    }
    out << "writing deal.webp, film.png and table.png to " << options.outputFolder << std::endl;
    recorder.Save(options.outputFolder);
    PrintSummary(out, frames, moving, resting, std::int64_t{options.width} * options.height);
}

} // namespace

int RunProgram(const std::vector<std::string>& arguments, const std::string& assetsFolder, std::ostream& out,
               std::ostream& errors)
{
    try {
        const Options options = ParseOptions(arguments, assetsFolder);
        if (options.help) {
            out << HelpText();
            return kSuccess;
        }
        Deal(options, out);
        return kSuccess;
    } catch (const UsageError& error) {
        errors << "deal: " << error.what() << "\nTry deal --help.\n";
        return kUsage;
    } catch (const std::exception& error) {
        errors << "deal: " << error.what() << "\n";
        return kFailure;
    }
}

} // namespace deal

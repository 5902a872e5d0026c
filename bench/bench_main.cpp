// SPDX-License-Identifier: MIT
// Runs the benchmarks. With --table=FILE the median of each goes to that file, a line "name, microseconds, counters":
// processor time, since everything runs on one thread and other programs may take turns.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstring>
#include <fstream>
#include <string>
#include <vector>

namespace
{

class TableReporter final : public benchmark::ConsoleReporter
{
public:
    explicit TableReporter(const std::string& file) : ConsoleReporter(OO_Tabular), m_file(file) {}

    void ReportRuns(const std::vector<Run>& runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (run.run_type != Run::RT_Aggregate || run.aggregate_name != "median") {
                continue;
            }
            constexpr double kMicrosecondsASecond = 1e6;
            const double seconds = run.GetAdjustedCPUTime() / benchmark::GetTimeUnitMultiplier(run.time_unit);
            m_file << run.run_name.function_name << (run.run_name.args.empty() ? "" : "/") << run.run_name.args << '\t'
                   << seconds * kMicrosecondsASecond;
            for (const auto& [name, counter] : run.counters) {
                m_file << '\t' << name << '=' << counter.value;
            }
            m_file << std::endl;
        }
    }

private:
    std::ofstream m_file;
};

} // namespace

int main(int argc, char** argv)
{
    std::string table = "/dev/null";
    constexpr const char* kOption = "--table=";
    int kept = 1;
    for (int i = 1; i < argc; ++i) {
        if (std::strncmp(argv[i], kOption, std::strlen(kOption)) == 0) {
            table = argv[i] + std::strlen(kOption);
        } else {
            argv[kept++] = argv[i];
        }
    }
    benchmark::Initialize(&kept, argv);
    if (benchmark::ReportUnrecognizedArguments(kept, argv)) {
        return 1;
    }
    TableReporter reporter(table);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}

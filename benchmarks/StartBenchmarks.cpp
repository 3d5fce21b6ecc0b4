#include "BenchmarkTable.h"

#include <cstdlib>
#include <string>

#include <benchmark/benchmark.h>
#include <sys/wait.h>

namespace paperkite::bench {

namespace {

/// See EndAtFirstPaint.cpp.
constexpr int kPainted = 42;

/// Runs a program until its first window is painted, which ends it.
Row::Side Start(const std::string& program) {
    return [command = std::string(PAPERKITE_BINARY_DIR) + "/bin/" +
                      program](benchmark::State& state, std::int64_t) {
        for (auto _ : state)
            if (WEXITSTATUS(std::system(command.c_str())) != kPainted)
                return state.SkipWithError("no window was painted");
    };
}

} // namespace

void AddStartRows(std::vector<Row>& rows) {
    rows.push_back({"program.start",
                    "the program until its first window is painted",
                    Start("start_paperkite"),
                    "an empty QMainWindow program",
                    Start("start_empty"),
                    {1},
                    Judged::TimeRatio,
                    4,
                    9});
}

} // namespace paperkite::bench

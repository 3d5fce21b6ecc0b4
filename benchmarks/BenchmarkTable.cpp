#include "BenchmarkTable.h"

#include "BenchmarkProcess.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>
#include <sstream>
#include <stdexcept>

#include <benchmark/benchmark.h>
#include <nlohmann/json.hpp>

namespace paperkite::bench {

namespace {

constexpr const char* kBytesCounter = "bytes";

/// The figures of every run, by the name of the benchmark: "row/ours/size".
class Collector : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context&) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.run_type != Run::RT_Iteration) continue;
            const std::string name = run.run_name.function_name;
            if (run.error_occurred) throw std::runtime_error(name + ": " + run.error_message);
            const auto iterations = static_cast<double>(std::max<std::int64_t>(run.iterations, 1));
            mTimes[name].push_back(run.real_accumulated_time / iterations);
            const auto bytes = run.counters.find(kBytesCounter);
            if (bytes != run.counters.end()) mBytes[name].push_back(bytes->second.value);
            std::fprintf(stderr, "%-44s %12.6f ms\n", name.c_str(), mTimes[name].back() * 1e3);
        }
    }

    /// 0 for what was not measured. What else the machine does only ever adds to a figure.
    double Least(const std::string& name, Judged by) const {
        const auto& all = by == Judged::MemoryRatio ? mBytes : mTimes;
        const auto found = all.find(name);
        if (found == all.end() || found->second.empty()) return 0;
        return *std::min_element(found->second.begin(), found->second.end());
    }

private:
    std::map<std::string, std::vector<double>> mTimes;
    std::map<std::string, std::vector<double>> mBytes;
};

std::string NameOf(const Row& row, const char* side, std::int64_t size) {
    return row.Name + "/" + side + "/" + std::to_string(size);
}

bool IsSelected(const Row& row, const std::vector<std::string>& selected) {
    return selected.empty() ||
           std::any_of(selected.begin(), selected.end(),
                       [&](const std::string& start) { return row.Name.starts_with(start); });
}

void Register(const Row& row, const char* side, const Row::Side& work) {
    if (!work) return;
    for (const std::int64_t size : row.Sizes)
        benchmark::RegisterBenchmark(NameOf(row, side, size).c_str(),
                                     [work, size](benchmark::State& state) { work(state, size); })
            ->Repetitions(row.Repetitions)
            ->UseRealTime()
            ->MinTime(0.02);
}

double FigureOf(const Result& result) {
    const double ours = result.Ours.back();
    const double other = result.Yardstick.empty() ? 0 : result.Yardstick.back();
    switch (result.Of->By) {
    case Judged::Growth:
        return result.Growth;
    case Judged::ExtraNanoseconds:
        return (ours - other) * 1e9;
    default:
        return other > 0 ? ours / other : HUGE_VAL;
    }
}

/// Ours by size, and behind them the yardstick's where there is one.
std::vector<double> Measure(const Row& row) {
    Register(row, "yardstick", row.Yardstick);
    Register(row, "ours", row.Ours);
    Collector collector;
    benchmark::RunSpecifiedBenchmarks(&collector);
    std::vector<double> figures;
    for (const char* side : {"ours", "yardstick"})
        for (const std::int64_t size : row.Sizes)
            figures.push_back(collector.Least(NameOf(row, side, size), row.By));
    return figures;
}

Result ResultOf(const Row& row, const std::vector<double>& figures) {
    Result result;
    result.Of = &row;
    const auto middle = figures.begin() + static_cast<std::ptrdiff_t>(row.Sizes.size());
    result.Ours.assign(figures.begin(), middle);
    if (row.Yardstick) result.Yardstick.assign(middle, figures.end());
    if (row.Sizes.size() > 1) result.Growth = GrowthOf(row.Sizes, result.Ours);
    result.Figure = FigureOf(result);
    result.IsWithin = result.Ours.back() > 0 && result.Figure <= row.Bound;
    return result;
}

std::string Amount(double value, Judged by) {
    char text[32];
    if (by == Judged::MemoryRatio)
        std::snprintf(text, sizeof text, "%.1f MB", value / 1e6);
    else if (value < 1e-6)
        std::snprintf(text, sizeof text, "%.1f ns", value * 1e9);
    else if (value < 1e-3)
        std::snprintf(text, sizeof text, "%.1f us", value * 1e6);
    else
        std::snprintf(text, sizeof text, "%.1f ms", value * 1e3);
    return text;
}

std::string JudgedText(double value, Judged by) {
    char text[32];
    const char* format = by == Judged::Growth             ? "n^%.2f"
                         : by == Judged::ExtraNanoseconds ? "+%.1f ns"
                                                          : "%.2f x";
    std::snprintf(text, sizeof text, format, value);
    return text;
}

const char* JudgedName(Judged by) {
    switch (by) {
    case Judged::TimeRatio:
        return "time ratio";
    case Judged::MemoryRatio:
        return "memory ratio";
    case Judged::Growth:
        return "growth exponent";
    default:
        return "extra nanoseconds";
    }
}

} // namespace

void ReportBytes(benchmark::State& state, double bytes) {
    state.counters[kBytesCounter] = bytes;
}

double GrowthOf(const std::vector<std::int64_t>& sizes, const std::vector<double>& times) {
    const auto count = static_cast<double>(sizes.size());
    double sumX = 0, sumY = 0, sumXX = 0, sumXY = 0;
    for (std::size_t index = 0; index < sizes.size(); ++index) {
        const double x = std::log(static_cast<double>(sizes[index]));
        const double y = std::log(std::max(times[index], 1e-12));
        sumX += x;
        sumY += y;
        sumXX += x * x;
        sumXY += x * y;
    }
    return (count * sumXY - sumX * sumY) / (count * sumXX - sumX * sumX);
}

std::vector<Result> RunRows(const std::vector<Row>& rows, const std::vector<std::string>& selected,
                            const Surroundings& within) {
    std::vector<Result> results;
    for (const Row& row : rows) {
        if (!IsSelected(row, selected)) continue;
        const auto measure = [&] {
            std::vector<double> figures;
            within([&] { figures = Measure(row); });
            return figures;
        };
        results.push_back(ResultOf(row, FiguresFromProcess(measure)));
    }
    return results;
}

std::string AsText(const std::vector<Result>& results) {
    std::ostringstream out;
    char line[400];
    std::snprintf(line, sizeof line, "%-64s %12s %12s %10s %8s %10s\n", "work, beside", "ours",
                  "yardstick", "judged", "growth", "bound");
    out << line;
    for (const Result& result : results) {
        const Row& row = *result.Of;
        const std::string other =
            result.Yardstick.empty() ? "-" : Amount(result.Yardstick.back(), row.By);
        const std::string growth =
            row.Sizes.size() > 1 ? JudgedText(result.Growth, Judged::Growth) : "-";
        std::snprintf(line, sizeof line, "%-64s %12s %12s %10s %8s %10s%s\n",
                      (row.Name + ": " + row.Work).substr(0, 64).c_str(),
                      Amount(result.Ours.back(), row.By).c_str(), other.c_str(),
                      JudgedText(result.Figure, row.By).c_str(), growth.c_str(),
                      JudgedText(row.Bound, row.By).c_str(), result.IsWithin ? "" : "  PAST");
        out << line;
        if (!row.YardstickName.empty()) out << "    beside: " << row.YardstickName << '\n';
    }
    return out.str();
}

std::string AsJson(const std::vector<Result>& results) {
    nlohmann::json all = nlohmann::json::array();
    for (const Result& result : results) {
        const Row& row = *result.Of;
        all.push_back({{"name", row.Name},
                       {"work", row.Work},
                       {"yardstickName", row.YardstickName},
                       {"unit", row.By == Judged::MemoryRatio ? "bytes" : "seconds"},
                       {"sizes", row.Sizes},
                       {"ours", result.Ours},
                       {"yardstick", result.Yardstick},
                       {"growth", result.Growth},
                       {"judgedBy", JudgedName(row.By)},
                       {"figure", result.Figure},
                       {"bound", row.Bound},
                       {"within", result.IsWithin}});
    }
    return all.dump(2);
}

} // namespace paperkite::bench

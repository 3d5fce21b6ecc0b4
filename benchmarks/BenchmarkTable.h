#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace benchmark {
class State;
}

namespace paperkite::bench {

/// What a row is judged by.
enum class Judged {
    TimeRatio,   ///< our time through the yardstick's, at the largest size
    MemoryRatio, ///< the same of the bytes that each side reports (see ReportBytes)
    Growth,      ///< the exponent of our time over the sizes: 0 constant, 1 linear, 2 quadratic
    ExtraNanoseconds, ///< our time less the yardstick's, a call
};

/// One row of the table: our work, beside what a user would pick instead, in the same run.
struct Row {
    using Side = std::function<void(benchmark::State&, std::int64_t size)>;

    std::string Name; ///< "store.load"
    std::string Work; ///< "load a project of 100,000 comments"
    Side Ours;
    /// What stands on the other side; rows that are judged by growth have none.
    std::string YardstickName;
    Side Yardstick;
    /// Ascending; three of them for rows that grow, one where there is nothing to grow.
    std::vector<std::int64_t> Sizes{1};
    Judged By = Judged::TimeRatio;
    double Bound = 1;
    int Repetitions = 9;
};

/// Told by a side whose memory is judged.
void ReportBytes(benchmark::State& state, double bytes);

/// A row with its figures: the least over the repetitions, times in seconds.
struct Result {
    const Row* Of = nullptr;
    std::vector<double> Ours;      ///< by size
    std::vector<double> Yardstick; ///< by size; empty for none
    double Growth = 0;             ///< of ours; 0 for a single size
    double Figure = 0;             ///< what is judged
    bool IsWithin = false;
};

/// Does the work with what it needs around it, such as an application.
using Surroundings = std::function<void(const std::function<void()>& work)>;

/// Runs the rows whose names begin with one of the selected texts (all for none), each in a process
/// of its own with both sides and all sizes taking turns, and judges them.
std::vector<Result> RunRows(const std::vector<Row>& rows, const std::vector<std::string>& selected,
                            const Surroundings& within);

/// The exponent e of the least-squares fit of times = c * sizes^e.
double GrowthOf(const std::vector<std::int64_t>& sizes, const std::vector<double>& times);

std::string AsText(const std::vector<Result>& results);
std::string AsJson(const std::vector<Result>& results);

/// The rows, a file each.
void AddProcedureRows(std::vector<Row>& rows);
void AddTreeRows(std::vector<Row>& rows);
void AddTreeViewRows(std::vector<Row>& rows);
void AddScanRows(std::vector<Row>& rows);
void AddStoreRows(std::vector<Row>& rows);
void AddEditorRows(std::vector<Row>& rows);
void AddPageRows(std::vector<Row>& rows);
void AddTextRows(std::vector<Row>& rows);
void AddSearchRows(std::vector<Row>& rows);
void AddLayoutRows(std::vector<Row>& rows);
void AddStartRows(std::vector<Row>& rows);

} // namespace paperkite::bench

#include "BenchmarkTable.h"
#include "MadeOnce.h"

#include "host/HeadlessServices.h"
#include "platform/qt/WebLibrary.h"

#include <QApplication>

#include <functional>
#include <iostream>

#include <unistd.h>

#include <CLI/CLI.hpp>
#include <benchmark/benchmark.h>

namespace {

void WithApplication(int argc, char** argv, const std::function<void()>& work) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    // The engine's own sandbox refuses to start for root.
    if (geteuid() == 0) qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
    paperkite::WebLibrary::PrepareApplication();
    QApplication application(argc, argv);
    const auto helper = paperkite::InstallHeadlessServices(PAPERKITE_SOURCE_DIR);
    char program[] = "bench";
    char turns[] = "--benchmark_enable_random_interleaving=true";
    char* arguments[] = {program, turns, nullptr};
    int count = 2;
    benchmark::Initialize(&count, arguments);
    work();
    for (auto& ends = paperkite::bench::EndsOfRow(); !ends.empty(); ends.pop_back())
        ends.back()();
}

int Run(int argc, char** argv) {
    using namespace paperkite::bench;
    CLI::App options("Measures the components beside what one would use instead.", "bench");
    bool asJson = false;
    bool onlyNames = false;
    std::vector<std::string> names;
    options.add_flag("--json", asJson, "Print the table as JSON");
    options.add_flag("--list", onlyNames, "Print the names of the rows");
    options.add_option("name", names, "Only rows whose names begin like this");
    try {
        options.parse(argc, argv);
    } catch (const CLI::ParseError& problem) {
        return options.exit(problem) == 0 ? 0 : 2;
    }
    std::vector<Row> rows;
    for (const auto add :
         {AddTreeRows, AddTreeViewRows, AddScanRows, AddStoreRows, AddEditorRows, AddTextRows,
          AddSearchRows, AddLayoutRows, AddProcedureRows, AddPageRows, AddStartRows})
        add(rows);
    if (onlyNames) {
        for (const Row& row : rows)
            std::cout << row.Name << '\n';
        return 0;
    }
    const std::vector<Result> results =
        RunRows(rows, names, [&](const auto& work) { WithApplication(argc, argv, work); });
    if (results.empty()) {
        std::cerr << "No row begins like that; bench --list prints all names.\n";
        return 2;
    }
    std::cout << (asJson ? AsJson(results) : AsText(results)) << std::flush;
    for (const Result& result : results)
        if (!result.IsWithin) return 1;
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    try {
        return Run(argc, argv);
    } catch (const std::exception& problem) {
        std::cerr << problem.what() << '\n';
        return 2;
    }
}

#include "BenchmarkTable.h"
#include "MadeOnce.h"

#include "doctypes/source/SourceScanner.h"

#include <QByteArray>
#include <QLibraryInfo>
#include <QProcess>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

namespace paperkite::bench {

namespace {

namespace fs = std::filesystem;

const std::vector<std::int64_t> kSizes{150, 300, 600};

/// As many of the Qt headers as a size asks for, in a folder that goes with it, and a cache beside.
class QtHeaders {
public:
    explicit QtHeaders(std::int64_t count)
        : mFolder(fs::temp_directory_path() / ("paperkite-bench-scan-" + std::to_string(count))) {
        const fs::path from = QLibraryInfo::path(QLibraryInfo::HeadersPath).toStdString();
        std::vector<fs::path> headers;
        for (const auto& entry : fs::recursive_directory_iterator(from))
            if (entry.is_regular_file() && entry.path().extension() == ".h")
                headers.push_back(entry.path());
        std::sort(headers.begin(), headers.end());
        if (headers.size() < static_cast<std::size_t>(count))
            throw std::runtime_error("There are too few headers in " + from.string());
        // Evenly over all of them, since folders differ.
        for (std::int64_t number = 0; number < count; ++number) {
            const std::size_t at =
                static_cast<std::size_t>(number) * headers.size() / static_cast<std::size_t>(count);
            const fs::path to = fs::path(Source()) / headers[at].lexically_relative(from);
            fs::create_directories(to.parent_path());
            fs::copy_file(headers[at], to, fs::copy_options::overwrite_existing);
        }
    }
    ~QtHeaders() {
        std::error_code ignored;
        fs::remove_all(mFolder, ignored);
    }
    QtHeaders(const QtHeaders&) = delete;
    QtHeaders& operator=(const QtHeaders&) = delete;

    SourceScanner Scanner() const {
        SourceScanner scanner(Source(), "qt");
        scanner.SetCache((mFolder / "cache").string(), "benchmark");
        return scanner;
    }
    std::string Source() const { return (mFolder / "source").string(); }
    void ForgetScans() const { fs::remove_all(mFolder / "cache"); }

private:
    fs::path mFolder;
};

const QtHeaders& HeadersOf(std::int64_t count) {
    return MadeOnce(count, [](std::int64_t size) { return std::make_unique<QtHeaders>(size); });
}

void ScanOnce(benchmark::State& state, const SourceScanner& scanner) {
    const ScanResult result = scanner.Scan();
    if (!result.Outcome.IsDone()) state.SkipWithError(result.Outcome.Message.c_str());
}

void ScanFirst(benchmark::State& state, std::int64_t count) {
    const QtHeaders& headers = HeadersOf(count);
    const SourceScanner scanner = headers.Scanner();
    for (auto _ : state) {
        state.PauseTiming();
        headers.ForgetScans();
        state.ResumeTiming();
        ScanOnce(state, scanner);
    }
}

void ScanAgain(benchmark::State& state, std::int64_t count) {
    const SourceScanner scanner = HeadersOf(count).Scanner();
    ScanOnce(state, scanner);
    for (auto _ : state)
        ScanOnce(state, scanner);
}

void CtagsAlone(benchmark::State& state, std::int64_t count) {
    const QtHeaders& headers = HeadersOf(count);
    const auto yardstick = headers.Scanner().CtagsAlone();
    QStringList arguments;
    for (const std::string& argument : yardstick.Command)
        arguments << QString::fromStdString(argument);
    const QString program = arguments.takeFirst();
    for (auto _ : state) {
        QProcess ctags;
        ctags.setWorkingDirectory(QString::fromStdString(headers.Source()));
        ctags.setStandardOutputFile(QProcess::nullDevice());
        ctags.start(program, arguments);
        ctags.write(QByteArray::fromStdString(yardstick.FileList));
        ctags.closeWriteChannel();
        if (!ctags.waitForFinished(60000) || ctags.exitCode() != 0)
            return state.SkipWithError("ctags failed");
    }
}

} // namespace

void AddScanRows(std::vector<Row>& rows) {
    rows.push_back({"scan.first", "scan 600 Qt headers for the first time", ScanFirst,
                    "ctags alone with the same options, one process", CtagsAlone, kSizes,
                    Judged::TimeRatio, 1});
    rows.push_back({"scan.again", "scan them again, nothing changed", ScanAgain, "the first scan",
                    ScanFirst, kSizes, Judged::TimeRatio, 0.25});
}

} // namespace paperkite::bench

#include "BenchmarkProcess.h"

#include <array>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <stdexcept>

#include <sys/wait.h>
#include <unistd.h>

namespace paperkite::bench {

namespace {

bool WriteAll(int pipe, const std::vector<double>& figures) {
    const char* at = reinterpret_cast<const char*>(figures.data());
    std::size_t left = figures.size() * sizeof(double);
    while (left > 0) {
        const ssize_t count = ::write(pipe, at, left);
        if (count <= 0) return false;
        at += count;
        left -= static_cast<std::size_t>(count);
    }
    return true;
}

[[noreturn]] void MeasureAndEnd(int pipe, const std::function<std::vector<double>()>& measure) {
    try {
        // What was made for the measurement is taken away by the end of the process.
        std::exit(WriteAll(pipe, measure()) ? 0 : 1);
    } catch (const std::exception& problem) {
        std::cerr << problem.what() << '\n';
        std::exit(1);
    }
}

std::vector<double> ReadAll(int pipe) {
    std::vector<double> figures;
    double figure = 0;
    while (::read(pipe, &figure, sizeof figure) == sizeof figure)
        figures.push_back(figure);
    return figures;
}

} // namespace

std::vector<double> FiguresFromProcess(const std::function<std::vector<double>()>& measure) {
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0) throw std::runtime_error("no pipe could be made");
    const pid_t child = ::fork();
    if (child == 0) {
        ::close(ends[0]);
        MeasureAndEnd(ends[1], measure);
    }
    ::close(ends[1]);
    std::vector<double> figures = ReadAll(ends[0]);
    ::close(ends[0]);
    int status = 1;
    if (child < 0 || ::waitpid(child, &status, 0) < 0 || status != 0)
        throw std::runtime_error("the process that measured did not come to its end");
    return figures;
}

} // namespace paperkite::bench

#pragma once

#include "fuzz/FuzzTarget.h"
#include "model/FileProblem.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace paperkite::fuzz {

/// A file that is refused is refused in words, with a place that the file has.
inline void RequireClear(const FileProblem& problem, std::string_view bytes) {
    const std::string message = problem.Message();
    const auto lines = static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\n')) + 1;
    Require(!problem.File.empty() && message.starts_with(problem.File), "no file: " + message);
    Require(!problem.What.empty() && !problem.Remedy.empty(), "no words: " + message);
    Require(problem.Line >= 1 && problem.Line <= lines, "no line of the file: " + message);
    Require(problem.Column >= 1 && problem.Column <= bytes.size() + 1, "no column: " + message);
}

} // namespace paperkite::fuzz

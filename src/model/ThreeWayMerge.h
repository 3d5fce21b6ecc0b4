#pragma once

#include "model/FileProblem.h"

#include <cstddef>
#include <optional>
#include <string>

namespace paperkite {

/// Puts together what two sides made of one file, a Content File or a project.
///
/// What only one side changed is taken from that side; comments are told apart by item and Id, so
/// that comments of different items never meet. What both changed in different ways is a conflict:
/// both versions are in the result, marked as docs/file-formats.md says, and MergeConflicts finds
/// and resolves them. Nothing that either side wrote is left out.
///
///     const auto merged = ThreeWayMerge::Merge({"", ""}, {"zoo.ktc", ours}, {"zoo.ktc", theirs});
///     if (merged.Problem) return Say(merged.Problem->Message());
class ThreeWayMerge {
public:
    /// A file; the name is only for problems. Empty bytes: there was no file.
    struct Input {
        std::string Name;
        std::string Bytes;
    };

    struct Result {
        /// Nothing when there is a problem.
        std::string Bytes;
        std::size_t Conflicts = 0;
        /// One of the files cannot be read.
        std::optional<FileProblem> Problem;
    };

    /// Takes time in proportion to the files. A side that is as the base gives the other side, byte
    /// for byte.
    static Result Merge(const Input& base, const Input& ours, const Input& theirs);
};

} // namespace paperkite

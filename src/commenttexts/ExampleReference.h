#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace paperkite {

/// Which part of which source file is an example. The file is followed: the part is taken out of it
/// whenever somebody looks.
///
///     source: examples/count.cpp#reading
///     Reads a file line by line.
///
/// The first line names the file and a marked region ("#name"), lines (":12-20", ":12"), or the
/// whole of it. "%", "#" and ":" of the file's own name are written "%25", "%23" and "%3A". What
/// follows is a caption of plain text.
struct ExampleReference {
    enum class Part { Whole, Lines, Region };

    /// With "/", relative to the folder of the project.
    std::string File;
    Part Taken = Part::Whole;
    /// Lines count from 1; both are taken.
    std::size_t From = 1;
    std::size_t To = 1;
    std::string Region;
    std::string Caption;

    bool operator==(const ExampleReference&) const = default;

    /// Nothing for a text that refers to no source.
    static std::optional<ExampleReference> Read(std::string_view text);
    /// Empty without a file and caption.
    std::string Write() const;
};

/// A part of a source file as it stands there.
struct ExampleSnippet {
    /// Lines, each with its "\n", without the lines that mark regions.
    std::string Text;
    /// Where it begins in the file, from 1.
    std::size_t FirstLine = 1;
    /// A sentence that says why there is nothing to take; empty when all is well.
    std::string Problem;

    /// The text without the indentation that all its lines share.
    std::string WithoutIndentation() const;
};

/// Takes the part out of the content of the file.
ExampleSnippet TakeExample(const ExampleReference& reference, std::string_view source);

/// The names of the regions that a source marks, in order, each once. A region stands between two
/// comment lines "//! [name]" (with the comment signs of any language), or between "#region name"
/// and "#endregion", with or without comment signs before them.
std::vector<std::string> RegionsIn(std::string_view source);

} // namespace paperkite

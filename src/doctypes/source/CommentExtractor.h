#pragma once

#include "doctypes/source/SourceIndex.h"
#include "doctypes/source/SourceText.h"

#include <filesystem>
#include <list>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace paperkite {

/// The comment of an entity.
struct SourceComment {
    std::vector<std::string> Lines; ///< without comment marks and common indentation
    std::string Raw;                ///< as the source has it
    std::string File;               ///< relative to the project's folder
    std::uint32_t Line = 0;         ///< where it begins
};

/// Reads the comment that stands directly before an entity (annotations, decorators and template
/// heads may stand between), Python's documentation string behind it, or a "///<" behind it in the
/// same line. It looks into the files at the time it is asked and keeps only the last few of them;
/// a file that has changed since is read anew.
class CommentExtractor {
public:
    explicit CommentExtractor(std::filesystem::path folder);

    /// Of all places of the entity the first with a comment counts, declarations before
    /// definitions. Nothing when there is no comment or the file is gone.
    std::optional<SourceComment> Find(const SourceIndex& index, SourceIndex::Id entity);

    /// The comment at one line, for an entity of that kind.
    static std::optional<SourceComment> At(const SourceText& text, std::uint32_t line,
                                           SourceKind kind, SourceLanguage language,
                                           std::string_view languageName = {});

    /// The lines of a raw comment without its marks.
    static std::vector<std::string> CleanedLines(std::string_view raw);

private:
    struct CachedFile {
        std::string file;
        std::filesystem::file_time_type time;
        SourceText text;
    };

    const SourceText* Text(std::string_view file);

    std::filesystem::path mFolder;
    std::list<CachedFile> mCache; ///< the one used last is the first
};

} // namespace paperkite

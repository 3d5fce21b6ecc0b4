#pragma once

#include "doctypes/source/CtagsTag.h"

#include <memory>
#include <string_view>

namespace paperkite {

/// Reads the JSON lines of ctags.
class CtagsTagReader {
public:
    enum class Result { Tag, Nothing, Bad };

    CtagsTagReader();
    ~CtagsTagReader();
    CtagsTagReader(const CtagsTagReader&) = delete;
    CtagsTagReader& operator=(const CtagsTagReader&) = delete;

    /// Tag when the line held one, which is now in `tag`; Nothing for a line that is no tag; Bad
    /// when it is no JSON, not UTF-8 for instance. The tag is undefined then.
    Result Read(std::string_view line, CtagsTag& tag);

private:
    struct Parser;
    std::unique_ptr<Parser> mParser;
};

} // namespace paperkite

#pragma once

#include <cstddef>
#include <string>

namespace paperkite {

/// Why a file could not be read or written: what is wrong, where, and how to mend it.
struct FileProblem {
    enum class ReasonCode {
        Missing,       ///< there is no such file
        Unreadable,    ///< it is there and cannot be read
        NotXml,        ///< its markup is broken
        WrongRoot,     ///< it is XML of another kind
        NewerVersion,  ///< a newer version of the program made it
        BadContent,    ///< its markup is sound and says what cannot be
        CannotWrite,   ///< the new content could not be stored; the old one is still there
        ChangedOnDisk, ///< somebody else wrote to it since it was read
        AlreadyExists, ///< a file that was to be made is there already
    };

    ReasonCode Reason = ReasonCode::Unreadable;
    std::string File;
    /// From 1; 0 where the problem has no place inside the file. Columns count characters.
    std::size_t Line = 0;
    std::size_t Column = 0;
    /// A sentence.
    std::string What;
    /// A sentence: what to do.
    std::string Remedy;

    /// "file:line:column: what it is. What to do."
    std::string Message() const;
};

} // namespace paperkite

#pragma once

#include "foundation/Object.h"

#include <string>

namespace paperkite {

/// A Content File of a project: a file with tagged comments, kept outside the source.
struct CommentFile : Object {
    std::string TypeName() const override { return "CommentFile"; }

    /// The whole path of the file; its extension is ".ktc".
    std::string FileName;
    /// The moniker of the root item that the comments belong to; empty: any of the project's.
    std::string RelatedItemMoniker;
    /// The name of the document type that the root item belongs to.
    std::string DocType;
};

} // namespace paperkite

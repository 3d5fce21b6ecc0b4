#pragma once

#include "model/SharedText.h"
#include "model/XmlElement.h"
#include "model/XmlReader.h"

#include <string>

namespace paperkite {

/// One Content File as a project has it open. Its comments are in the project's CommentStore; what
/// stands here is the rest, and what is needed to leave the file alone while nothing changed.
struct ContentFile {
    /// The whole path.
    std::string Path;
    /// The moniker of the project or item that the comments were written for; may be empty.
    std::string RelatedProject;
    /// The root without its comments: what the reader did not understand, written back as it was.
    XmlFile Kept;
    /// The file as it was read or last written; empty for a new one.
    SharedText Bytes;
    /// What the writer made of it right then.
    SharedText CanonicalBytes;
    /// Whether the file of that path is the one of those bytes.
    bool ExistsOnDisk = false;
    /// The project lists it and it was not there: nothing is written in its place.
    bool IsMissing = false;
};

} // namespace paperkite

#pragma once

#include "model/FileProblem.h"
#include "model/XmlElement.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace paperkite {

/// What an XML file holds: its root element, and the comments, instructions and document type that
/// stand before and behind it.
struct XmlFile {
    std::vector<XmlElement> Prolog;
    XmlElement Root;
    std::vector<XmlElement> Epilog;
};

/// Reads XML and says in words where and why it is none.
class XmlReader {
public:
    /// `file` is only named in problems.
    XmlReader(std::string file, std::string bytes)
        : mFile(std::move(file)), mBytes(std::move(bytes)) {}

    /// Nothing when all went well.
    std::optional<FileProblem> Read(XmlFile& result) const;

    /// Checks the root's name and its "version" attribute, which must be a number from 1 to
    /// `newest`; `what` names the kind of file ("a Content File").
    std::optional<FileProblem> CheckRoot(const XmlElement& root, const std::string& name,
                                         int newest, const std::string& what) const;

    /// A problem at the place of an element.
    FileProblem ProblemAt(const XmlElement& element, std::string what, std::string remedy) const;

    const std::string& GetFile() const { return mFile; }

private:
    FileProblem ProblemAt(std::size_t offset) const;
    FileProblem BrokenMarkup(std::size_t offset, const std::string& what) const;

    std::string mFile;
    std::string mBytes;
};

} // namespace paperkite

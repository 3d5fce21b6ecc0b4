#include "doctypes/SourceTree.h"

#include <atomic>
#include <fstream>
#include <gtest/gtest.h>
#include <unistd.h>

namespace paperkite::test {

namespace fs = std::filesystem;

SourceTree::SourceTree() {
    static std::atomic<int> number = 0;
    mFolder = fs::temp_directory_path() /
              ("paperkite-source-" + std::to_string(::getpid()) + "-" + std::to_string(++number));
    fs::remove_all(mFolder);
    fs::create_directories(mFolder);
}

SourceTree::~SourceTree() {
    std::error_code ignored;
    fs::remove_all(mFolder, ignored);
}

SourceTree& SourceTree::Write(const std::string& file, std::string_view text) {
    fs::create_directories((mFolder / file).parent_path());
    std::ofstream(mFolder / file, std::ios::binary) << text;
    return *this;
}

SourceIndex SourceTree::Scan() const {
    ScanResult result = SourceScanner(Folder(), "p").Scan();
    EXPECT_EQ(result.Outcome.Message, "");
    return std::move(result.Index.value());
}

namespace {

void DumpEntity(std::string& out, const SourceIndex& index, const DumpOptions& options,
                CommentExtractor* comments, SourceIndex::Id id, int depth) {
    out.append(2 * static_cast<std::size_t>(depth), ' ');
    out += "+#~-"[static_cast<int>(index.Access(id))];
    for (const std::string_view part :
         {index.KindText(id), std::string_view(" "), index.Step(id)}) {
        out += part;
    }
    if (!index.Signature(id).empty()) {
        out.append(" ").append(index.Signature(id));
    }
    if (!index.Type(id).empty()) {
        out.append(" : ").append(index.Type(id));
    }
    if (!index.Inherits(id).empty()) {
        out.append(" < ").append(index.Inherits(id));
    }
    if (options.Places) {
        for (const SourcePlace& place : index.Places(id)) {
            out.append(" @").append(place.File).append(":").append(std::to_string(place.Line));
            if (place.EndLine != place.Line) {
                out.append("-").append(std::to_string(place.EndLine));
            }
        }
    }
    if (comments != nullptr) {
        if (const auto comment = comments->Find(index, id)) {
            out += " \"";
            for (std::size_t i = 0; i < comment->Lines.size(); ++i) {
                out.append(i == 0 ? "" : "|").append(comment->Lines[i]);
            }
            out += "\"";
        }
    }
    out += "\n";
    for (const SourceIndex::Id child : index.Children(id)) {
        DumpEntity(out, index, options, comments, child, depth + 1);
    }
}

} // namespace

std::string Dump(const SourceIndex& index, const DumpOptions& options, CommentExtractor* comments,
                 SourceIndex::Id from) {
    std::string out = "\n";
    if (from != SourceIndex::Root) {
        DumpEntity(out, index, options, comments, from, 0);
        return out;
    }
    for (const SourceIndex::Id child : index.Children(from)) {
        DumpEntity(out, index, options, comments, child, 0);
    }
    return out;
}

} // namespace paperkite::test

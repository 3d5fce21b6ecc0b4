#include "model/ThreeWayMerge.h"

#include "model/ContentFileMerge.h"
#include "model/ContentFileReader.h"
#include "model/ProjectReader.h"
#include "model/ProjectWriter.h"

namespace paperkite {

namespace {

constexpr const char* kContentRoot = "contentfile";
constexpr const char* kProjectRoot = "kiteproject";

using Input = ThreeWayMerge::Input;

/// Reads a file; one without bytes is as one that says nothing, of whatever kind the others are.
std::optional<FileProblem> Read(const Input& input, XmlFile& file) {
    if (input.Bytes.empty()) return {};
    const XmlReader reader(input.Name, input.Bytes);
    if (auto problem = reader.Read(file)) return problem;
    if (file.Root.Name == kProjectRoot)
        return reader.CheckRoot(file.Root, kProjectRoot, kProjectVersion, "a project");
    if (auto problem =
            reader.CheckRoot(file.Root, kContentRoot, kContentFileVersion, "a Content File"))
        return problem;
    return ContentFileReader::CheckContent(reader, file.Root);
}

FileProblem OtherKind(const Input& input, const std::string& name) {
    FileProblem problem;
    problem.Reason = FileProblem::ReasonCode::WrongRoot;
    problem.File = input.Name;
    problem.What = "This is <" + name + ">, and the file to merge it with is of another kind.";
    problem.Remedy = "Name three versions of the same file.";
    return problem;
}

struct Versions {
    XmlFile Base;
    XmlFile Ours;
    XmlFile Theirs;
};

/// Gives empty files the root that the others have.
std::optional<FileProblem> AgreeOnRoot(const Input& base, const Input& ours, const Input& theirs,
                                       Versions& versions) {
    std::string name;
    for (const auto& [input, file] :
         {std::pair(&base, &versions.Base), std::pair(&ours, &versions.Ours),
          std::pair(&theirs, &versions.Theirs)}) {
        if (input->Bytes.empty()) continue;
        if (!name.empty() && name != file->Root.Name) return OtherKind(*input, file->Root.Name);
        name = file->Root.Name;
    }
    for (XmlFile* file : {&versions.Base, &versions.Ours, &versions.Theirs})
        file->Root.Name = name;
    return {};
}

XmlFile MergeProjects(const Versions& versions, std::size_t& conflicts) {
    XmlTreeMerge merge;
    std::vector<XmlElement> behind;
    XmlFile merged;
    merged.Prolog = XmlTreeMerge::MergeUnknown(
        {&versions.Base.Prolog, &versions.Ours.Prolog, &versions.Theirs.Prolog});
    merged.Epilog = XmlTreeMerge::MergeUnknown(
        {&versions.Base.Epilog, &versions.Ours.Epilog, &versions.Theirs.Epilog});
    merged.Root = merge.Merge({&versions.Base.Root, &versions.Ours.Root, &versions.Theirs.Root},
                              ProjectWriter::Vocabulary(), behind);
    // Nothing may stand behind the root.
    std::move(behind.begin(), behind.end(), std::back_inserter(merged.Root.Children));
    conflicts = merge.GetConflicts();
    return merged;
}

} // namespace

ThreeWayMerge::Result ThreeWayMerge::Merge(const Input& base, const Input& ours,
                                           const Input& theirs) {
    Versions versions;
    for (const auto& [input, file] :
         {std::pair(&base, &versions.Base), std::pair(&ours, &versions.Ours),
          std::pair(&theirs, &versions.Theirs)})
        if (auto problem = Read(*input, *file)) return {{}, 0, problem};
    if (auto problem = AgreeOnRoot(base, ours, theirs, versions)) return {{}, 0, problem};
    if (ours.Bytes == theirs.Bytes || theirs.Bytes == base.Bytes) return {ours.Bytes, 0, {}};
    if (ours.Bytes == base.Bytes) return {theirs.Bytes, 0, {}};

    Result result;
    if (versions.Ours.Root.Name == kProjectRoot) {
        result.Bytes = WriteXml(MergeProjects(versions, result.Conflicts));
        return result;
    }
    ContentFileMerge merge;
    result.Bytes = WriteXml(merge.Merge(std::move(versions.Base), std::move(versions.Ours),
                                        std::move(versions.Theirs)));
    result.Conflicts = merge.GetConflicts();
    return result;
}

} // namespace paperkite

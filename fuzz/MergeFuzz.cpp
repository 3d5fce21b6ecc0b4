#include "fuzz/ProblemCheck.h"
#include "model/ContentFileReader.h"
#include "model/MergeConflicts.h"
#include "model/ProjectDocument.h"
#include "model/ProjectReader.h"
#include "model/ThreeWayMerge.h"

#include <array>
#include <set>

namespace paperkite::fuzz {
namespace {

constexpr std::string_view kCut = "\n====\n";

struct Versions {
    std::string Base;
    std::string Ours;
    std::string Theirs;
};

/// The input's three files, each behind a cut.
Versions Cut(std::string_view input) {
    std::array<std::string, 3> parts;
    for (std::string& part : parts) {
        const std::size_t end = std::min(input.find(kCut), input.size());
        part = input.substr(0, end);
        input.remove_prefix(std::min(end + kCut.size(), input.size()));
    }
    return {parts[0], parts[1], parts[2]};
}

ThreeWayMerge::Result Merge(const std::string& base, const std::string& ours,
                            const std::string& theirs) {
    return ThreeWayMerge::Merge({"/base", base}, {"/ours", ours}, {"/theirs", theirs});
}

/// A file that opens, and the texts of its comments.
struct Opened {
    bool IsGood = false;
    bool IsContentFile = false;
    std::set<std::string> Texts;
    std::string Problem;
};

Opened Open(const std::string& bytes) {
    Opened opened;
    const auto file = MakeRef<ContentFile>();
    file->Path = "/content.ktc";
    CommentStore store;
    const auto problem = ContentFileReader::ReadBytes(file, bytes, store);
    if (!problem) {
        opened.IsGood = opened.IsContentFile = true;
        for (const std::string& item : store.QualifiedNames()) {
            const auto comments = store.Find(item);
            for (const auto& comment : *comments)
                opened.Texts.insert(comment->GetText());
        }
        return opened;
    }
    const auto project = ProjectDocument::New("/nowhere/project.kiteproject").Project;
    const auto other = ProjectReader::Read(bytes, *project);
    opened.IsGood = !other;
    opened.Problem = problem->Message() + (other ? "\n" + other->Message() : std::string());
    return opened;
}

void RequireEachProblemClear(const FileProblem& problem, const Versions& versions) {
    Require(problem.File == "/base" || problem.File == "/ours" || problem.File == "/theirs",
            "a problem of no file: " + problem.Message());
    // That the files are of different kinds is no matter of a line.
    if (problem.Line == 0) {
        Require(!problem.What.empty() && !problem.Remedy.empty(), "no words");
        return;
    }
    RequireClear(problem, problem.File == "/base"   ? versions.Base
                          : problem.File == "/ours" ? versions.Ours
                                                    : versions.Theirs);
}

/// A side that did nothing gives the other one.
void RequireTheOnlyChange(const std::string& base, const std::string& changed) {
    for (const auto& [ours, theirs] :
         {std::pair(&changed, &base), std::pair(&base, &changed), std::pair(&changed, &changed)}) {
        const auto result = Merge(base, *ours, *theirs);
        Require(!result.Problem && result.Conflicts == 0 && result.Bytes == changed,
                "a side that changed nothing changes the other:\n" + result.Bytes);
    }
}

/// No text that one side wrote is missing in what came of it.
void RequireEveryText(const Versions& versions, const Opened& merged, const std::string& bytes) {
    const Opened base = Open(versions.Base);
    for (const std::string* side : {&versions.Ours, &versions.Theirs})
        for (const std::string& text : Open(*side).Texts)
            // A comment without a text, beside one that says something, is filled by it.
            Require(text.empty() || base.Texts.contains(text) || merged.Texts.contains(text),
                    "a text is lost: " + text + "\n---\n" + bytes);
}

/// Both versions of everything can be kept, and then nothing is left to decide.
void RequireResolvable(const Versions& versions, const ThreeWayMerge::Result& result) {
    for (const std::string* side : {&versions.Base, &versions.Ours, &versions.Theirs})
        if (MergeConflicts::MayBeIn(*side)) return;
    const auto conflicts = MergeConflicts::Find(result.Bytes);
    Require(conflicts.size() == result.Conflicts,
            std::to_string(result.Conflicts) + " conflicts, and " +
                std::to_string(conflicts.size()) + " are found:\n" + result.Bytes);
    for (const Keeping keeping : {Keeping::Ours, Keeping::Theirs, Keeping::Both}) {
        std::vector<Keeping> choices(conflicts.size(), keeping);
        for (std::size_t index = 0; index < choices.size(); ++index)
            if (keeping == Keeping::Both && !conflicts[index].MayKeepBoth)
                choices[index] = Keeping::Ours;
        const std::string resolved = MergeConflicts::Resolve(result.Bytes, choices);
        Require(MergeConflicts::Find(resolved).empty(), "a conflict stays:\n" + resolved);
        const Opened opened = Open(resolved);
        Require(opened.IsGood, "what was resolved does not open: " + opened.Problem);
        if (keeping == Keeping::Both && opened.IsContentFile)
            RequireEveryText(versions, opened, resolved);
    }
}

const FuzzTarget target("merge", [](std::string_view input) {
    const Versions versions = Cut(input);
    const auto result = Merge(versions.Base, versions.Ours, versions.Theirs);
    if (result.Problem) {
        Require(result.Bytes.empty(), "a problem, and bytes all the same");
        RequireEachProblemClear(*result.Problem, versions);
        return;
    }
    RequireTheOnlyChange(versions.Base, versions.Ours);
    RequireTheOnlyChange(versions.Base, versions.Theirs);
    if (versions.Ours.empty() || versions.Theirs.empty()) return;
    if (!Open(versions.Ours).IsGood || !Open(versions.Theirs).IsGood) return;
    if (!versions.Base.empty() && !Open(versions.Base).IsGood) return;
    const Opened merged = Open(result.Bytes);
    Require(merged.IsGood, "the result does not open: " + merged.Problem + "\n" + result.Bytes);
    if (merged.IsContentFile) RequireEveryText(versions, merged, result.Bytes);
    RequireResolvable(versions, result);
});

} // namespace
} // namespace paperkite::fuzz

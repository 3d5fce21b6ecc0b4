#include "faults/WalkedOperations.h"

#include <algorithm>
#include <map>
#include <sstream>

#include <gtest/gtest.h>

namespace paperkite::test {

namespace {

constexpr FailureKind kKinds[] = {FailureKind::RunTimeError, FailureKind::StandardException,
                                  FailureKind::OutOfMemory, FailureKind::NoExceptionClass};

/// With the sanitizers, which are slow where exceptions fly, samples are taken.
int StepOf(FailureKind kind) {
#ifdef __SANITIZE_ADDRESS__
    return kind == FailureKind::RunTimeError ? 3 : 23;
#else
    static_cast<void>(kind);
    return 1;
#endif
}

ScannedProject& Scanned() {
    static ScannedProject scanned;
    return scanned;
}

/// An operation that runs through: what it leads to, and how often it uses the world.
struct Reference {
    std::string Before;
    std::string State;
    std::string Comments;
    std::vector<std::string> Used;
};

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

/// A comment without its text.
std::string NameOf(const std::string& line) {
    return line.substr(0, line.find(": "));
}

/// What is wrong with the comments after a failure: each one that was there is there with its old
/// or its new text, or the operation takes it away; none is there that nobody wrote.
std::string Losses(const std::string& before, const std::string& after, const std::string& found) {
    const auto old = LinesOf(before);
    const auto wanted = LinesOf(after);
    const auto present = LinesOf(found);
    const auto has = [](const auto& lines, const std::string& line) {
        return std::find(lines.begin(), lines.end(), line) != lines.end();
    };
    const auto names = [](const auto& lines, const std::string& name) {
        return std::any_of(lines.begin(), lines.end(),
                           [&](const auto& line) { return NameOf(line) == name; });
    };
    std::string losses;
    for (const std::string& line : old)
        if (names(wanted, NameOf(line)) && !names(present, NameOf(line)))
            losses += "lost: " + line + "\n";
    for (const std::string& line : present)
        // A comment that was made and not finished yet has no text.
        if (!has(old, line) && !has(wanted, line) && !line.ends_with("new: "))
            losses += "changed: " + line + "\n";
    return losses;
}

Reference RunThrough(const WalkedOperation& operation) {
    WalkScene scene(Scanned());
    scene.Begin();
    operation.Prepare(scene);
    Reference reference;
    reference.Before = scene.Scanned.Comments();
    EXPECT_EQ(scene.Services.TakeReports(), "") << "while preparing";
    scene.Failure.Arm(0);
    operation.Run(scene);
    reference.Used = scene.Failure.GetUsed();
    scene.Failure.Disarm();
    EXPECT_EQ(scene.Services.TakeReports(), "") << "where nothing fails";
    reference.Comments = scene.Scanned.Comments();
    if (!operation.IsLast) reference.State = scene.State();
    return reference;
}

bool StartsWithOneOf(const std::string& text, std::initializer_list<const char*> beginnings) {
    return std::any_of(beginnings.begin(), beginnings.end(),
                       [&](const char* beginning) { return text.starts_with(beginning); });
}

/// How many reports a failure may give, at least and at most.
struct Reports {
    int Least = 1;
    int Most = 1;
};

Reports ExpectedReports(const WalkedOperation& operation, const std::vector<std::string>& used,
                        std::size_t use);

int CountLines(const std::string& text) {
    return static_cast<int>(std::count(text.begin(), text.end(), '\n'));
}

void CheckFailure(const WalkedOperation& operation, const Reference& reference, int use,
                  FailureKind kind) {
    WalkScene scene(Scanned());
    scene.Begin();
    operation.Prepare(scene);
    scene.Services.TakeReports();
    scene.Failure.Arm(use, kind);
    EXPECT_NO_THROW(operation.Run(scene));
    scene.Failure.Disarm();
    const std::string failed = scene.Failure.GetFailed();
    SCOPED_TRACE("use " + std::to_string(use) + ": " + failed);
    EXPECT_NE(failed, "");
    const std::string reports = scene.Services.TakeReports();
    const Reports expected =
        ExpectedReports(operation, reference.Used, static_cast<std::size_t>(use) - 1);
    EXPECT_GE(CountLines(reports), expected.Least) << reports;
    EXPECT_LE(CountLines(reports), expected.Most) << reports;
    EXPECT_EQ(Losses(reference.Before, reference.Comments, scene.Scanned.Comments()), "");
    operation.Check(scene);
    if (use == 1) {
        const auto problem = scene.Scanned.Project->Save();
        EXPECT_FALSE(problem) << problem->Message();
        EXPECT_EQ(scene.Scanned.StoredComments(), scene.Scanned.Comments());
    }
    if (operation.IsLast) {
        EXPECT_NO_THROW(operation.Run(scene));
        return;
    }
    scene.Begin();
    ASSERT_NO_THROW(operation.Prepare(scene)) << scene.Services.TakeReports() << scene.State();
    EXPECT_EQ(scene.Services.TakeReports(), "") << "on the way after the failure";
    EXPECT_NO_THROW(operation.Run(scene));
    EXPECT_EQ(scene.Services.TakeReports(), "") << "after the failure";
    operation.Check(scene);
    EXPECT_EQ(scene.State(), reference.State);
}

class EveryOperationTest : public testing::TestWithParam<WalkedOperation> {};

TEST_P(EveryOperationTest, SurvivesTheFailureOfEachUseOfTheWorld) {
    const WalkedOperation& operation = GetParam();
    const Reference reference = RunThrough(operation);
    for (const FailureKind kind : kKinds)
        for (int use = 1; use <= static_cast<int>(reference.Used.size()); use += StepOf(kind)) {
            CheckFailure(operation, reference, use, kind);
            ASSERT_FALSE(HasFailure()) << "the first loss tells enough";
        }
}

std::string TestName(const testing::TestParamInfo<WalkedOperation>& info) {
    return info.param.Owner + "_" + info.param.Name + "_" + std::to_string(info.index);
}

TEST(StartingTest, SurvivesTheFailureOfEachUseOfTheWorld) {
    std::string wanted;
    int uses = 0;
    {
        WalkScene scene(Scanned());
        scene.Failure.Arm(0);
        scene.Begin();
        uses = scene.Failure.GetUses();
        scene.Failure.Disarm();
        wanted = scene.State();
    }
    EXPECT_GT(uses, 20);
    for (const FailureKind kind : kKinds)
        for (int use = 1; use <= uses; use += StepOf(kind)) {
            WalkScene scene(Scanned());
            scene.Failure.Arm(use, kind);
            EXPECT_NO_THROW(scene.Begin());
            scene.Failure.Disarm();
            SCOPED_TRACE("use " + std::to_string(use) + ": " + scene.Failure.GetFailed());
            scene.Services.TakeReports();
            EXPECT_NO_THROW(scene.Begin());
            EXPECT_EQ(scene.Services.TakeReports(), "");
            EXPECT_EQ(scene.State(), wanted);
            if (testing::Test::HasFailure()) return;
        }
}

INSTANTIATE_TEST_SUITE_P(Operations, EveryOperationTest, testing::ValuesIn(AllOperations()),
                         TestName);

bool IsHandlerOfChange(const std::vector<std::string>& used, std::size_t use) {
    return use < used.size() && (used[use] == "Handler.Added" || used[use] == "Handler.Deleted");
}

/// The tree's node is made bold, or not any more, right before the host hears of the change.
bool IsBoldness(const std::vector<std::string>& used, std::size_t use) {
    if (used[use] == "Item.Get(QualifiedName)") return IsHandlerOfChange(used, use + 1);
    return used[use] == "Item.Get(TaggedComments)" && use + 2 < used.size() &&
           used[use + 1] == "Item.Get(QualifiedName)" && used[use + 2] == "Handler.Deleted";
}

/// The key of a node that is being added: an item that cannot tell its name is left out.
bool IsKeyOfNewNode(const std::vector<std::string>& used, std::size_t use) {
    return used[use] == "Item.Get(QualifiedName) while loading" && use > 0 &&
           StartsWithOneOf(used[use - 1], {"Item.Get(Name)", "Data."});
}

/// What the text ignores: an item's looks while it comes into the tree, flags of items that have
/// none, a description that cannot be kept in step, the boldness of a node, and a scratch file that
/// stays.
bool IsIgnored(const std::vector<std::string>& used, std::size_t use) {
    return StartsWithOneOf(used[use],
                           {"Item.Get(Access)", "Item.Get(RootFlag)", "Item.Set(RootFlag)",
                            "Item.Set(TaggedDescription)", "Item.Get(TaggedComments) while loading",
                            "FileSystem.DeleteFile", "FileSystem.CreateFolder"}) ||
           IsBoldness(used, use);
}

Reports ExpectedReports(const WalkedOperation& operation, const std::vector<std::string>& used,
                        std::size_t use) {
    if (IsIgnored(used, use)) return {0, 0};
    const bool rebuilds = operation.Name == "Refresh" || operation.Owner == "DockHost";
    if (IsKeyOfNewNode(used, use)) return {0, rebuilds ? 1 : 0};
    const std::string& failed = used[use];
    // Ignored for those beside and above the item, reported for the item itself.
    if (StartsWithOneOf(failed, {"Item.Set(IncludeFlag)", "Item.Set(ExcludeFlag)"})) return {0, 1};
    // Comments that cannot be read are none, and what is looked for among them is not there.
    if (failed == "Item.Get(TaggedComments)") return {1, 2};
    // A root that cannot be shown leaves no first node to be selected.
    return {1, rebuilds && failed.ends_with(" while loading") ? 2 : 1};
}

} // namespace

} // namespace paperkite::test

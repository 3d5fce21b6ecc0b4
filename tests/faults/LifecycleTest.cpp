#include "faults/WalkedOperations.h"
#include "widgets/Keys.h"

#include <map>

#include <gtest/gtest.h>

namespace paperkite::test {

namespace {

ScannedProject& Scanned() {
    static ScannedProject scanned;
    return scanned;
}

/// What a handler of the host may do to the components that call it.
struct Answer {
    const char* Name;
    void (*Do)(WalkScene&);
    bool Ends = false;
};

constexpr Answer kAnswers[] = {
    {"selects another item", [](WalkScene& s) { s.Tree().SelectItem("demo~app~B"); }},
    {"selects nothing", [](WalkScene& s) { s.Tree().SetSelectedItem(nullptr); }},
    {"refreshes the tree", [](WalkScene& s) { s.Tree().Refresh(); }},
    {"refreshes the editor", [](WalkScene& s) { s.Comments().Refresh(false); }},
    {"refreshes the screen", [](WalkScene& s) { s.Screen().Refresh(); }},
    {"clears the tree", [](WalkScene& s) { s.Tree().Clear(); }},
    {"clears the editor", [](WalkScene& s) { s.Comments().Clear(); }},
    {"clears the screen", [](WalkScene& s) { s.Screen().Clear(); }},
    {"loads anew", [](WalkScene& s) { s.Load(); }},
    {"closes the item", [](WalkScene& s) { s.Comments().SetCurrentCodeElement(nullptr); }},
    {"commits", [](WalkScene& s) { s.Screen().CommitEdit(); }},
    {"opens and closes nodes",
     [](WalkScene& s) {
         for (const auto& node : s.Tree().GetNodes())
             node->SetExpanded(!node->GetExpanded());
     }},
    {"deletes all nodes", [](WalkScene& s) { s.TreeWidget().Nodes.Clear(); }},
    {"ends the screen", [](WalkScene& s) { s.Screen().Terminate(); }, true},
    {"ends the tree", [](WalkScene& s) { s.Tree().Terminate(); }, true},
    {"ends the editor", [](WalkScene& s) { s.Comments().Terminate(); }, true},
};

/// Runs an operation; the host's handlers do something to the components, each once.
void RunWithAnswer(WalkScene& scene, const WalkedOperation& operation, const Answer& answer) {
    bool isAnswering = false;
    std::map<std::string, int> answered;
    scene.Failure.OnUse = [&](const std::string& use) {
        if (isAnswering || !use.starts_with("Handler.") || answered[use]++ > 0) return;
        isAnswering = true;
        answer.Do(scene);
        isAnswering = false;
    };
    scene.Failure.Arm(0);
    EXPECT_NO_THROW(operation.Run(scene));
    scene.Failure.Disarm();
    scene.Failure.OnUse = nullptr;
}

bool ChangesComments(const std::string& before, WalkScene& scene) {
    return scene.Scanned.Comments() != before;
}

class LifecycleTest : public testing::TestWithParam<WalkedOperation> {
protected:
    void Prepare(WalkScene& scene) {
        scene.Begin();
        GetParam().Prepare(scene);
        scene.Services.TakeReports();
    }
    /// The comments and the state to which the operation leads when nobody interferes.
    void RunUndisturbed() {
        WalkScene scene(Scanned());
        Prepare(scene);
        const std::string before = scene.Scanned.Comments();
        GetParam().Run(scene);
        mIsChange = ChangesComments(before, scene);
        if (!GetParam().IsLast) mState = scene.State();
    }

    bool mIsChange = false;
    std::string mState;
};

TEST_P(LifecycleTest, HandlersMayCallBack) {
    RunUndisturbed();
    for (const Answer& answer : kAnswers) {
        SCOPED_TRACE(answer.Name);
        WalkScene scene(Scanned());
        Prepare(scene);
        const std::string before = scene.Scanned.Comments();
        RunWithAnswer(scene, GetParam(), answer);
        if (!mIsChange && GetParam().Name != "UserType") {
            const std::string after = scene.Scanned.Comments();
            // Nobody changed a comment, but for an edit that was under way and is kept.
            EXPECT_TRUE(after == before || after.find("rewritten") != std::string::npos) << after;
        }
        if (answer.Ends || GetParam().IsLast) continue;
        Prepare(scene);
        EXPECT_NO_THROW(GetParam().Run(scene));
        EXPECT_EQ(scene.Services.TakeReports(), "");
        EXPECT_EQ(scene.State(), mState);
    }
}

TEST_P(LifecycleTest, NothingEscapesBehindTheEnd) {
    for (void (*end)(WalkScene&) : {+[](WalkScene& s) { s.Screen().Terminate(); },
                                    +[](WalkScene& s) { s.Tree().Terminate(); },
                                    +[](WalkScene& s) { s.Comments().Terminate(); }}) {
        WalkScene scene(Scanned());
        Prepare(scene);
        end(scene);
        end(scene);
        EXPECT_NO_THROW(GetParam().Run(scene));
        EXPECT_NO_THROW(GetParam().Run(scene));
        scene.Screen().Terminate();
    }
}

std::string TestName(const testing::TestParamInfo<WalkedOperation>& info) {
    return info.param.Owner + "_" + info.param.Name + "_" + std::to_string(info.index);
}

INSTANTIATE_TEST_SUITE_P(Operations, LifecycleTest, testing::ValuesIn(AllOperations()), TestName);

TEST(EndingTest, ControlsThatOutliveTheirComponentAreHeardNoMore) {
    auto scene = std::make_unique<WalkScene>(Scanned());
    scene->Begin();
    scene->SelectNote();
    const auto tree = scene->Tree().tvwProject;
    const auto dock = scene->Tree().Dock;
    const auto tags = scene->Comments().prpTags;
    const auto bar = scene->Comments().eb;
    const auto split = scene->Screen().splitMain;
    const auto node = scene->Node("demo~app~B");
    const auto note = tags->Item("a-note");
    scene.reset();
    const std::string before = Scanned().Comments();
    tree->UserClick(node);
    tree->UserToggle(node);
    tree->UserKeyUp(KeyN, 0);
    dock->UserClick("Grouped");
    dock->UserClick("Paste");
    dock->UserClientResize({0, 0, 10, 10});
    tags->UserClick(note);
    tags->UserClickButton("DeleteButton");
    tags->UserKeyDown(KeyDelete, 0);
    bar->UserClick(bar->GetGroup("other")->Item("other"));
    split->UserDrag(70);
    EXPECT_EQ(Scanned().Comments(), before);
    EXPECT_TRUE(node->IsAttached());
}

TEST(EndingTest, NodesThatOutliveTheirTreeAreDetached) {
    auto scene = std::make_unique<WalkScene>(Scanned());
    scene->Begin();
    const auto node = scene->Node("demo~app~B");
    scene.reset();
    EXPECT_FALSE(node->IsAttached());
    EXPECT_EQ(ErrorNumberOf([&] { node->SetExpanded(true); }), 91);
}

TEST(EndingTest, TheModelMayGoFirst) {
    WalkScene scene(Scanned());
    scene.Begin();
    scene.Services.TakeReports();
    // The comment editor keeps the project, the tree does not.
    scene.Comments().SetKiteProject(nullptr);
    scene.Project = MakeRef<FailingProject>(scene.Failure, Scanned());
    EXPECT_FALSE(scene.Tree().GetKiteProject());
    EXPECT_NO_THROW(scene.Tree().Refresh());
    EXPECT_NO_THROW(scene.Tree().SelectItem("demo~app~A~Run"));
    EXPECT_NE(scene.Services.TakeReports(), "");
    scene.Begin();
    EXPECT_EQ(scene.Services.TakeReports(), "");
    EXPECT_TRUE(scene.Tree().SelectItem("demo~app~A~Run"));
}

TEST(EndingTest, TheServicesMayGoFirst) {
    auto editor = std::make_unique<ProjectEditor>();
    editor->SetUserMode(true);
    {
        const ScriptedServices scripted;
        CurrentServices() = Services();
        EXPECT_NO_THROW(editor->ReloadSettings());
        EXPECT_NO_THROW(editor->SetAppName("Kite"));
        EXPECT_NO_THROW(editor.reset());
    }
}

} // namespace

} // namespace paperkite::test

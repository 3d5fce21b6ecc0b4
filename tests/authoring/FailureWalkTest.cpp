#include "authoring/ProjectEditor.h"
#include "support/ModelServices.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

namespace paperkite::test {
namespace {

/// Counts the uses of the model, and lets one of them fail.
class FailureSwitch {
public:
    void FailAt(int use) {
        mUses = 0;
        mFailAt = use;
        mFailed.clear();
    }
    void Off() { mFailAt = 0; }
    void Use(const std::string& what) {
        if (mFailAt == 0 || ++mUses != mFailAt) return;
        mFailed = what;
        RaiseError(1000);
    }
    /// What failed since FailAt, or an empty text.
    const std::string& Failed() const { return mFailed; }

private:
    [[noreturn]] static void RaiseError(int number) { throw Error(number, "the model failed"); }

    int mUses = 0;
    int mFailAt = 0;
    std::string mFailed;
};

class FailingRegistry : public MemoryRegistry {
public:
    explicit FailingRegistry(FailureSwitch& failure) : mFailure(failure) {}
    void CreateKey(RegistryHive root, const std::string& keyPath) override {
        mFailure.Use("CreateKey");
        MemoryRegistry::CreateKey(root, keyPath);
    }
    void WriteValue(RegistryHive root, const std::string& keyPath, const std::string& name,
                    int type, const std::string& value) override {
        mFailure.Use("WriteValue(" + name + ")");
        MemoryRegistry::WriteValue(root, keyPath, name, type, value);
    }
    Value ReadValue(RegistryHive root, const std::string& keyPath,
                    const std::string& name) override {
        mFailure.Use("ReadValue(" + name + ")");
        return MemoryRegistry::ReadValue(root, keyPath, name);
    }

private:
    FailureSwitch& mFailure;
};

class FailingPipe : public CommentPipeModel {
public:
    explicit FailingPipe(FailureSwitch& failure) : mFailure(failure) {}
    Ref<TaggedCommentCollection>
    Consolidate(const Ref<TaggedCommentCollection>& comments) override {
        mFailure.Use("Consolidate");
        return CommentPipeModel::Consolidate(comments);
    }
    Ref<TaggedCommentCollection> Separate(const Ref<TaggedCommentCollection>& comments) override {
        mFailure.Use("Separate");
        return CommentPipeModel::Separate(comments);
    }

private:
    FailureSwitch& mFailure;
};

class FailingWrapper : public Object {
public:
    explicit FailingWrapper(FailureSwitch& failure) : mFailure(failure) {}
    std::string TypeName() const override { return "CommandWrapper"; }
    Value Call(std::string_view member, const std::vector<Value>&) override {
        mFailure.Use("Wrapper." + std::string(member));
        return {};
    }

private:
    FailureSwitch& mFailure;
};

/// A whole authoring screen over a model that may fail at any of its uses.
class Scene {
public:
    Scene() {
        CurrentServices().Registry = std::make_shared<FailingRegistry>(Failure);
        CurrentServices().CreateCommentPipe = [this] { return MakeRef<FailingPipe>(Failure); };
        TestItem::OnUse = [this](const std::string& use) { Failure.Use(use); };
        Model.Provider->OnCall = [this](const std::string& call) { Failure.Use(call); };
        Model.Def("Test:Method")->ItemTextTemplate = "method %%Name%%";
        Model.Item("P")->With("VBProjectGroup", Value(Model.Item("P~A")));
        Define("##").IsGeneral = true;
        Define("#note");
        Define("#todo").TagType = "f";
        for (const char* name : {"P~A", "P~B", "P~A~Run"}) {
            Model.Item(name)->Comment("#note", std::string("stored at ") + name,
                                      std::string(name) + "-note", 1);
            Model.Item(name)->Comment("##", "general", std::string(name) + "-general", 1);
        }
        Editor = std::make_unique<ProjectEditor>();
        for (const char* name : {"Project", "Class", "Method", "Field"})
            mImages->Add(name, {"code", {}, name});
        Editor->Project.SetImageList(mImages);
        Editor->SetKiteProject(Model.Project);
        Editor->BindToWrapper(MakeRef<FailingWrapper>(Failure));
    }
    ~Scene() {
        Failure.Off();
        Editor->Terminate();
        TestItem::OnUse = nullptr;
    }
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;

    ProjectView& Tree() { return Editor->Project; }
    CommentEditor& Comments() { return Editor->cEditor; }
    Ref<TreeNode> Node(const std::string& key) { return Tree().GetNodes().Item(key); }
    void Load() { Tree().LoadFromNamespaceDefs(Model.Defs, "moniker", true); }
    void Open(const std::string& name) {
        const auto item = Model.Item(name);
        Comments().Load(Model.Def(item->DefinitionName), item, Model.Provider->Root);
    }
    Ref<PropertyItem> Offer(const std::string& tag) {
        for (const auto& row : *Comments().prpTags)
            if (row->GetReadOnly() && row->GetCaption() == tag) return row;
        return {};
    }
    bool Lists(const std::string& text) {
        for (const auto& row : *Comments().prpTags)
            if (row->GetValue() == text) return true;
        return false;
    }
    std::size_t CountOf(const std::string& name) { return Model.Item(name)->Comments()->Count(); }
    std::string TextOf(const std::string& name) {
        return Model.Item(name)->Comments()->Item(name + "-note")->GetText();
    }
    /// The stored comments that are gone from their items.
    std::string Lost() {
        std::string lost;
        for (const char* name : {"P~A", "P~B", "P~A~Run"})
            for (const char* kind : {"-note", "-general"})
                if (!Model.Item(name)->Comments()->Contains(std::string(name) + kind))
                    lost += std::string(name) + kind + " ";
        return lost;
    }

    ModelServices Services;
    KeptConfiguration Configuration;
    FailureSwitch Failure;
    TestModel Model;
    std::unique_ptr<ProjectEditor> Editor;

private:
    TaggedCommentDef& Define(const std::string& tag) {
        const auto definition = MakeRef<TaggedCommentDef>();
        definition->TagIdentifier = tag;
        definition->DisplayName = "Name of " + tag;
        definition->Namespaces = "Test:Class,Test:Method,Test:Project";
        GlobalConfig().TaggedCommentDefs->Add(definition);
        return *definition;
    }

    Ref<ImageList> mImages = MakeRef<ImageList>();
};

/// What happens at one operation, and how one can see that it was done.
struct Walk {
    std::function<void(Scene&)> Prepare = [](Scene&) {};
    std::function<void(Scene&)> Operate;
    std::function<bool(Scene&)> Done;
    /// Uses whose failure is ignored on purpose.
    std::function<bool(const std::string&)> IsIgnored = [](const std::string&) { return false; };
    /// How many reports a failure may give beyond the first: what it left undone may fail again.
    std::function<int(Scene&)> FollowUps = [](Scene&) { return 0; };
    /// Comments that the operation itself removes.
    std::string Removes;
};

std::size_t LinesIn(const std::string& text) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

void PrepareAnew(Scene& scene, const Walk& walk) {
    scene.Editor->Clear();
    scene.Load();
    scene.Services.TakeReports();
    walk.Prepare(scene);
}

/// Lets every use of the model fail in turn until the operation runs through; gives the number of
/// failures walked.
int WalkFailures(const Walk& walk) {
    constexpr int kTooMany = 2000;
    for (int use = 1; use < kTooMany; ++use) {
        Scene scene;
        PrepareAnew(scene, walk);
        EXPECT_EQ(scene.Services.TakeReports(), "") << "while preparing";
        scene.Failure.FailAt(use);
        EXPECT_NO_THROW(walk.Operate(scene));
        scene.Failure.Off();
        const std::string failed = scene.Failure.Failed();
        SCOPED_TRACE("use " + std::to_string(use) + " failed: " + failed);
        if (failed.empty()) {
            EXPECT_EQ(scene.Services.TakeReports(), "");
            EXPECT_TRUE(walk.Done(scene));
            EXPECT_EQ(scene.Lost(), walk.Removes);
            return use - 1;
        }
        const std::size_t least = walk.IsIgnored(failed) ? 0 : 1;
        const std::size_t most = 1 + static_cast<std::size_t>(walk.FollowUps(scene));
        const std::string reports = scene.Services.TakeReports();
        const std::size_t count = LinesIn(reports);
        EXPECT_TRUE(count >= least && count <= most) << reports;
        const std::string lost = scene.Lost();
        EXPECT_TRUE(lost.empty() || lost == walk.Removes) << lost;
        if (!lost.empty()) continue; // It was done in spite of the failure.
        PrepareAnew(scene, walk);
        EXPECT_EQ(scene.Services.TakeReports(), "") << "after the failure";
        walk.Operate(scene);
        EXPECT_EQ(scene.Services.TakeReports(), "") << "after the failure";
        EXPECT_TRUE(walk.Done(scene));
        EXPECT_EQ(scene.Lost(), walk.Removes);
    }
    ADD_FAILURE() << "the operation never ran through";
    return kTooMany;
}

bool IsOneOf(const std::string& use, std::initializer_list<const char*> names) {
    return std::any_of(names.begin(), names.end(), [&](const char* name) { return use == name; });
}

// The tree ignores what it cannot read of an item's looks, and an item that cannot tell its name.
bool IsLook(const std::string& use) {
    return IsOneOf(use,
                   {"Get(Access)", "Get(TaggedComments)", "Get(RootFlag)", "Get(QualifiedName)"});
}

// An item without a description of its own is as good as one with.
bool IsDescription(const std::string& use) {
    return IsOneOf(use, {"Set(TaggedDescription)", "Set(Description)"});
}

// An item that the tree does not show has no node to make bold.
bool IsBoldness(const std::string& use) {
    return IsOneOf(use, {"Get(QualifiedName)", "Get(TaggedComments)"});
}

bool IsLookOrDescription(const std::string& use) {
    return IsLook(use) || IsDescription(use);
}

int One(Scene&) {
    return 1;
}

/// Opens the note of an item and types over it, without leaving the edit.
void RewriteNoteOfA(Scene& scene) {
    scene.Tree().SelectItem("P~A");
    auto& list = *scene.Comments().prpTags;
    list.SetSelectedItem(list.Item("P~A-note"));
    list.BeginEdit();
    list.UserType("rewritten");
}

TEST(FailureWalkTest, LoadingTheTree) {
    Walk walk;
    walk.Prepare = [](Scene& scene) { scene.Tree().Clear(); };
    walk.Operate = [](Scene& scene) { scene.Load(); };
    walk.Done = [](Scene& scene) { return scene.Tree().GetNodes().Contains("P_dummy"); };
    walk.IsIgnored = IsLook;
    EXPECT_GT(WalkFailures(walk), 5);
}

TEST(FailureWalkTest, OpeningANode) {
    Walk walk;
    walk.Prepare = [](Scene& scene) { scene.Node("P")->SetExpanded(true); };
    walk.Operate = [](Scene& scene) { scene.Node("P~A")->SetExpanded(true); };
    walk.Done = [](Scene& scene) {
        return scene.Tree().GetNodes().Contains("P~A~Size") &&
               scene.Node("P~A~Run")->GetText() == "method Run" && scene.Node("P~A~Run")->GetBold();
    };
    walk.IsIgnored = IsLook;
    EXPECT_GT(WalkFailures(walk), 15);
}

TEST(FailureWalkTest, OpeningANodeWithCheckBoxes) {
    Walk walk;
    walk.Prepare = [](Scene& scene) {
        scene.Tree().SetSupportsSelection(true);
        scene.Load();
    };
    walk.Operate = [](Scene& scene) { scene.Node("P")->SetExpanded(true); };
    walk.Done = [](Scene& scene) { return scene.Model.Item("P~C")->Flag("IncludeFlag"); };
    walk.IsIgnored = IsLook;
    EXPECT_GT(WalkFailures(walk), 10);
}

TEST(FailureWalkTest, RefreshingTheTree) {
    Walk walk;
    walk.Prepare = [](Scene& scene) {
        scene.Tree().SelectItem("P~A~Run");
        scene.Tree().SetShowPrivate(true);
    };
    walk.Operate = [](Scene& scene) { scene.Tree().Refresh(); };
    walk.Done = [](Scene& scene) {
        const auto selected = scene.Tree().GetSelectedItem();
        return selected && selected->GetKey() == "P~A~Run";
    };
    walk.IsIgnored = IsLookOrDescription;
    // Where the root could not be loaded there is no first node to select either.
    walk.FollowUps = [](Scene& scene) { return scene.Tree().GetNodes().Count() == 0 ? 1 : 0; };
    EXPECT_GT(WalkFailures(walk), 20);
}

TEST(FailureWalkTest, SelectingAnItemBelowUnopenedNodes) {
    Walk walk;
    walk.Operate = [](Scene& scene) { scene.Tree().SelectItem("P~A~Run"); };
    walk.Done = [](Scene& scene) {
        const auto selected = scene.Tree().GetSelectedItem();
        return selected && selected->GetKey() == "P~A~Run";
    };
    walk.IsIgnored = IsLookOrDescription;
    EXPECT_GT(WalkFailures(walk), 30);
}

TEST(FailureWalkTest, HighlightingCommentedNodes) {
    Walk walk;
    walk.Prepare = [](Scene& scene) {
        scene.Tree().SetHighlightCommentedItems(false);
        scene.Load();
        scene.Node("P")->SetExpanded(true);
        scene.Tree().SetHighlightCommentedItems(true);
    };
    walk.Operate = [](Scene& scene) { scene.Tree().HighlightCommentedNodes(); };
    walk.Done = [](Scene& scene) {
        return scene.Node("P~A")->GetBold() && scene.Node("P~B")->GetBold() &&
               !scene.Node("P~C")->GetBold();
    };
    EXPECT_GT(WalkFailures(walk), 5);
}

TEST(FailureWalkTest, TickingAll) {
    Walk walk;
    walk.Prepare = [](Scene& scene) {
        scene.Tree().SetSupportsSelection(true);
        scene.Load();
        scene.Node("P")->SetExpanded(true);
        scene.Tree().UnCheckAll();
    };
    walk.Operate = [](Scene& scene) { scene.Tree().CheckAll(); };
    walk.Done = [](Scene& scene) {
        return scene.Node("P~C")->GetChecked() && scene.Tree().GetExclusions()->Count() == 0 &&
               scene.Model.Item("P~C")->Flag("IncludeFlag");
    };
    EXPECT_GT(WalkFailures(walk), 5);
}

TEST(FailureWalkTest, LoadingAnElementIntoTheEditor) {
    Walk walk;
    walk.Prepare = [](Scene& scene) { scene.Open("P~B"); };
    walk.Operate = [](Scene& scene) { scene.Open("P~A"); };
    walk.Done = [](Scene& scene) { return scene.Lists("stored at P~A"); };
    walk.IsIgnored = IsDescription;
    EXPECT_GT(WalkFailures(walk), 2);
}

TEST(FailureWalkTest, RefreshingTheEditor) {
    Walk walk;
    walk.Prepare = [](Scene& scene) {
        scene.Open("P~A");
        scene.Model.Item("P~A")->Comments()->Item("P~A-note")->SetText("changed outside");
    };
    walk.Operate = [](Scene& scene) { scene.Comments().Refresh(false); };
    walk.Done = [](Scene& scene) { return scene.Lists("changed outside"); };
    EXPECT_GT(WalkFailures(walk), 1);
}

TEST(FailureWalkTest, AddingAComment) {
    Walk walk;
    walk.Prepare = [](Scene& scene) {
        scene.Open("P~A~Run");
        scene.Comments().prpTags->UserClick(scene.Offer("#note"));
    };
    walk.IsIgnored = [](const std::string& use) { return use == "Get(QualifiedName)"; };
    walk.Operate = [](Scene& scene) { scene.Comments().prpTags->UserClickButton("AddButton"); };
    walk.Done = [](Scene& scene) {
        return scene.CountOf("P~A~Run") >= 3 && scene.Comments().prpTags->GetInEdit();
    };
    // A comment that could not be added, or listed, has no row to go on with.
    walk.FollowUps = One;
    EXPECT_GT(WalkFailures(walk), 2);
}

TEST(FailureWalkTest, EditingAComment) {
    Walk walk;
    walk.Prepare = [](Scene& scene) {
        scene.Open("P~A");
        auto& list = *scene.Comments().prpTags;
        list.SetSelectedItem(list.Item("P~A-note"));
        list.BeginEdit();
        list.UserType("rewritten");
    };
    walk.Operate = [](Scene& scene) { scene.Comments().CommitEdit(); };
    walk.Done = [](Scene& scene) { return scene.TextOf("P~A") == "rewritten"; };
    walk.FollowUps = One;
    EXPECT_GT(WalkFailures(walk), 1);
}

TEST(FailureWalkTest, DeletingAComment) {
    Walk walk;
    walk.Prepare = [](Scene& scene) { scene.Open("P~A"); };
    walk.IsIgnored = IsBoldness;
    walk.Operate = [](Scene& scene) { scene.Comments().DeleteCommentItem("P~A-note"); };
    walk.Done = [](Scene& scene) { return scene.CountOf("P~A") == 1; };
    walk.Removes = "P~A-note ";
    // A comment that is not found cannot be deleted either.
    walk.FollowUps = One;
    EXPECT_GT(WalkFailures(walk), 1);
}

TEST(FailureWalkTest, TickingAFlag) {
    Walk walk;
    walk.Prepare = [](Scene& scene) { scene.Open("P~A"); };
    walk.IsIgnored = [](const std::string& use) { return use == "Get(QualifiedName)"; };
    walk.Operate = [](Scene& scene) { scene.Comments().prpFlags->Item("#todo")->SetChecked(true); };
    walk.Done = [](Scene& scene) {
        return scene.CountOf("P~A") == 3 && scene.Comments().prpFlags->Item("#todo")->GetChecked();
    };
    EXPECT_GT(WalkFailures(walk), 0);
}

TEST(FailureWalkTest, ClickingANode) {
    Walk walk;
    walk.Prepare = [](Scene& scene) { scene.Tree().SelectItem("P~B"); };
    walk.Operate = [](Scene& scene) { scene.Tree().SelectItem("P~A"); };
    walk.Done = [](Scene& scene) {
        return scene.Comments().GetCurrentCodeElement() == scene.Model.Item("P~A") &&
               scene.Lists("stored at P~A") &&
               scene.Model.Item("P~A")->Comments()->GetConsolidated() &&
               !scene.Model.Item("P~B")->Comments()->GetConsolidated();
    };
    walk.IsIgnored = IsLookOrDescription;
    EXPECT_GT(WalkFailures(walk), 10);
}

TEST(FailureWalkTest, CommittingThroughTheScreen) {
    Walk walk;
    walk.Prepare = RewriteNoteOfA;
    walk.Operate = [](Scene& scene) { scene.Editor->CommitEdit(); };
    walk.Done = [](Scene& scene) {
        return scene.TextOf("P~A") == "rewritten" &&
               !scene.Model.Item("P~A")->Comments()->GetConsolidated();
    };
    walk.FollowUps = One;
    EXPECT_GT(WalkFailures(walk), 2);
}

TEST(FailureWalkTest, PastingComments) {
    Walk walk;
    walk.Prepare = [](Scene& scene) {
        scene.Services.Helper->CopyComments(scene.Model.Item("P~A"));
        scene.Tree().SelectItem("P~C");
    };
    walk.Operate = [](Scene& scene) {
        scene.Tree().SetPasteCommentsEnabled(true);
        scene.Tree().Dock->UserClick("Paste");
    };
    walk.Done = [](Scene& scene) {
        return scene.CountOf("P~C") >= 2 && scene.Node("P~C")->GetBold() &&
               scene.Lists("stored at P~A");
    };
    walk.IsIgnored = IsLookOrDescription;
    EXPECT_GT(WalkFailures(walk), 5);
}

TEST(FailureWalkTest, RefreshingTheScreen) {
    Walk walk;
    walk.Prepare = RewriteNoteOfA;
    walk.Operate = [](Scene& scene) { scene.Editor->Refresh(); };
    walk.Done = [](Scene& scene) {
        return scene.TextOf("P~A") == "rewritten" && scene.Lists("rewritten") &&
               scene.Node("P~A")->GetSelected();
    };
    walk.IsIgnored = IsLookOrDescription;
    walk.FollowUps = One;
    EXPECT_GT(WalkFailures(walk), 20);
}

TEST(FailureWalkTest, Settings) {
    Walk walk;
    walk.Operate = [](Scene& scene) {
        scene.Editor->SetAppName("Kite");
        scene.Editor->SetSplitPercent(34);
        scene.Editor->ReloadSettings();
    };
    walk.Done = [](Scene& scene) { return scene.Editor->GetSplitPercent() == 34; };
    EXPECT_GE(WalkFailures(walk), 7);
}

} // namespace
} // namespace paperkite::test

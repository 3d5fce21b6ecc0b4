#include "authoring/PageFixture.h"
#include "model/CodeItem.h"
#include "model/ProjectDocument.h"
#include "support/HtmlFixtures.h"
#include "support/TemporaryFolder.h"

namespace paperkite::test {
namespace {

constexpr const char* kName = "P~Fixtures";

/// Serves one more item, whose comments are those of a store.
class StoreProvider : public TestProvider {
public:
    using TestProvider::TestProvider;
    Ref<Object> ItemByQualifiedName(const std::string& name) override {
        return name == kName ? Stored : TestProvider::ItemByQualifiedName(name);
    }
    Ref<Object> Stored;
};

/// An item with a comment for each HTML fixture, in a Content File; its page has a place for each.
class NeverHarmedTest : public PageFixture {
protected:
    NeverHarmedTest() {
        std::string body = PlaceTag(kName, "#other", "hint");
        for (std::size_t number = 0; number < mFixtures.size(); ++number) {
            Define(TagOf(number), mFixtures[number].Name);
            body += "<div>" + PlaceTag(kName, TagOf(number)) + "</div>";
        }
        Define("#other", "Other");
        Write("class.html", body);
        const auto project = Open();
        const auto comments = project->GetComments()->CommentsOf({}, kName);
        for (std::size_t number = 0; number < mFixtures.size(); ++number) {
            const auto comment = MakeRef<TaggedComment>(mFixtures[number].Name);
            comment->SetTagIdentifier(TagOf(number));
            comment->SetText(mFixtures[number].Source);
            comments->Add(comment, comment->GetId());
        }
        ExpectSaved(*project);
        mBytes = mFolder.Read("texts.ktc");
        mProvider->Data = mData;
        mModel.Project->Providers["test"] = mProvider;
    }
    ~NeverHarmedTest() override { mEditor.Terminate(); }

    static std::string TagOf(std::size_t number) { return "#fixture" + std::to_string(number); }
    Ref<ProjectDocument> Open() {
        const std::string path = mFolder / "texts.kiteproject";
        if (std::filesystem::exists(path)) return ProjectDocument::Open(path).Project;
        const auto project = ProjectDocument::New(path).Project;
        project->AddContentFile(mFolder / "texts.ktc");
        return project;
    }
    static void ExpectSaved(ProjectDocument& project) {
        const auto problem = project.Save();
        EXPECT_FALSE(problem) << problem->Message();
    }
    /// Opens the stored project and the page of its item.
    Ref<ProjectDocument> Show() {
        const auto project = Open();
        const auto item = MakeRef<CodeItem>("ModuleElement", kName, project->GetComments());
        mProvider->Stored = item;
        mEditor.Load(mModel.Def("Test:Class"), item, mModel.Provider->Root);
        EXPECT_EQ(Widget().GetPlaces().size(), mFixtures.size() + 1) << mServices.TakeReports();
        mLog.Take();
        return project;
    }
    /// The fixtures whose stored text is not what was written.
    std::string Harmed(const ProjectDocument& project) {
        std::string harmed;
        const auto comments = const_cast<ProjectDocument&>(project).GetComments()->Find(kName);
        for (const HtmlFixture& fixture : mFixtures)
            if (!comments->Contains(fixture.Name) ||
                comments->Item(fixture.Name)->GetWrittenText() != fixture.Source)
                harmed += fixture.Name + " ";
        return harmed;
    }

    TemporaryFolder mFolder;
    std::vector<HtmlFixture> mFixtures = HtmlFixtures();
    Ref<StoreProvider> mProvider = MakeRef<StoreProvider>(mModel.Log);
    std::string mBytes;
};

TEST_F(NeverHarmedTest, LookingAtAPageChangesNoStoredByte) {
    ASSERT_GT(mFixtures.size(), 30u);
    const auto project = Show();
    for (const char* view : {"htmlsource", "preview", "normal"})
        ShowView(view);
    Load("P~B");
    EXPECT_FALSE(mEditor.GetDirty());
    EXPECT_EQ(Harmed(*project), "");
    ExpectSaved(*project);
    EXPECT_EQ(mFolder.Read("texts.ktc"), mBytes);
    EXPECT_EQ(Harmed(*Open()), "");
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(NeverHarmedTest, ThePageShowsTheNormalisedTexts) {
    const auto project = Show();
    const auto comments = project->GetComments()->Find(kName);
    std::string wrong;
    for (std::size_t number = 0; number < mFixtures.size(); ++number) {
        const auto comment = comments->Item(mFixtures[number].Name);
        if (comment->GetText() != mFixtures[number].Result || comment->GetState() != 0 ||
            Span(kName, TagOf(number))->GetInnerHTML() != mFixtures[number].Result)
            wrong += mFixtures[number].Name + " ";
    }
    EXPECT_EQ(wrong, "");
}

TEST_F(NeverHarmedTest, AChangeElsewhereOnThePageKeepsTheOthersByteForByte) {
    const auto project = Show();
    Type(kName, "#other", "typed");
    mEditor.CommitEdit();
    EXPECT_TRUE(mEditor.GetDirty());
    EXPECT_EQ(Harmed(*project), "");
    ExpectSaved(*project);
    const auto again = Open();
    EXPECT_EQ(Harmed(*again), "");
    const auto comments = again->GetComments()->Find(kName);
    EXPECT_EQ(comments->Count(), mFixtures.size() + 1);
    // And once more, from the files.
    Load("P~B");
    Show();
    Type(kName, "#other", "typed again");
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(NeverHarmedTest, AViewThatReportsWhatThereIsChangesNothing) {
    const auto project = Show();
    const auto places = Widget().GetPlaces();
    for (std::size_t place = 0; place < places.size(); ++place)
        if (places[place]->GetId().find("#other") == std::string::npos)
            Widget().UserSpanChanged(place, places[place]->GetInnerHTML());
    EXPECT_EQ(mLog.Take(), "");
    EXPECT_EQ(Harmed(*project), "");
    EXPECT_FALSE(mEditor.GetDirty());
}

TEST_F(NeverHarmedTest, AChangedTextIsStoredAsItWasTyped) {
    const auto project = Show();
    Type(kName, TagOf(0), "<b>typed</b>");
    ExpectSaved(*project);
    const auto comments = Open()->GetComments()->Find(kName);
    EXPECT_EQ(comments->Item(mFixtures[0].Name)->GetText(), "<b>typed</b>");
    EXPECT_EQ(Harmed(*project), mFixtures[0].Name + " ");
}

} // namespace
} // namespace paperkite::test

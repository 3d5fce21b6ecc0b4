#include "model/HomelessComments.h"

#include "foundation/GlobalConfig.h"
#include "model/ContentFileReader.h"
#include "model/ContentFileWriter.h"

#include <gtest/gtest.h>

namespace paperkite {

namespace {

using Entry = HomelessComments::Entry;

/// A code base of which only the names are there; "name/Kind/signature" in each text.
class Code : public CoverageSource, public ItemDirectory {
public:
    explicit Code(const std::vector<std::string>& items) {
        for (const std::string& item : items) {
            const std::size_t kind = item.find('/');
            const std::size_t signature = item.find('/', kind + 1);
            ItemPlace place;
            place.QualifiedName = item.substr(0, kind);
            place.Kind = item.substr(kind + 1, signature - kind - 1);
            place.Namespace = "kite.source:" + place.Kind;
            place.Signature = item.substr(signature + 1);
            mItems.push_back(place);
        }
    }
    bool Exists(const std::string& name) const override {
        for (const ItemPlace& item : mItems)
            if (item.QualifiedName == name) return true;
        return false;
    }
    void ForEach(const std::function<void(const CoverageRow&)>&) const override {}
    void ForEachItem(const std::function<void(const ItemPlace&)>& visit) const override {
        for (const ItemPlace& item : mItems)
            visit(item);
    }

private:
    std::vector<ItemPlace> mItems;
};

class HomelessCommentsTest : public testing::Test {
protected:
    HomelessCommentsTest() : mBefore(GlobalConfig().TaggedCommentDefs) {
        GlobalConfig().TaggedCommentDefs = MakeRef<TaggedCommentDefs>();
        Define("##", "");
        Define("##returns", "kite.source:Method,kite.source:Function");
    }
    ~HomelessCommentsTest() override { GlobalConfig().TaggedCommentDefs = mBefore; }

    static void Define(const std::string& tag, const std::string& levels) {
        auto definition = MakeRef<TaggedCommentDef>();
        definition->TagIdentifier = tag;
        definition->Namespaces = levels;
        GlobalConfig().TaggedCommentDefs->Add(definition);
    }
    void Comment(const std::string& item, const std::string& id, const std::string& tag = "##") {
        auto comment = MakeRef<TaggedComment>(id);
        comment->SetTagIdentifier(tag);
        comment->SetText("text of " + id);
        mStore->Load(item, comment, {});
    }
    /// "gone (comments): home, reason; …", a line each.
    std::string Found(const Code& code) {
        std::string lines;
        for (const Entry& entry : HomelessComments::Find(*mStore, code, code)) {
            lines += entry.QualifiedName + " (" + std::to_string(entry.Comments) + "):";
            for (const auto& home : entry.Homes)
                lines += " " + home.QualifiedName + ", " + home.Reason + ";";
            lines += "\n";
        }
        return lines;
    }
    std::string Listed() {
        std::string lines;
        for (const std::string& item : mStore->QualifiedNames())
            for (const auto& comment : *mStore->Find(item))
                lines += item + "=" + comment->GetId() + " ";
        return lines;
    }

    Ref<TaggedCommentDefs> mBefore;
    Ref<CommentStore> mStore = MakeRef<CommentStore>();
};

TEST_F(HomelessCommentsTest, NobodyIsHomelessWhileAllItemsAreThere) {
    Comment("p~A", "1");
    EXPECT_EQ(Found(Code({"p~A/Class/"})), "");
}

TEST_F(HomelessCommentsTest, AnItemWithoutAnyLikeItHasNoHome) {
    Comment("p~A~Run", "1");
    Comment("p~A~Run", "2");
    EXPECT_EQ(Found(Code({"p~B/Class/", "p~B~Weigh/Method/()"})), "p~A~Run (2):\n");
}

TEST_F(HomelessCommentsTest, AMovedItemIsFoundByItsName) {
    Comment("p~A~Run", "1");
    EXPECT_EQ(Found(Code({"p~A/Class/", "p~B~Run/Method/()"})),
              "p~A~Run (1): p~B~Run, same name in another place;\n");
}

TEST_F(HomelessCommentsTest, AChangedSignatureComesBeforeTheSameNameElsewhere) {
    Comment("p~A~Run(int)", "1");
    EXPECT_EQ(Found(Code({"p~B~Run/Method/(int)", "p~A~Run(long)/Method/(long count)"})),
              "p~A~Run(int) (1): p~A~Run(long), same name and place, another signature; "
              "p~B~Run, same name in another place;\n");
}

TEST_F(HomelessCommentsTest, AnItemThatGotAnOverloadIsFoundAgain) {
    Comment("p~A~Run", "1");
    const std::string found = Found(Code({"p~A~Run()/Method/()", "p~A~Run(int)/Method/(int)"}));
    EXPECT_NE(found.find("p~A~Run(), same name and place"), std::string::npos) << found;
    EXPECT_NE(found.find("p~A~Run(int), same name and place"), std::string::npos) << found;
}

TEST_F(HomelessCommentsTest, ARenamedItemIsFoundInItsPlaceByASimilarName) {
    Comment("p~A~GetSize", "1");
    EXPECT_EQ(Found(Code({"p~A~getSize/Method/()", "p~A~Weigh/Method/()"})),
              "p~A~GetSize (1): p~A~getSize, same place, similar name;\n");
}

TEST_F(HomelessCommentsTest, ItemsToWhichTheTagsDoNotApplyAreNoHomes) {
    Comment("p~A~size", "1", "##returns");
    EXPECT_EQ(Found(Code({"p~B~size/Field/", "p~C~size/Method/()"})),
              "p~A~size (1): p~C~size, same name in another place;\n");
}

TEST_F(HomelessCommentsTest, TheMembersOfARenamedTypeAreFoundTogether) {
    for (const char* member : {"Open", "Close", "Read"})
        Comment(std::string("p~Reader~") + member, member);
    std::vector<std::string> items{"p~Other~Open/Method/()", "p~Another~Read/Method/()"};
    for (const char* member : {"Open", "Close", "Read"})
        items.push_back(std::string("p~FileReader~") + member + "/Method/()");
    const Code code(items);
    for (const Entry& entry : HomelessComments::Find(*mStore, code, code)) {
        ASSERT_FALSE(entry.Homes.empty()) << entry.QualifiedName;
        EXPECT_TRUE(entry.Homes.front().QualifiedName.starts_with("p~FileReader~"))
            << entry.Homes.front().QualifiedName;
        EXPECT_EQ(entry.Homes.front().Reason, "same name, and its neighbours are there too");
    }
}

TEST_F(HomelessCommentsTest, AMemberThatWasRenamedWithItsTypeIsFoundThere) {
    Comment("p~TableReader", "1");
    Comment("p~TableReader~Count", "2");
    EXPECT_EQ(Found(Code({"p~FileReader/Class/", "p~FileReader~RowCount/Method/()",
                          "p~Other~RowCount/Method/()"})),
              "p~TableReader (1): p~FileReader, same place, similar name;\n"
              "p~TableReader~Count (1): p~FileReader~RowCount, similar name, in what its place "
              "seems to be now;\n");
}

TEST_F(HomelessCommentsTest, ARenamedTypeIsFoundByWhatStoodBelowIt) {
    Comment("p~a~Dog", "1");
    Comment("p~a~Dog~Bark", "2");
    Comment("p~a~Dog~Age", "3");
    const Code code({"p~b~Cat/Class/", "p~b~Cat~Age/Method/", "p~b~Hound/Class/",
                     "p~b~Hound~Bark/Method/", "p~b~Hound~Age/Method/"});
    const auto found = HomelessComments::Find(*mStore, code, code);
    ASSERT_EQ(found.size(), 3u);
    ASSERT_EQ(found[0].Homes.size(), 1u);
    EXPECT_EQ(found[0].Homes[0].QualifiedName, "p~b~Hound");
    EXPECT_EQ(found[0].Homes[0].Reason, "most of what stood below it is there");
}

TEST_F(HomelessCommentsTest, ASearchThatIsEndedGivesNothingAndIsAskedNoMore) {
    Comment("p~Gone", "1");
    std::vector<std::string> many;
    for (int item = 0; item < 20'000; ++item)
        many.push_back("p~Item" + std::to_string(item) + "/Class/");
    const Code code(many);
    int asked = 0;
    EXPECT_EQ(HomelessComments::Find(*mStore, code, code, [&] { return ++asked > 0; }).size(), 1u);
    EXPECT_GT(asked, 2);
    asked = 0;
    EXPECT_TRUE(HomelessComments::Find(*mStore, code, code, [&] { return ++asked < 2; }).empty());
    EXPECT_EQ(asked, 2);
}

TEST_F(HomelessCommentsTest, APlanMovesNothing) {
    Comment("p~Old", "1");
    Comment("p~Old~Run", "2");
    Comment("p~Old~Stop", "3");
    const Code code({"p~New/Class/", "p~New~Run/Method/"});
    const HomelessComments::Moves expected{{"p~Old", "p~New"}, {"p~Old~Run", "p~New~Run"}};
    EXPECT_EQ(HomelessComments::Plan(*mStore, code, "p~Old", "p~New"), expected);
    EXPECT_EQ(HomelessComments::Names(*mStore, code),
              (std::vector<std::string>{"p~Old", "p~Old~Run", "p~Old~Stop"}));
    EXPECT_EQ(HomelessComments::Adopt(*mStore, code, "p~Old", "p~New"), expected);
    EXPECT_EQ(HomelessComments::Names(*mStore, code), std::vector<std::string>{"p~Old~Stop"});
}

TEST_F(HomelessCommentsTest, AtMostThreeHomesAreGivenTheLikeliestFirst) {
    Comment("p~A~Run", "1");
    std::vector<std::string> items;
    for (const char* place : {"B", "C", "D", "E", "F"})
        items.push_back("p~" + std::string(place) + "~Run/Method/()");
    const Code code(items);
    const auto found = HomelessComments::Find(*mStore, code, code);
    ASSERT_EQ(found.size(), 1u);
    ASSERT_EQ(found[0].Homes.size(), 3u);
    EXPECT_GE(found[0].Homes[0].Likeness, found[0].Homes[1].Likeness);
    EXPECT_GE(found[0].Homes[1].Likeness, found[0].Homes[2].Likeness);
}

TEST_F(HomelessCommentsTest, AdoptingMovesTheCommentsBehindThoseThatAreThere) {
    Comment("p~A", "1");
    Comment("p~A", "2");
    Comment("p~B", "3");
    const auto moved = HomelessComments::Adopt(*mStore, Code({"p~B/Class/"}), "p~A", "p~B");
    ASSERT_EQ(moved.size(), 1u);
    EXPECT_EQ(Listed(), "p~B=3 p~B=1 p~B=2 ");
}

TEST_F(HomelessCommentsTest, AdoptingATypeTakesWhatStoodBelowItWhereTheLikeIsThere) {
    Comment("p~A", "1");
    Comment("p~A~Run", "2");
    Comment("p~A~Stop", "3");
    const auto moved =
        HomelessComments::Adopt(*mStore, Code({"p~B/Class/", "p~B~Run/Method/()"}), "p~A", "p~B");
    EXPECT_EQ(moved.size(), 2u);
    EXPECT_EQ(Listed(), "p~A~Stop=3 p~B=1 p~B~Run=2 ");
}

TEST_F(HomelessCommentsTest, AnIdThatIsTakenGetsAFreshOneAndNoTextIsLost) {
    Comment("p~A", "1");
    Comment("p~B", "1");
    HomelessComments::Adopt(*mStore, Code({"p~B/Class/"}), "p~A", "p~B");
    EXPECT_EQ(mStore->CountOf("p~B"), 2u);
    EXPECT_EQ(mStore->CountOf("p~A"), 0u);
}

TEST_F(HomelessCommentsTest, AdoptedCommentsStayInTheirFileUnderTheNewName) {
    const std::string bytes =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<contentfile version=\"1\">\n"
        "  <comment item=\"p~A\" tag=\"##\" id=\"1\"><![CDATA[\ntext\n]]></comment>\n"
        "</contentfile>\n";
    const auto file = MakeRef<ContentFile>();
    ASSERT_FALSE(ContentFileReader::ReadBytes(file, bytes, *mStore));
    HomelessComments::Adopt(*mStore, Code({"p~B/Class/"}), "p~A", "p~B");
    std::string expected = bytes;
    expected.replace(expected.find("p~A"), 3, "p~B");
    EXPECT_EQ(ContentFileWriter::Bytes(*file, *mStore), expected);
}

} // namespace
} // namespace paperkite

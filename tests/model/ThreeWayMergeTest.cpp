#include "model/ThreeWayMerge.h"

#include "foundation/GlobalConfig.h"
#include "model/ContentFileReader.h"
#include "model/MergeConflicts.h"
#include "model/StoredText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace paperkite {

namespace {

struct Said {
    std::string Item;
    std::string Id;
    std::string Text;
    std::string More = {};
};

/// A Content File as this program writes it.
std::string FileOf(const std::vector<Said>& comments, const std::string& inside = {}) {
    std::string bytes = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<contentfile version=\"1\">\n";
    for (const Said& said : comments)
        bytes += "  <comment item=\"" + said.Item + "\" tag=\"##\" id=\"" + said.Id + "\"" +
                 said.More + "><![CDATA[\n" + said.Text + "\n]]></comment>\n";
    return bytes + inside + "</contentfile>\n";
}

ThreeWayMerge::Result Merge(const std::string& base, const std::string& ours,
                            const std::string& theirs) {
    auto result = ThreeWayMerge::Merge({"base", base}, {"ours", ours}, {"theirs", theirs});
    EXPECT_FALSE(result.Problem) << result.Problem->Message();
    return result;
}

std::string ProblemOf(const std::string& base, const std::string& ours, const std::string& theirs) {
    const auto result = ThreeWayMerge::Merge({"base", base}, {"ours", ours}, {"theirs", theirs});
    EXPECT_EQ(result.Bytes, "");
    return result.Problem ? result.Problem->Message() : "no problem";
}

/// "item#id=text …" of all comments, in the file's order.
std::string Comments(const std::string& bytes) {
    const auto file = MakeRef<ContentFile>();
    file->Path = "merged.ktc";
    CommentStore store;
    const auto problem = ContentFileReader::ReadBytes(file, bytes, store);
    EXPECT_FALSE(problem) << problem->Message();
    std::string result;
    for (const std::string& name : store.QualifiedNames())
        for (const auto& comment : *store.Find(name))
            result += (result.empty() ? "" : " ") + name + "#" + comment->GetId() + "=" +
                      comment->GetText();
    return result;
}

std::string Conflicts(const std::string& bytes) {
    std::string result;
    const auto text = [](const std::optional<std::string>& side) { return side ? *side : "-"; };
    for (const MergeConflict& conflict : MergeConflicts::Find(bytes))
        result += "[" + conflict.Item + " " + conflict.Tag + ": " + text(conflict.Base) + " > " +
                  text(conflict.Ours) + " | " + text(conflict.Theirs) + "]";
    return result;
}

std::string ProjectOf(const std::string& inside) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<kiteproject version=\"1\">\n" + inside +
           "</kiteproject>\n";
}

const std::string kBase = FileOf({{"a", "1", "one"}, {"b", "2", "two"}, {"c", "3", "three"}});

} // namespace

// What holds for every merge

TEST(ThreeWayMerge, ASideThatIsAsTheBaseGivesTheOtherByteForByte) {
    const std::string other = "<contentfile  version='1' >\r\n<comment tag='##' item='b' id='9'>by "
                              "hand</comment><more/></contentfile>";
    EXPECT_EQ(Merge(kBase, other, kBase).Bytes, other);
    EXPECT_EQ(Merge(kBase, kBase, other).Bytes, other);
    EXPECT_EQ(Merge(kBase, other, other).Bytes, other);
    EXPECT_EQ(Merge("", other, "").Bytes, other);
    EXPECT_EQ(Merge("", "", other).Bytes, other);
    EXPECT_EQ(Merge(kBase, kBase, kBase).Bytes, kBase);
}

TEST(ThreeWayMerge, CommentsOfDifferentItemsMeetWithoutAConflict) {
    const auto merged =
        Merge(kBase, FileOf({{"a", "1", "ONE"}, {"b", "2", "two"}, {"c", "3", "three"}}),
              FileOf({{"a", "1", "one"}, {"b", "2", "two"}, {"bb", "5", "new"}}));
    EXPECT_EQ(merged.Conflicts, 0u);
    EXPECT_EQ(merged.Bytes, FileOf({{"a", "1", "ONE"}, {"b", "2", "two"}, {"bb", "5", "new"}}));
}

TEST(ThreeWayMerge, WithoutABaseBothSidesAreKept) {
    const auto merged = Merge("", FileOf({{"a", "1", "x"}, {"b", "2", "same"}}),
                              FileOf({{"b", "2", "same"}, {"c", "3", "y"}}));
    EXPECT_EQ(merged.Conflicts, 0u);
    EXPECT_EQ(Comments(merged.Bytes), "a#1=x b#2=same c#3=y");
}

TEST(ThreeWayMerge, ExchangingTheSidesChangesTheirNamesOnly) {
    std::mt19937 random(7);
    for (int round = 0; round < 200; ++round) {
        const auto any = [&random] {
            std::vector<Said> comments;
            for (const char* item : {"a", "b", "c", "d"})
                for (int id = 0; id < 2; ++id)
                    if (random() % 3 != 0)
                        comments.push_back({item, item + std::to_string(id),
                                            "text " + std::to_string(random() % 3)});
            return FileOf(comments);
        };
        const std::string base = any(), left = any(), right = any();
        const auto one = Merge(base, left, right);
        const auto other = Merge(base, right, left);
        EXPECT_EQ(one.Conflicts, other.Conflicts);
        const auto saidIn = [](const std::string& bytes, bool exchanged) {
            std::vector<std::string> all;
            for (const MergeConflict& conflict : MergeConflicts::Find(bytes)) {
                const auto& ours = exchanged ? conflict.Theirs : conflict.Ours;
                const auto& theirs = exchanged ? conflict.Ours : conflict.Theirs;
                all.push_back(conflict.Item + conflict.Tag + conflict.Base.value_or("-") + "|" +
                              ours.value_or("-") + "|" + theirs.value_or("-"));
            }
            return all;
        };
        EXPECT_EQ(saidIn(one.Bytes, false), saidIn(other.Bytes, true));
        // With the sides chosen the other way round, both come to the same.
        EXPECT_EQ(
            MergeConflicts::Resolve(one.Bytes, std::vector<Keeping>(one.Conflicts, Keeping::Ours)),
            MergeConflicts::Resolve(other.Bytes,
                                    std::vector<Keeping>(other.Conflicts, Keeping::Theirs)));
    }
}

TEST(ThreeWayMerge, NoTextOfEitherSideThatIsNewIsLeftOut) {
    std::mt19937 random(11);
    for (int round = 0; round < 200; ++round) {
        int number = 0;
        const auto changed = [&](const char* side) {
            std::vector<Said> comments;
            for (int item = 0; item < 6; ++item) {
                const std::string name(1, static_cast<char>('a' + item));
                const auto kind = random() % 4;
                if (kind == 0) continue;
                const std::string text = kind == 1 ? "base" : side + std::to_string(++number) + ".";
                comments.push_back({name, "1", text});
            }
            return comments;
        };
        const auto ours = changed("ours"), theirs = changed("theirs");
        std::vector<Said> base;
        for (const char* name : {"a", "b", "c", "d", "e", "f"})
            base.push_back({name, "1", "base"});
        const std::string bytes = Merge(FileOf(base), FileOf(ours), FileOf(theirs)).Bytes;
        for (const auto& side : {ours, theirs})
            for (const Said& said : side)
                EXPECT_TRUE(said.Text == "base" || bytes.find(said.Text) != std::string::npos)
                    << said.Text;
    }
}

// The same comment on both sides

TEST(ThreeWayMerge, ACommentThatBothChangedIsThereBothWays) {
    const auto merged = Merge(FileOf({{"a", "1", "old"}}), FileOf({{"a", "1", "mine"}}),
                              FileOf({{"a", "1", "yours"}}));
    EXPECT_EQ(merged.Conflicts, 1u);
    EXPECT_EQ(Conflicts(merged.Bytes), "[a ##: old > mine | yours]");
    EXPECT_EQ(Comments(merged.Bytes), "a#1=mine a#1-theirs=yours");
    const auto resolved = [&](Keeping keeping) {
        return MergeConflicts::Resolve(merged.Bytes, {keeping});
    };
    EXPECT_EQ(resolved(Keeping::Ours), FileOf({{"a", "1", "mine"}}));
    EXPECT_EQ(resolved(Keeping::Theirs), FileOf({{"a", "1", "yours"}}));
    EXPECT_EQ(resolved(Keeping::Both), FileOf({{"a", "1", "mine"}, {"a", "1-theirs", "yours"}}));
}

TEST(ThreeWayMerge, TheSameChangeOnBothSidesIsNoConflict) {
    const std::string changed =
        "<contentfile version='1'><comment id='1' tag='##' item='a'>new</comment></contentfile>";
    const auto merged = Merge(FileOf({{"a", "1", "old"}}), changed,
                              FileOf({{"a", "1", "new"}, {"b", "2", "more"}}));
    EXPECT_EQ(merged.Conflicts, 0u);
    EXPECT_EQ(Comments(merged.Bytes), "a#1=new b#2=more");
}

TEST(ThreeWayMerge, ATextAndAnotherFieldOfOneCommentMeet) {
    const auto merged = Merge(FileOf({{"a", "1", "old"}}), FileOf({{"a", "1", "new"}}),
                              FileOf({{"a", "1", "old", " qualifier=\"key\" x:mark=\"7\""}}));
    EXPECT_EQ(merged.Conflicts, 0u);
    EXPECT_EQ(merged.Bytes, FileOf({{"a", "1", "new", " qualifier=\"key\" x:mark=\"7\""}}));
}

TEST(ThreeWayMerge, AChangeWinsOverADeletionAndIsTold) {
    const std::string base = FileOf({{"a", "1", "old"}, {"b", "2", "two"}});
    const std::string changed = FileOf({{"a", "1", "new"}, {"b", "2", "two"}});
    const std::string deleted = FileOf({{"b", "2", "two"}});
    const auto ours = Merge(base, changed, deleted);
    EXPECT_EQ(ours.Conflicts, 1u);
    EXPECT_EQ(Conflicts(ours.Bytes), "[a ##: old > new | -]");
    EXPECT_EQ(MergeConflicts::Resolve(ours.Bytes, {Keeping::Ours}), changed);
    EXPECT_EQ(MergeConflicts::Resolve(ours.Bytes, {Keeping::Both}), changed);
    EXPECT_EQ(MergeConflicts::Resolve(ours.Bytes, {Keeping::Theirs}), deleted);
    const auto theirs = Merge(base, deleted, changed);
    EXPECT_EQ(Conflicts(theirs.Bytes), "[a ##: old > - | new]");
}

TEST(ThreeWayMerge, DeletionsAndChangesOfCommentsThatShareAnIdAreToldApart) {
    const auto merged = Merge(FileOf({{"a", "2", "one"}, {"b", "2", "two"}}),
                              FileOf({{"a", "2", "ours"}}), FileOf({{"b", "2", "theirs"}}));
    EXPECT_EQ(merged.Conflicts, 2u);
    const auto found = MergeConflicts::Find(merged.Bytes);
    ASSERT_EQ(found.size(), 2u);
    EXPECT_EQ(found[0].Item, "a");
    EXPECT_FALSE(found[0].Theirs);
    EXPECT_EQ(found[1].Item, "b");
    EXPECT_FALSE(found[1].Ours);
    EXPECT_EQ(Comments(MergeConflicts::Resolve(merged.Bytes, {Keeping::Ours, Keeping::Theirs})),
              "a#2=ours b#2=theirs");
    EXPECT_EQ(Comments(MergeConflicts::Resolve(merged.Bytes, {Keeping::Ours, Keeping::Ours})),
              "a#2=ours");
}

TEST(ThreeWayMerge, AnUntouchedCommentThatOneSideDeletedGoes) {
    EXPECT_EQ(Comments(Merge(kBase, FileOf({{"a", "1", "one"}, {"b", "2", "two"}}),
                             FileOf({{"a", "1", "ONE"}, {"b", "2", "two"}, {"c", "3", "three"}}))
                           .Bytes),
              "a#1=ONE b#2=two");
}

TEST(ThreeWayMerge, AMovedCommentTakesTheOtherSidesChangeAlong) {
    const auto merged =
        Merge(FileOf({{"old~name", "1", "text"}}), FileOf({{"new~name", "1", "text"}}),
              FileOf({{"old~name", "1", "better text"}}));
    EXPECT_EQ(merged.Conflicts, 0u);
    EXPECT_EQ(Comments(merged.Bytes), "new~name#1=better text");
    const auto both = Merge(FileOf({{"old", "1", "text"}}), FileOf({{"here", "1", "text"}}),
                            FileOf({{"there", "1", "text"}}));
    EXPECT_EQ(both.Conflicts, 1u);
    EXPECT_EQ(Comments(both.Bytes), "here#1=text there#1-theirs=text");
}

TEST(ThreeWayMerge, OneIdOnDifferentItemsIsNotOneComment) {
    const std::string base = FileOf({{"a", "1", "one"}, {"b", "1", "two"}});
    const auto merged = Merge(base, FileOf({{"a", "1", "ONE"}, {"b", "1", "two"}}),
                              FileOf({{"a", "1", "one"}, {"b", "1", "TWO"}}));
    EXPECT_EQ(merged.Conflicts, 0u);
    EXPECT_EQ(merged.Bytes, FileOf({{"a", "1", "ONE"}, {"b", "1", "TWO"}}));
}

TEST(ThreeWayMerge, TwoCommentsOfOneItemAndIdAreBothKept) {
    const std::string twins = FileOf({{"a", "1", "one"}, {"a", "1", "twin"}});
    const auto merged = Merge(twins, FileOf({{"a", "1", "one"}, {"a", "1", "TWIN"}}),
                              FileOf({{"a", "1", "one"}, {"a", "1", "twin"}, {"b", "2", "new"}}));
    EXPECT_EQ(merged.Bytes, FileOf({{"a", "1", "one"}, {"a", "1", "TWIN"}, {"b", "2", "new"}}));
}

TEST(ThreeWayMerge, TwoCommentsOfOneItemAndIdThatBothSidesChangedAreTwoConflicts) {
    const auto merged = Merge(FileOf({{"a", "1", "one"}, {"a", "1", "two"}}),
                              FileOf({{"a", "1", "my one"}, {"a", "1", "my two"}}),
                              FileOf({{"a", "1", "her one"}, {"a", "1", "her two"}}));
    EXPECT_EQ(merged.Conflicts, 2u);
    EXPECT_EQ(Conflicts(merged.Bytes),
              "[a ##: one > my one | her one][a ##: two > my two | her two]");
    EXPECT_EQ(MergeConflicts::Resolve(merged.Bytes, {Keeping::Theirs, Keeping::Ours}),
              FileOf({{"a", "1", "her one"}, {"a", "1", "my two"}}));
}

TEST(ThreeWayMerge, AChangeOfATwinIsNotTakenForThatOfADeletedOne) {
    const auto merged = Merge(FileOf({{"a", "1", "one"}, {"a", "1", "two"}, {"a", "1", "three"}}),
                              FileOf({{"a", "1", "my one"}, {"a", "1", "my two"}}),
                              FileOf({{"a", "1", "one"}, {"a", "1", "her two"}}));
    EXPECT_EQ(Conflicts(merged.Bytes), "[a ##: two > my two | her two]");
}

TEST(ThreeWayMerge, ADeletedFileAndAChangedOneGiveTheChange) {
    const auto merged = Merge(kBase, "", FileOf({{"a", "1", "one"}, {"b", "2", "TWO"}}));
    EXPECT_EQ(merged.Conflicts, 1u);
    EXPECT_EQ(Conflicts(merged.Bytes), "[b ##: two > - | TWO]");
}

// Comments that each side added for itself

TEST(ThreeWayMerge, TheSameTextThatBothAddedIsThereOnceUnderTheSmallerId) {
    const std::string base = FileOf({{"a", "1", "one"}});
    const std::string left = FileOf({{"a", "1", "one"}, {"b", "7", "new"}});
    const std::string right = FileOf({{"a", "1", "one"}, {"b", "4", "new"}});
    const std::string expected = FileOf({{"a", "1", "one"}, {"b", "4", "new"}});
    EXPECT_EQ(Merge(base, left, right).Bytes, expected);
    EXPECT_EQ(Merge(base, right, left).Bytes, expected);
    EXPECT_EQ(Merge(base, right, left).Conflicts, 0u);
    EXPECT_EQ(Merge("", left, right).Bytes, expected);
}

TEST(ThreeWayMerge, WhatEachSideKnowsBesidesTheSameTextIsKept) {
    const std::string base = FileOf({{"a", "1", "one"}});
    const auto merged = Merge(base, FileOf({{"a", "1", "one"}, {"b", "7", "new", " x=\"1\""}}),
                              FileOf({{"a", "1", "one"}, {"b", "4", "new", " y=\"2\""}}));
    EXPECT_EQ(Comments(merged.Bytes), "a#1=one b#4=new");
    EXPECT_NE(merged.Bytes.find("x=\"1\""), std::string::npos);
    EXPECT_NE(merged.Bytes.find("y=\"2\""), std::string::npos);
}

TEST(ThreeWayMerge, TwoGeneralDescriptionsOfAnItemThatHadNoneAreAConflict) {
    const std::string base = FileOf({{"a", "1", "one"}});
    const std::string left = FileOf({{"a", "1", "one"}, {"b", "7", "mine"}});
    const std::string right = FileOf({{"a", "1", "one"}, {"b", "4", "yours"}});
    const auto merged = Merge(base, left, right);
    EXPECT_EQ(merged.Conflicts, 1u);
    EXPECT_EQ(Conflicts(merged.Bytes), "[b ##: - > mine | yours]");
    EXPECT_EQ(Comments(merged.Bytes), "a#1=one b#4=yours b#7=mine");
    EXPECT_EQ(MergeConflicts::Resolve(merged.Bytes, {Keeping::Ours}), left);
    EXPECT_EQ(MergeConflicts::Resolve(merged.Bytes, {Keeping::Theirs}), right);
    EXPECT_EQ(Comments(MergeConflicts::Resolve(merged.Bytes, {Keeping::Both})),
              "a#1=one b#4=yours b#7=mine");
    EXPECT_EQ(Conflicts(Merge(base, right, left).Bytes), "[b ##: - > yours | mine]");
}

TEST(ThreeWayMerge, ADescriptionThatIsThereAlreadyAndOtherTagsMayHaveMore) {
    const std::string base = FileOf({{"a", "1", "one"}});
    const auto more = Merge(base, FileOf({{"a", "1", "one"}, {"a", "2", "mine"}}),
                            FileOf({{"a", "1", "one"}, {"a", "3", "yours"}}));
    EXPECT_EQ(more.Conflicts, 0u);
    EXPECT_EQ(Comments(more.Bytes), "a#1=one a#2=mine a#3=yours");
    const auto remark = [](const std::string& id, const std::string& text) {
        return "<contentfile version='1'><comment item='a' tag='##remarks' id='" + id + "'>" +
               text + "</comment></contentfile>";
    };
    const auto remarks = Merge("", remark("1", "mine"), remark("2", "yours"));
    EXPECT_EQ(remarks.Conflicts, 0u);
    EXPECT_EQ(Comments(remarks.Bytes), "a#1=mine a#2=yours");
}

TEST(ThreeWayMerge, AnotherTagIsGeneralWhereItsDefinitionSaysSo) {
    const auto summary = [](const std::string& id, const std::string& text) {
        return "<contentfile version='1'><comment item='a' tag='##summary' id='" + id + "'>" +
               text + "</comment></contentfile>";
    };
    EXPECT_EQ(Merge("", summary("1", "mine"), summary("2", "yours")).Conflicts, 0u);
    const auto before = GlobalConfig().TaggedCommentDefs;
    GlobalConfig().TaggedCommentDefs = MakeRef<TaggedCommentDefs>();
    auto definition = MakeRef<TaggedCommentDef>();
    definition->TagIdentifier = "##Summary";
    definition->IsGeneral = true;
    GlobalConfig().TaggedCommentDefs->Add(definition);
    EXPECT_EQ(Merge("", summary("1", "mine"), summary("2", "yours")).Conflicts, 1u);
    GlobalConfig().TaggedCommentDefs = before;
}

// What the program does not know

TEST(ThreeWayMerge, UnknownElementsAttributesAndXmlCommentsOfBothSidesStay) {
    const std::string base = FileOf({{"a", "1", "one"}}, "  <old/>\n");
    const auto merged =
        Merge(base, FileOf({{"a", "1", "one", " x=\"1\""}}, "  <old/>\n  <mine n=\"1\"/>\n"),
              FileOf({{"a", "1", "one", " y=\"2\""}}, "  <yours>text</yours>\n  <!-- why -->\n"));
    EXPECT_EQ(merged.Conflicts, 0u);
    EXPECT_EQ(merged.Bytes, FileOf({{"a", "1", "one", " x=\"1\" y=\"2\""}},
                                   "  <mine n=\"1\"/>\n  <yours>text</yours>\n  <!-- why -->\n"));
}

TEST(ThreeWayMerge, TextAroundASecondDeclarationStaysOneText) {
    const std::string odd =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<contentfile version=\"1\">\n"
        "  <comment item=\"a\" tag=\"##\" id=\"1\">one<?xml version=\"1.0\"?>\n<new/>two"
        "<![CDATA[three]]></comment>\n</contentfile>\n";
    const std::string before = Comments(odd);
    EXPECT_EQ(before.substr(0, 7), "a#1=one");
    const auto merged = Merge(FileOf({}), FileOf({{"b", "2", "new"}}), odd);
    EXPECT_EQ(Comments(merged.Bytes), before + " b#2=new");
}

TEST(ThreeWayMerge, AnyBytesOfATextComeThrough) {
    const std::string odd = "]]> & <b>\\ \t\r\x01\xFF \n end ";
    const std::string stored = StoredText::EncodeContent(odd);
    const std::string changed = "<contentfile version='1'><comment item='a' tag='##' id='1'>"
                                "<![CDATA[" +
                                stored + "]]></comment></contentfile>";
    const auto merged =
        Merge(FileOf({{"a", "1", "one"}}), changed, FileOf({{"a", "1", "one"}, {"b", "2", "two"}}));
    EXPECT_EQ(Comments(merged.Bytes), "a#1=" + odd + " b#2=two");
}

// Projects

TEST(ThreeWayMerge, ProjectsMergeElementByElement) {
    const std::string base =
        ProjectOf("  <title>Zoo</title>\n"
                  "  <source moniker=\"kite.source\" folder=\"a\" root=\"a\"/>\n"
                  "  <contentfile path=\"a.ktc\"/>\n");
    const auto merged = Merge(
        base,
        ProjectOf(
            "  <title>Our Zoo</title>\n"
            "  <source moniker=\"kite.source\" folder=\"a\" root=\"a\">\n"
            "    <exclude>build</exclude>\n  </source>\n"
            "  <contentfile path=\"a.ktc\"/>\n"
            "  <settings>\n    <setting name=\"OutputFolder\">out</setting>\n  </settings>\n"),
        ProjectOf("  <title>Zoo</title>\n"
                  "  <source moniker=\"kite.source\" folder=\"../a\" root=\"a\"/>\n"
                  "  <contentfile path=\"a.ktc\"/>\n  <contentfile path=\"b.ktc\"/>\n"
                  "  <settings>\n    <setting name=\"Language\">German</setting>\n  </settings>\n"
                  "  <newer>thing</newer>\n"));
    EXPECT_EQ(merged.Conflicts, 0u);
    EXPECT_EQ(merged.Bytes,
              ProjectOf("  <title>Our Zoo</title>\n"
                        "  <source moniker=\"kite.source\" folder=\"../a\" root=\"a\">\n"
                        "    <exclude>build</exclude>\n  </source>\n"
                        "  <contentfile path=\"a.ktc\"/>\n  <contentfile path=\"b.ktc\"/>\n"
                        "  <settings>\n    <setting name=\"Language\">German</setting>\n"
                        "    <setting name=\"OutputFolder\">out</setting>\n  </settings>\n"
                        "  <newer>thing</newer>\n"));
}

TEST(ThreeWayMerge, WhatBothChangedInAProjectIsThereBothWays) {
    const auto merged =
        Merge(ProjectOf("  <title>Zoo</title>\n"), ProjectOf("  <title>Ours</title>\n"),
              ProjectOf("  <title>Theirs</title>\n"));
    EXPECT_EQ(merged.Conflicts, 1u);
    EXPECT_EQ(Conflicts(merged.Bytes), "[title : - > Ours | Theirs]");
    EXPECT_EQ(MergeConflicts::Resolve(merged.Bytes, {Keeping::Ours}),
              ProjectOf("  <title>Ours</title>\n"));
    EXPECT_EQ(MergeConflicts::Resolve(merged.Bytes, {Keeping::Theirs}),
              ProjectOf("  <title>Theirs</title>\n"));
}

TEST(ThreeWayMerge, ASettingThatOneSideTookOutAndTheOtherChangedStaysAndIsTold) {
    const auto with = [](const std::string& value) {
        return ProjectOf("  <settings>\n    <setting name=\"Language\">" + value +
                         "</setting>\n  </settings>\n");
    };
    const auto merged = Merge(with("German"), with("French"), ProjectOf("  <settings/>\n"));
    EXPECT_EQ(merged.Conflicts, 1u);
    EXPECT_EQ(Conflicts(merged.Bytes), "[setting Language: - > French\nname: Language | -]");
    EXPECT_EQ(MergeConflicts::Resolve(merged.Bytes, {Keeping::Ours}), with("French"));
    EXPECT_EQ(MergeConflicts::Resolve(merged.Bytes, {Keeping::Theirs}),
              ProjectOf("  <settings/>\n"));
}

TEST(ThreeWayMerge, ElementsThatShareAKeyAreNotMixedUp) {
    const auto with = [](const std::string& inside) {
        return ProjectOf("  <ignorerelationships>\n" + inside + "  </ignorerelationships>\n");
    };
    const std::string a = "    <relationship module=\"A\" procedure=\"Log\"/>\n";
    const std::string b = "    <relationship module=\"B\" procedure=\"Log\"/>\n";
    const std::string c = "    <relationship module=\"C\" procedure=\"Log\"/>\n";
    const auto merged = Merge(with(a + b), with(b), with(a + b + c));
    EXPECT_EQ(merged.Conflicts, 0u);
    EXPECT_EQ(merged.Bytes, with(b + c));
}

// Bad input

TEST(ThreeWayMerge, TextThatBelongsToNoCommentIsAProblemAndNotDropped) {
    const std::string sound = FileOf({{"a", "1", "one"}});
    EXPECT_EQ(ProblemOf(sound, FileOf({{"a", "1", "one"}}, "lost\n"), sound),
              "ours:6:1: Text stands here that belongs to no comment. Move it into a <comment>, or "
              "remove it.");
}

TEST(ThreeWayMerge, WhatCannotBeReadIsAProblemOfThatFile) {
    EXPECT_TRUE(ProblemOf(kBase, "no xml", kBase).starts_with("ours:1:1: This is not well-formed"));
    EXPECT_TRUE(
        ProblemOf(kBase, kBase, "<html/>").starts_with("theirs:1:1: This is not a Content"));
    EXPECT_NE(ProblemOf("<contentfile version='2'/>", kBase, kBase).find("newer version"),
              std::string::npos);
    EXPECT_NE(ProblemOf(kBase, ProjectOf(""), kBase).find("of another kind"), std::string::npos);
    EXPECT_NE(ProblemOf(kBase, "<contentfile version='1'><comment tag='##'/></contentfile>", kBase)
                  .find("does not say its item"),
              std::string::npos);
    EXPECT_NE(ProblemOf(kBase, "<<<<<<< ours\n" + kBase, kBase).find("finish the merge"),
              std::string::npos);
}

// Size

TEST(ThreeWayMerge, ManyCommentsMerge) {
    std::vector<Said> base;
    for (int item = 0; item < 20000; ++item)
        base.push_back({"root~item" + std::to_string(100000 + item), "id", "text"});
    auto ours = base, theirs = base;
    for (std::size_t item = 0; item < base.size(); item += 2) {
        ours[item].Text = "ours";
        theirs[item + 1].Text = "theirs";
    }
    ours[1].Text = "both";
    const auto merged = Merge(FileOf(base), FileOf(ours), FileOf(theirs));
    EXPECT_EQ(merged.Conflicts, 1u);
    EXPECT_EQ(MergeConflicts::Find(merged.Bytes).size(), 1u);
    EXPECT_NE(merged.Bytes.find("item119998\" tag=\"##\" id=\"id\"><![CDATA[\nours"),
              std::string::npos);
    EXPECT_NE(merged.Bytes.find("item119999\" tag=\"##\" id=\"id\"><![CDATA[\ntheirs"),
              std::string::npos);
}

} // namespace paperkite

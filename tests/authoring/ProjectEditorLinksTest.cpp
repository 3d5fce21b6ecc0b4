#include "authoring/ProjectEditorFixture.h"
#include "model/PageTemplateDocument.h"

namespace paperkite::test {
namespace {

class ProjectEditorLinksTest : public ProjectEditorFixture {
protected:
    void Click(const std::string& link) { mEditor.cEditor.Events.HyperlinkClick.Raise(link); }
};

TEST_F(ProjectEditorLinksTest, AnOutsideLinkGoesToTheShellWithItsBlanks) {
    Click("http://example.org/a%20b%20c");
    Click("FILE://page");
    EXPECT_EQ(mServices.OutsideShell->Calls,
              (std::vector<std::string>{"open http://example.org/a b c [] [] 3",
                                        "open FILE://page [] [] 3"}));
}

TEST_F(ProjectEditorLinksTest, LinksWithoutAPageAreExplained) {
    Click("file://c/x/#");
    EXPECT_EQ(Messages(), "Paperkite [information] This hyperlink shows a popup bubble\n");
    Click("file://c/x/#part%20two");
    EXPECT_EQ(Messages(), "Paperkite [information] This hyperlink navigates to a bookmark in this "
                          "topic (#part two)\n");
    Click("file://c/x/");
    EXPECT_EQ(Messages(), "");
    EXPECT_EQ(Current(), "P~A~Run");
}

TEST_F(ProjectEditorLinksTest, APageNameSelectsItsItem) {
    Click("file://c/x/P~B.html");
    EXPECT_EQ(Current(), "P~B");
    EXPECT_EQ(Messages(), "");
}

TEST_F(ProjectEditorLinksTest, NamesThatHoldCodesThemselvesAreFollowed) {
    for (const char* name : {"f(const s%3A%3At&)", "operator%2F", "%25", "empty?", "%7EB"})
        mModel.Add("P~B", name, "Test:Method", "MethodElement");
    mEditor.LoadFromNamespaceDefs(mModel.Defs, "moniker");
    for (const auto& [link, item] :
         {std::pair("P~B~f(const%20s%3A%3At&).html", "P~B~f(const s%3A%3At&)"),
          std::pair("P~B~operator%2F.html", "P~B~operator%2F"),
          std::pair("P~B~%25.html", "P~B~%25"), std::pair("P~B~empty%3F.html", "P~B~empty?"),
          std::pair("P~B~~B.html", "P~B~%7EB")}) {
        Click(std::string("file:///") + link);
        EXPECT_EQ(Current(), item);
    }
    EXPECT_EQ(Messages(), "");
}

TEST_F(ProjectEditorLinksTest, AnItemOutsideIsNamed) {
    Click("file://c/x/Q~None.html");
    EXPECT_EQ(Messages(), "Paperkite [information] Could not navigate this link as it appears to "
                          "point to an item outside of this project (Q~None)\n");
}

TEST_F(ProjectEditorLinksTest, ANamespaceEndingStaysPartOfTheName) {
    Click("file://c/x/Q~N_Namespace.html");
    EXPECT_NE(Messages().find("(Q~N_Namespace)"), std::string::npos);
    mModel.Add("P", "N_namespace", "Test:Class", "ModuleElement");
    mEditor.LoadFromNamespaceDefs(mModel.Defs, "moniker");
    mEditor.SelectItem("P~B");
    Click("file://c/x/P~N_namespace.html");
    EXPECT_EQ(Current(), "P~N_namespace");
    EXPECT_EQ(Messages(), "");
}

TEST_F(ProjectEditorLinksTest, OnlyTheLastStepIsLookedAtForASuffix) {
    Click("file://c/x/P_members~None.html");
    EXPECT_NE(Messages().find("(P_members~None)"), std::string::npos);
    Click("file://c/x/P~None_a_b.html");
    EXPECT_NE(Messages().find("(P~None_a)"), std::string::npos);
    Click("file://c/x/abc");
    EXPECT_NE(Messages().find("project ()"), std::string::npos);
}

TEST_F(ProjectEditorLinksTest, ASuffixSwitchesToTheLayoutThatYieldsThatPage) {
    const auto pages = MakeRef<PageTemplate>();
    const auto add = [&](const char* name, const char* fileName, const char* namespaces) {
        const auto layout = MakeRef<PageLayout>();
        layout->Name = name;
        layout->FileName = name;
        layout->FileNameTemplate = fileName;
        layout->Namespaces = namespaces;
        pages->PageLayouts->Add(layout);
    };
    add("plain", "", "Test:Class");
    add("other", "%%ItemQualifiedName%%_members.html", "Test:Method");
    add("members", "%%ITEMQUALIFIEDNAME%%_Members.HTML", "test:class");
    add("twin", "%%ItemQualifiedName%%_members.html", "Test:Class");
    mEditor.SetInPlaceTemplate(pages);
    const auto selected = [this] {
        const auto item = mEditor.cEditor.eb->GetSelectedItem();
        return item ? item->GetKey() : "nothing";
    };
    Click("file://c/x/P~B_members.html");
    EXPECT_EQ(Current(), "P~B");
    EXPECT_EQ(selected(), "inplaceedit:members");
    Click("file://c/x/P~C.html");
    EXPECT_EQ(Current(), "P~C");
    EXPECT_EQ(selected(), "inplaceedit:plain");
    Click("file://c/x/P~A_none.html");
    EXPECT_EQ(Current(), "P~A");
    EXPECT_EQ(selected(), "inplaceedit:plain");
    EXPECT_EQ(Messages(), "");
}

TEST_F(ProjectEditorLinksTest, InTheTemplatesOfTheProgramAPlainLinkToAClassShowsItsOwnPage) {
    for (const char* folder : {"/templates/modern", "/templates/classic"}) {
        const auto opened = PageTemplateDocument::Open(std::string(PAPERKITE_SOURCE_DIR) + folder);
        ASSERT_TRUE(opened.Template) << folder;
        for (const auto& layout : *opened.Template->PageLayouts)
            layout->Namespaces = ReplaceAll(layout->Namespaces, "kite.source:", "Test:");
        mEditor.SetInPlaceTemplate(opened.Template);
        const auto selected = [this] {
            const auto item = mEditor.cEditor.eb->GetSelectedItem();
            return item ? item->GetKey() : "nothing";
        };
        Click("file://c/x/P~B_members.html");
        EXPECT_EQ(Current() + " " + selected(), "P~B inplaceedit:allmembers.html") << folder;
        Click("file://c/x/P~C.html");
        EXPECT_EQ(Current() + " " + selected(), "P~C inplaceedit:type.html") << folder;
        Click("file://c/x/P~A~Run.html");
        EXPECT_EQ(Current() + " " + selected(), "P~A~Run inplaceedit:callable.html") << folder;
        EXPECT_EQ(Messages(), "");
    }
}

TEST_F(ProjectEditorLinksTest, ASuffixIsCutOffAndChoosesTheLayout) {
    const auto pages = MakeRef<PageTemplate>();
    const auto layout = MakeRef<PageLayout>();
    layout->Name = "members";
    layout->FileNameTemplate = "%%ItemQualifiedName%%_members.html";
    layout->Namespaces = "test:class";
    pages->PageLayouts->Add(layout);
    mEditor.SetInPlaceTemplate(pages);
    Click("file://c/x/P~B_members.html");
    EXPECT_EQ(Current(), "P~B");
    // Pages go by the name of their file, and this one has none.
    EXPECT_EQ(mServices.TakeReports(), "CommentEditor.SelectInPlaceEditLayout (5)\n");
    Click("file://c/x/P~B_other.html");
    EXPECT_EQ(Messages(), "");
}

} // namespace
} // namespace paperkite::test

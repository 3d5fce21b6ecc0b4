#include "model/ProjectDocument.h"

#include "model/CodeItem.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace paperkite {

namespace {

using test::TemporaryFolder;

constexpr const char* kHead = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

Ref<ProjectDocument> NewProject(const TemporaryFolder& folder, const std::string& name) {
    const auto result = ProjectDocument::New(folder / name);
    EXPECT_FALSE(result.Problem);
    return result.Project;
}

Ref<ProjectDocument> Opened(const std::string& path) {
    const auto result = ProjectDocument::Open(path);
    EXPECT_FALSE(result.Problem) << result.Problem->Message();
    return result.Project;
}

std::string MessageOf(const std::optional<FileProblem>& problem) {
    return problem ? problem->Message() : "no problem";
}

std::string OpenMessage(const std::string& path) {
    return MessageOf(ProjectDocument::Open(path).Problem);
}

void Comment(ProjectDocument& project, const std::string& item, const std::string& text) {
    auto comment = MakeRef<TaggedComment>();
    comment->SetTagIdentifier("##");
    comment->SetText(text);
    comment->SetState(kTaggedCommentNew);
    auto owner = MakeRef<CodeItem>("MemberElement", item, project.GetComments());
    comment->SetItem(owner);
    owner->GetTaggedComments()->Add(comment, comment->GetId());
    project.SetDirty(true);
}

std::string TextOf(ProjectDocument& project, const std::string& item) {
    const auto comments = project.GetComments()->Find(item);
    return comments && comments->Count() > 0 ? comments->Item(1)->GetText() : "none";
}

} // namespace

TEST(ProjectDocument, CommentsAreThereAfterSavingAndOpening) {
    const TemporaryFolder folder;
    const auto project = NewProject(folder, "qt.kiteproject");
    project->AddSource(folder / "src");
    Comment(*project, "src~A", "about A");
    ASSERT_EQ(MessageOf(project->Save()), "no problem");
    EXPECT_FALSE(project->GetDirty());
    EXPECT_EQ(folder.Names(), "qt.kiteproject qt.ktc");
    EXPECT_EQ(TextOf(*Opened(folder / "qt.kiteproject"), "src~A"), "about A");
}

TEST(ProjectDocument, EverySettingComesBack) {
    const TemporaryFolder folder;
    {
        const auto project = NewProject(folder, "all.kiteproject");
        project->SetTitle("All <things> & more");
        SourceSettings& source = project->AddSource(folder / "code");
        source.RootName = "kode";
        source.Excludes = {"build/*", " *.tmp "};
        project->SetIncludePrivate(true);
        project->SetIncludeProtected(false);
        project->StoreScope();
        project->Set("CompileHelpFile", Value(true));
        project->Set("PageNestingLevels", Value(5));
        project->Set("Language", Value("German"));
        project->GetNamespaceExclusions()->Add("code~x\ny", "code~x\ny");
        auto filter = MakeRef<ExcludeFilter>();
        filter->Text = "_*";
        project->GetMemberFilters().Add(filter);
        auto variable = MakeRef<Variable>();
        variable->Name = "Colour";
        variable->Value = " red\n";
        project->GetVariables().Add(variable, variable->Name);
        auto file = MakeRef<AdditionalFile>();
        file->FileName = folder / "images/logo.png";
        project->GetAdditionalFiles().Add(file);
        auto relationship = MakeRef<IgnoredRelationship>();
        relationship->Module = "<All>.<All>";
        relationship->ProcedureName = "Log";
        project->GetIgnoreRelationships().Add(relationship);
        project->GetDiagramStyle()->UseShapes = true;
        project->GetDiagramStyle()->ObjectFillColor = 0x00FF80;
        project->GetCommentFiles().Item(1)->RelatedItemMoniker = "kite.source:kode";
        project->GetCommentFiles().Item(1)->DocType = "Source Code";
        ASSERT_EQ(MessageOf(project->Save()), "no problem");
    }
    const auto project = Opened(folder / "all.kiteproject");
    EXPECT_EQ(project->GetTitle(), "All <things> & more");
    ASSERT_EQ(project->GetSources().size(), 1u);
    EXPECT_EQ(project->GetSources()[0].Moniker, "kite.source");
    EXPECT_EQ(project->GetSources()[0].RootName, "kode");
    EXPECT_EQ(project->GetSources()[0].Folder, folder / "code");
    EXPECT_EQ(project->GetSources()[0].Excludes, (std::vector<std::string>{"build/*", " *.tmp "}));
    EXPECT_TRUE(project->GetIncludePrivate());
    EXPECT_FALSE(project->GetIncludeProtected());
    EXPECT_TRUE(project->Get("CompileHelpFile").ToBoolean());
    EXPECT_EQ(project->Get("PageNestingLevels").ToInteger(), 5);
    EXPECT_EQ(project->Get("Language").ToText(), "German");
    EXPECT_TRUE(project->GetNamespaceExclusions()->Contains("code~x\ny"));
    EXPECT_EQ(project->GetMemberFilters().Item(1)->Text, "_*");
    EXPECT_EQ(project->GetVariables().Item("colour")->Value, " red\n");
    EXPECT_EQ(project->GetAdditionalFiles().Item(1)->FileName, folder / "images/logo.png");
    EXPECT_EQ(project->GetIgnoreRelationships().Item(1)->Module, "<All>.<All>");
    EXPECT_EQ(project->GetIgnoreRelationships().Item(1)->ProcedureName, "Log");
    EXPECT_TRUE(project->GetDiagramStyle()->UseShapes);
    EXPECT_EQ(project->GetDiagramStyle()->ObjectFillColor, 0x00FF80);
    EXPECT_EQ(project->GetCommentFiles().Item(1)->RelatedItemMoniker, "kite.source:kode");
    EXPECT_EQ(project->GetCommentFiles().Item(1)->DocType, "Source Code");
    EXPECT_EQ(project->GetSourceProjectCount(), 1);
}

TEST(ProjectDocument, OpeningAndSavingTouchesNoFile) {
    const TemporaryFolder folder;
    const std::string project =
        folder.Write("p.kiteproject", "<kiteproject version='1'>\r\n<source folder='./src/' />"
                                      "<contentfile path='c.ktc'></contentfile></kiteproject>");
    const std::string content = folder.Write(
        "c.ktc", "<contentfile version='1'><comment tag='##' item='b'>x</comment>\n\n\n"
                 "<comment tag='##' item='a'>y</comment></contentfile>");
    const std::string projectBytes = folder.Read("p.kiteproject");
    const std::string contentBytes = folder.Read("c.ktc");
    const auto time = std::filesystem::last_write_time(content);
    ASSERT_EQ(MessageOf(Opened(project)->Save()), "no problem");
    EXPECT_EQ(folder.Read("p.kiteproject"), projectBytes);
    EXPECT_EQ(folder.Read("c.ktc"), contentBytes);
    EXPECT_EQ(std::filesystem::last_write_time(content), time);
    EXPECT_EQ(folder.Names(), "c.ktc p.kiteproject");
}

TEST(ProjectDocument, ACommentChangesItsContentFileOnly) {
    const TemporaryFolder folder;
    folder.Write("p.kiteproject", "<kiteproject version='1'><contentfile path='a.ktc'/>"
                                  "<contentfile path='b.ktc'/></kiteproject>");
    folder.Write("a.ktc", "<contentfile version='1'/>");
    folder.Write("b.ktc", "<contentfile version='1'><comment tag='##' item='b' id='1'>x</comment>"
                          "</contentfile>");
    const auto project = Opened(folder / "p.kiteproject");
    project->GetComments()->Find("b")->Item(1)->SetText("y");
    ASSERT_EQ(MessageOf(project->Save()), "no problem");
    EXPECT_EQ(folder.Read("p.kiteproject"), "<kiteproject version='1'><contentfile path='a.ktc'/>"
                                            "<contentfile path='b.ktc'/></kiteproject>");
    EXPECT_EQ(folder.Read("a.ktc"), "<contentfile version='1'/>");
    EXPECT_EQ(folder.Read("b.ktc"),
              std::string(kHead) +
                  "<contentfile version=\"1\">\n"
                  "  <comment item=\"b\" tag=\"##\" id=\"1\"><![CDATA[\ny\n]]></comment>\n"
                  "</contentfile>\n");
}

TEST(ProjectDocument, NewCommentsGoIntoTheFirstContentFile) {
    const TemporaryFolder folder;
    folder.Write("p.kiteproject", "<kiteproject version='1'><contentfile path='a.ktc'/>"
                                  "<contentfile path='b.ktc'/></kiteproject>");
    folder.Write("a.ktc", "<contentfile version='1'/>");
    folder.Write("b.ktc", "<contentfile version='1'/>");
    const auto project = Opened(folder / "p.kiteproject");
    Comment(*project, "x", "new");
    ASSERT_EQ(MessageOf(project->Save()), "no problem");
    EXPECT_NE(folder.Read("a.ktc").find("new"), std::string::npos);
    EXPECT_EQ(folder.Read("b.ktc"), "<contentfile version='1'/>");
}

TEST(ProjectDocument, WhatTheProjectFileSaysBeyondIsWrittenBack) {
    const TemporaryFolder folder;
    folder.Write("p.kiteproject", "<!-- ours -->\n<kiteproject version=\"1\" theme=\"dark\">\n"
                                  "  <!-- the sources -->\n"
                                  "  <source folder=\"src\" root=\"src\" scanner=\"fast\">\n"
                                  "    <define>A=1</define>\n"
                                  "  </source>\n"
                                  "  <settings>\n"
                                  "    <setting name=\"FromTheFuture\">7</setting>\n"
                                  "  </settings>\n"
                                  "  <future><thing/></future>\n"
                                  "</kiteproject>\n");
    const auto project = Opened(folder / "p.kiteproject");
    project->SetTitle("T");
    ASSERT_EQ(MessageOf(project->Save()), "no problem");
    EXPECT_EQ(
        folder.Read("p.kiteproject"),
        std::string(kHead) +
            "<!-- ours -->\n<kiteproject version=\"1\" theme=\"dark\">\n"
            "  <!-- the sources -->\n"
            "  <title>T</title>\n"
            "  <source moniker=\"kite.source\" folder=\"src\" root=\"src\" scanner=\"fast\">\n"
            "    <define>A=1</define>\n"
            "  </source>\n"
            "  <settings>\n"
            "    <setting name=\"FromTheFuture\">7</setting>\n"
            "  </settings>\n"
            "  <future>\n    <thing/>\n  </future>\n"
            "</kiteproject>\n");
}

TEST(ProjectDocument, CommentsOnItemsThatAreGoneAreKept) {
    const TemporaryFolder folder;
    const auto project = NewProject(folder, "p.kiteproject");
    Comment(*project, "src~Gone", "still here");
    ASSERT_EQ(MessageOf(project->Save()), "no problem");
    const auto again = Opened(folder / "p.kiteproject");
    Comment(*again, "src~Other", "new");
    ASSERT_EQ(MessageOf(again->Save()), "no problem");
    EXPECT_EQ(TextOf(*Opened(folder / "p.kiteproject"), "src~Gone"), "still here");
}

TEST(ProjectDocument, SavingMakesNewCommentsStoredOnesAndDropsTombstones) {
    const TemporaryFolder folder;
    const auto project = NewProject(folder, "p.kiteproject");
    Comment(*project, "a", "kept");
    Comment(*project, "b", "dropped");
    project->GetComments()->Find("b")->Item(1)->SetState(kTaggedCommentTombstone);
    ASSERT_EQ(MessageOf(project->Save()), "no problem");
    EXPECT_EQ(project->GetComments()->Find("a")->Item(1)->GetState(), 0);
    EXPECT_EQ(project->GetComments()->Find("b")->Count(), 0u);
}

TEST(ProjectDocument, ASourceBelowOrBesideTheProjectIsRelative) {
    const TemporaryFolder folder;
    const auto project = NewProject(folder, "docs/p.kiteproject");
    std::filesystem::create_directories(folder / "docs");
    project->AddSource(folder / "docs/src");
    project->AddSource(folder / "lib");
    project->AddSource("/usr/include/none");
    ASSERT_EQ(MessageOf(project->Save()), "no problem");
    const std::string bytes = folder.Read("docs/p.kiteproject");
    EXPECT_NE(bytes.find("folder=\"src\""), std::string::npos) << bytes;
    EXPECT_NE(bytes.find("folder=\"../lib\""), std::string::npos) << bytes;
    EXPECT_NE(bytes.find("folder=\"/usr/include/none\""), std::string::npos) << bytes;
}

TEST(ProjectDocument, AProjectMovesTogetherWithItsSources) {
    const TemporaryFolder folder;
    const auto project = NewProject(folder, "old/p.kiteproject");
    std::filesystem::create_directories(folder / "old");
    project->AddSource(folder / "old/src");
    Comment(*project, "src~A", "text");
    ASSERT_EQ(MessageOf(project->Save()), "no problem");
    std::filesystem::rename(folder / "old", folder / "new");
    const auto moved = Opened(folder / "new/p.kiteproject");
    EXPECT_EQ(moved->GetSources()[0].Folder, folder / "new/src");
    EXPECT_EQ(TextOf(*moved, "src~A"), "text");
}

TEST(ProjectDocument, TheRootNameHoldsNothingThatCutsQualifiedNames) {
    auto project = MakeRef<ProjectDocument>();
    EXPECT_EQ(project->AddSource("/x/a~b:c/").RootName, "a_b_c");
    EXPECT_EQ(project->AddSource("/").RootName, "root");
}

TEST(ProjectDocument, WhatATreeShowsDoesNotChangeTheProjectFile) {
    const TemporaryFolder folder;
    const std::string bytes = "<kiteproject version='1'><scope friend='true'/></kiteproject>";
    folder.Write("p.kiteproject", bytes);
    const auto project = Opened(folder / "p.kiteproject");
    EXPECT_TRUE(project->GetIncludeFriend());
    project->SetIncludePrivate(true);
    project->SetIncludeFriend(false);
    ASSERT_EQ(MessageOf(project->Save()), "no problem");
    EXPECT_EQ(folder.Read("p.kiteproject"), bytes);
    project->StoreScope();
    ASSERT_EQ(MessageOf(project->Save()), "no problem");
    EXPECT_TRUE(Opened(folder / "p.kiteproject")->GetIncludePrivate());
}

TEST(ProjectDocument, DirtyIsToldWhenItChanges) {
    auto project = MakeRef<ProjectDocument>();
    std::string told;
    const Connection tie =
        project->Document.DirtyStateChanged.Connect([&](bool dirty) { told += dirty ? "d" : "c"; });
    project->SetDirty(true);
    project->SetDirty(true);
    project->SetDirty(false);
    EXPECT_EQ(told, "dc");
}

TEST(ProjectDocument, NewExclusionsAreTold) {
    auto project = MakeRef<ProjectDocument>();
    int told = 0;
    const Connection tie = project->Events.NamespaceExclusionsChanged.Connect([&told] { ++told; });
    project->SetNamespaceExclusions(MakeRef<TextCollection>());
    EXPECT_EQ(told, 1);
}

TEST(ProjectDocument, AnUnknownMonikerHasNoProvider) {
    EXPECT_FALSE(MakeRef<ProjectDocument>()->NamespaceProvider("kite.none"));
}

TEST(ProjectDocument, SaveAsTakesItsContentFileAlongUnderTheNewName) {
    const TemporaryFolder folder;
    const auto project = NewProject(folder, "a.kiteproject");
    project->AddSource(folder / "src");
    Comment(*project, "src~A", "text");
    ASSERT_EQ(MessageOf(project->Save()), "no problem");
    std::filesystem::create_directories(folder / "copy");
    Comment(*project, "src~B", "only in the copy");
    ASSERT_EQ(MessageOf(project->SaveAs(folder / "copy/b.kiteproject")), "no problem");
    EXPECT_EQ(project->GetPath(), folder / "copy/b.kiteproject");
    EXPECT_EQ(folder.Read("a.ktc").find("only in the copy"), std::string::npos);
    const auto copy = Opened(folder / "copy/b.kiteproject");
    EXPECT_EQ(copy->GetCommentFiles().Item(1)->FileName, folder / "copy/b.ktc");
    EXPECT_EQ(copy->GetSources()[0].Folder, folder / "src");
    EXPECT_EQ(TextOf(*copy, "src~B"), "only in the copy");
    EXPECT_EQ(TextOf(*Opened(folder / "a.kiteproject"), "src~A"), "text");
}

TEST(ProjectDocument, SaveAsTakesTheWordsAlong) {
    const TemporaryFolder folder;
    const auto project = NewProject(folder, "a.kiteproject");
    ASSERT_EQ(MessageOf(project->Save()), "no problem");
    folder.Write("a.words", "# Ours.\n!gnu\nokapi\n");
    ASSERT_EQ(MessageOf(project->SaveAs(folder / "b.kiteproject")), "no problem");
    EXPECT_EQ(folder.Read("b.words"), "# Ours.\n!gnu\nokapi\n");
    EXPECT_EQ(folder.Read("a.words"), "# Ours.\n!gnu\nokapi\n");
    folder.Write("c.words", "# Theirs.\naxolotl\n");
    ASSERT_EQ(MessageOf(project->SaveAs(folder / "c.kiteproject")), "no problem");
    EXPECT_EQ(folder.Read("c.words"), "# Theirs.\naxolotl\n!gnu\nokapi\n") << "nothing is lost";
}

TEST(ProjectDocument, SaveAsThatFailsLeavesTheWordsThatWereThere) {
    const TemporaryFolder folder;
    const auto project = NewProject(folder, "a.kiteproject");
    ASSERT_EQ(MessageOf(project->Save()), "no problem");
    folder.Write("a.words", "okapi\n");
    folder.Write("b.kiteproject", "of somebody else");
    ASSERT_TRUE(project->SaveAs(folder / "b.kiteproject"));
    EXPECT_FALSE(std::filesystem::exists(folder / "b.words"));
    folder.Write("b.words", "axolotl\n");
    ASSERT_TRUE(project->SaveAs(folder / "b.kiteproject"));
    EXPECT_EQ(folder.Read("b.words"), "axolotl\n");
    std::filesystem::remove(folder / "b.words");
    folder.Write("b.words/stands.here", "");
    ASSERT_TRUE(project->SaveAs(folder / "b.kiteproject", ProjectDocument::Overwriting::Allowed));
    EXPECT_EQ(project->GetPath(), folder / "a.kiteproject");
    EXPECT_EQ(folder.Read("b.kiteproject"), "of somebody else");
}

TEST(ProjectDocument, SaveAsThatFailsGoesOnUnderTheOldName) {
    const TemporaryFolder folder;
    const auto project = NewProject(folder, "a.kiteproject");
    Comment(*project, "x", "text");
    ASSERT_EQ(MessageOf(project->Save()), "no problem");
    ASSERT_TRUE(project->SaveAs(folder / "none/b.kiteproject"));
    EXPECT_EQ(project->GetPath(), folder / "a.kiteproject");
    EXPECT_EQ(project->GetCommentFiles().Item(1)->FileName, folder / "a.ktc");
    Comment(*project, "y", "more");
    ASSERT_EQ(MessageOf(project->Save()), "no problem");
    EXPECT_EQ(TextOf(*Opened(folder / "a.kiteproject"), "y"), "more");
}

TEST(ProjectDocument, AFileThatSomebodyElseChangedIsNotReplacedUnasked) {
    const TemporaryFolder folder;
    const auto project = NewProject(folder, "p.kiteproject");
    ASSERT_EQ(MessageOf(project->Save()), "no problem");
    folder.Write("p.ktc", "<contentfile version=\"1\"><!-- theirs --></contentfile>");
    Comment(*project, "a", "ours");
    const auto problem = project->Save();
    ASSERT_TRUE(problem);
    EXPECT_EQ(problem->Reason, FileProblem::ReasonCode::ChangedOnDisk);
    EXPECT_EQ(problem->File, folder / "p.ktc");
    EXPECT_TRUE(project->GetDirty());
    EXPECT_NE(folder.Read("p.ktc").find("theirs"), std::string::npos);
    EXPECT_FALSE(project->Save(ProjectDocument::Overwriting::Allowed));
    EXPECT_NE(folder.Read("p.ktc").find("ours"), std::string::npos);
}

TEST(ProjectDocument, ANewProjectDoesNotReplaceAnotherUnasked) {
    const TemporaryFolder folder;
    folder.Write("p.kiteproject", "precious");
    const auto problem = NewProject(folder, "p.kiteproject")->Save();
    ASSERT_TRUE(problem);
    EXPECT_EQ(problem->Reason, FileProblem::ReasonCode::AlreadyExists);
    EXPECT_EQ(folder.Read("p.kiteproject"), "precious");
}

TEST(ProjectDocument, ANewProjectTakesUpTheCommentsThatAreThere) {
    const TemporaryFolder folder;
    folder.Write("p.ktc", "<contentfile version='1'><comment tag='##' item='a'>x</comment>"
                          "</contentfile>");
    EXPECT_EQ(TextOf(*NewProject(folder, "p.kiteproject"), "a"), "x");
}

TEST(ProjectDocument, AContentFileThatWasTakenOutStaysOnTheDisk) {
    const TemporaryFolder folder;
    const auto project = NewProject(folder, "p.kiteproject");
    Comment(*project, "a", "x");
    ASSERT_EQ(MessageOf(project->Save()), "no problem");
    const std::string bytes = folder.Read("p.ktc");
    project->RemoveContentFile(folder / "p.ktc");
    EXPECT_EQ(project->GetComments()->Count(), 0u);
    ASSERT_EQ(MessageOf(project->Save()), "no problem");
    EXPECT_EQ(folder.Read("p.ktc"), bytes);
    EXPECT_EQ(folder.Read("p.kiteproject").find("p.ktc"), std::string::npos);
}

TEST(ProjectDocument, ContentFilesThatCameAndWentInTheListAreFollowed) {
    const TemporaryFolder folder;
    folder.Write("other.ktc", "<contentfile version='1'><comment tag='##' item='o'>x</comment>"
                              "</contentfile>");
    const auto project = NewProject(folder, "p.kiteproject");
    Comment(*project, "a", "mine");
    ASSERT_EQ(MessageOf(project->Save()), "no problem");
    project->GetCommentFiles().Remove(std::size_t{1});
    auto other = MakeRef<CommentFile>();
    other->FileName = folder / "other.ktc";
    project->GetCommentFiles().Add(other);
    ASSERT_EQ(MessageOf(project->Save()), "no problem");
    EXPECT_EQ(project->GetComments()->QualifiedNames(), std::vector<std::string>{"o"});
    EXPECT_NE(folder.Read("p.ktc").find("mine"), std::string::npos);
}

TEST(ProjectDocument, AProjectWithoutContentFileGetsOneForItsFirstComment) {
    const TemporaryFolder folder;
    folder.Write("p.kiteproject", "<kiteproject version='1'/>");
    const auto project = Opened(folder / "p.kiteproject");
    Comment(*project, "a", "x");
    ASSERT_EQ(MessageOf(project->Save()), "no problem");
    EXPECT_EQ(TextOf(*Opened(folder / "p.kiteproject"), "a"), "x");
}

TEST(ProjectDocument, AMissingProjectSaysSo) {
    const TemporaryFolder folder;
    EXPECT_EQ(OpenMessage(folder / "none.kiteproject"),
              (folder / "none.kiteproject") +
                  ": There is no such file. Check the name, or put the file back.");
}

TEST(ProjectDocument, AProjectThatIsNoXmlSaysWhere) {
    const TemporaryFolder folder;
    const std::string path =
        folder.Write("p.kiteproject", "<kiteproject version=\"1\">\n  <title>");
    EXPECT_EQ(OpenMessage(path).substr(0, path.size() + 5), path + ":2:9:");
}

TEST(ProjectDocument, AProjectOfANewerVersionIsNotTouched) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("p.kiteproject", "<kiteproject version=\"12\"/>");
    EXPECT_EQ(OpenMessage(path),
              path + ":1:1: The file was made by a newer version of the program (file format 12, "
                     "this one reads up to 1). Update the program and open the file again; it was "
                     "not touched.");
}

TEST(ProjectDocument, AContentFileIsNoProject) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("p.ktc", "<contentfile version=\"1\"/>");
    EXPECT_EQ(OpenMessage(path), path +
                                     ":1:1: This is not a project: its root element is "
                                     "<contentfile> and not <kiteproject>. Choose another file.");
}

TEST(ProjectDocument, AContentFileThatIsListedTwiceIsAProblem) {
    const TemporaryFolder folder;
    folder.Write("c.ktc", "<contentfile version='1'/>");
    folder.Write("p.kiteproject", "<kiteproject version='1'><contentfile path='c.ktc'/>"
                                  "<contentfile path='./c.ktc'/></kiteproject>");
    EXPECT_NE(OpenMessage(folder / "p.kiteproject").find("is listed twice"), std::string::npos);
}

TEST(ProjectDocument, EntriesThatSayNothingAreToldWithTheirPlace) {
    const TemporaryFolder folder;
    const std::string path =
        folder.Write("p.kiteproject", "<kiteproject version='1'>\n<source/></kiteproject>");
    EXPECT_EQ(OpenMessage(path), path + ":2:1: This source does not say its folder. Add "
                                        "folder=\"…\" to it, or remove it.");
}

} // namespace paperkite

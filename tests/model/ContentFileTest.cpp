#include "model/ContentFileReader.h"
#include "model/ContentFileWriter.h"

#include "model/ModelTexts.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace paperkite {

namespace {

constexpr const char* kHead = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

/// A Content File in memory with its comments.
struct Opened {
    explicit Opened(const std::string& bytes) {
        File->Path = "a.ktc";
        Problem = ContentFileReader::ReadBytes(File, bytes, *Store);
    }

    std::string Saved() const { return ContentFileWriter::Bytes(*File, *Store); }

    /// All comments as "item tag text" lines in stored order.
    std::string Listed() const {
        std::string lines;
        for (const std::string& item : Store->QualifiedNames())
            for (const auto& comment : *Store->Find(item))
                lines += item + " " + comment->GetTagIdentifier() + " " + comment->GetText() + "\n";
        return lines;
    }

    void Add(const std::string& item, const std::string& tag, const std::string& text,
             const std::string& id) const {
        auto comment = MakeRef<TaggedComment>(id);
        comment->SetTagIdentifier(tag);
        comment->SetText(text);
        Store->Load(item, comment, {File, {}});
    }

    Ref<ContentFile> File = MakeRef<ContentFile>();
    Ref<CommentStore> Store = MakeRef<CommentStore>();
    std::optional<FileProblem> Problem;
};

const std::string kEmpty = std::string(kHead) + "<contentfile version=\"1\"/>\n";

std::string MessageOf(const std::string& bytes) {
    const Opened opened(bytes);
    return opened.Problem ? opened.Problem->Message() : "no problem";
}

} // namespace

TEST(ContentFile, AnyTextInAnyPlaceComesBackAsItWas) {
    for (const std::string& text : test::DifficultTexts()) {
        const Opened first(kEmpty);
        auto comment = MakeRef<TaggedComment>("id" + text);
        comment->SetTagIdentifier("##" + text);
        comment->SetQualifier(text);
        comment->SetXMLCommentType(text);
        comment->SetText(text);
        first.Store->Load("item " + text, comment, {first.File, {}});

        const Opened second(first.Saved());
        ASSERT_FALSE(second.Problem) << second.Problem->Message() << first.Saved();
        const auto comments = second.Store->Find("item " + text);
        ASSERT_TRUE(comments) << first.Saved();
        const auto read = comments->Item("id" + text);
        EXPECT_EQ(read->GetTagIdentifier(), "##" + text);
        EXPECT_EQ(read->GetQualifier(), text);
        EXPECT_EQ(read->GetXMLCommentType(), text);
        EXPECT_EQ(read->GetText(), text);
        EXPECT_EQ(second.Saved(), first.Saved());
    }
}

TEST(ContentFile, CommentsStandByNameThenTagThenInTheAuthorsOrder) {
    const Opened file(kEmpty);
    file.Add("b", "##", "later name", "1");
    file.Add("a", "##remarks", "later tag", "2");
    file.Add("a", "##param", "first", "z");
    file.Add("a", "##param", "second", "a");
    EXPECT_EQ(file.Saved(), std::string(kHead) +
                                "<contentfile version=\"1\">\n"
                                "  <comment item=\"a\" tag=\"##param\" id=\"z\"><![CDATA[\n"
                                "first\n"
                                "]]></comment>\n"
                                "  <comment item=\"a\" tag=\"##param\" id=\"a\"><![CDATA[\n"
                                "second\n"
                                "]]></comment>\n"
                                "  <comment item=\"a\" tag=\"##remarks\" id=\"2\"><![CDATA[\n"
                                "later tag\n"
                                "]]></comment>\n"
                                "  <comment item=\"b\" tag=\"##\" id=\"1\"><![CDATA[\n"
                                "later name\n"
                                "]]></comment>\n"
                                "</contentfile>\n");
}

TEST(ContentFile, HtmlIsReadableAndOneSentenceALine) {
    const Opened file(kEmpty);
    file.Add("a", "##", "<p>One <b>bold</b>.</p><p>Two.</p>", "1");
    EXPECT_EQ(file.Saved(), std::string(kHead) +
                                "<contentfile version=\"1\">\n"
                                "  <comment item=\"a\" tag=\"##\" id=\"1\"><![CDATA[\n"
                                "<p>One <b>bold</b>.</p>\\\n"
                                "<p>Two.</p>\n"
                                "]]></comment>\n"
                                "</contentfile>\n");
}

TEST(ContentFile, AHandEditedFileKeepsItsBytesWhileNothingChanges) {
    const std::string byHand = "\xEF\xBB\xBF<!-- mine -->\r\n<contentfile  version='1' >\r\n\r\n"
                               "<comment tag='##' item=\"b\">\r\n  Two  lines\r\n  of text\r\n"
                               "</comment>\r\n<comment item='a' tag='##'><![CDATA[x]]></comment>"
                               "</contentfile>";
    const Opened file(byHand);
    ASSERT_FALSE(file.Problem);
    EXPECT_EQ(file.Listed(), "a ## x\nb ##   Two  lines\n  of text\n");
    EXPECT_EQ(file.Saved(), byHand);
}

TEST(ContentFile, AChangeThatIsTakenBackLeavesTheBytesAlone) {
    const std::string byHand = "<contentfile version=\"1\"><comment tag=\"##\" item=\"a\" "
                               "id=\"1\">x</comment></contentfile>";
    const Opened file(byHand);
    file.Store->Find("a")->Item("1")->SetText("y");
    EXPECT_NE(file.Saved(), byHand);
    file.Store->Find("a")->Item("1")->SetText("x");
    EXPECT_EQ(file.Saved(), byHand);
}

TEST(ContentFile, WhatIsNotUnderstoodIsWrittenBack) {
    const Opened file("<?xml version=\"1.0\"?>\n<!-- licence -->\n"
                      "<contentfile version=\"1\" editor=\"other\">\n"
                      "  <!-- about a -->\n"
                      "  <comment item=\"a\" tag=\"##\" id=\"1\" reviewed=\"yes &amp; no\">text"
                      "<history by=\"me\"><entry>one <b>two</b> three</entry></history></comment>\n"
                      "  <extension><entry/></extension>\n"
                      "  <!-- the end -->\n"
                      "</contentfile>\n<!-- after -->\n");
    ASSERT_FALSE(file.Problem);
    file.Store->Find("a")->Item("1")->SetText("changed");
    file.Add("b", "##", "new", "2");
    EXPECT_EQ(file.Saved(),
              std::string(kHead) +
                  "<!-- licence -->\n"
                  "<contentfile version=\"1\" editor=\"other\">\n"
                  "  <!-- about a -->\n"
                  "  <comment item=\"a\" tag=\"##\" id=\"1\" reviewed=\"yes &amp; no\"><![CDATA[\n"
                  "changed\n]]>"
                  "<history by=\"me\"><entry>one <b>two</b> three</entry></history></comment>\n"
                  "  <comment item=\"b\" tag=\"##\" id=\"2\"><![CDATA[\n"
                  "new\n"
                  "]]></comment>\n"
                  "  <extension>\n    <entry/>\n  </extension>\n"
                  "  <!-- the end -->\n"
                  "</contentfile>\n<!-- after -->\n");
}

TEST(ContentFile, TombstonesAreNotWritten) {
    const Opened file(kEmpty);
    file.Add("a", "##", "gone", "1");
    file.Store->Find("a")->Item("1")->SetState(kTaggedCommentTombstone);
    EXPECT_EQ(file.Saved(), kEmpty);
}

TEST(ContentFile, AnIdThatTwoCommentsOfAnItemShareLosesNeither) {
    const Opened file("<contentfile version=\"1\"><comment item=\"a\" tag=\"##\" id=\"1\">ours"
                      "</comment><comment item=\"a\" tag=\"##\" id=\"1\">theirs</comment>"
                      "</contentfile>");
    EXPECT_EQ(file.Listed(), "a ## ours\na ## theirs\n");
}

TEST(ContentFile, ACommentWithoutIdGetsOne) {
    const Opened file("<contentfile version=\"1\"><comment item=\"a\" tag=\"##\">x</comment>"
                      "</contentfile>");
    EXPECT_NE(file.Store->Find("a")->Item(1)->GetId(), "");
}

TEST(ContentFile, TheRelatedProjectIsKept) {
    const Opened file(kEmpty);
    file.File->RelatedProject = "kite.source:qt";
    const Opened again(file.Saved());
    EXPECT_EQ(again.File->RelatedProject, "kite.source:qt");
    EXPECT_EQ(again.Saved(), file.Saved());
}

TEST(ContentFile, BrokenMarkupIsToldWithLineAndColumn) {
    EXPECT_EQ(MessageOf("<contentfile version=\"1\">\n  <comment item=\"a\">\n</contentfile>\n"),
              "a.ktc:3:3: This is not well-formed XML: an element ends that did not begin here, or "
              "one before it was never ended. Mend that place in a text editor, or take the file "
              "from a backup.");
}

TEST(ContentFile, ColumnsCountCharactersAndNotBytes) {
    EXPECT_EQ(MessageOf("<contentfile version=\"1\">\nää< </contentfile>").substr(0, 10),
              "a.ktc:2:4:");
}

TEST(ContentFile, TextAndEmptyFilesAreNoXml) {
    for (const char* bytes : {"", "   \n", "just text"})
        EXPECT_EQ(
            MessageOf(bytes),
            "a.ktc:1:1: This is not well-formed XML: no element was found. Mend that place in "
            "a text editor, or take the file from a backup.")
            << bytes;
}

TEST(ContentFile, AnUnfinishedMergeIsCalledSo) {
    const std::string message = MessageOf("<contentfile version=\"1\">\n<<<<<<< ours\n=======\n"
                                          ">>>>>>> theirs\n</contentfile>\n");
    EXPECT_EQ(message.substr(0, 8), "a.ktc:2:");
    EXPECT_NE(message.find("finish the merge, then open it again."), std::string::npos);
}

TEST(ContentFile, ASecondRootAndEndlessNestingAreBrokenMarkup) {
    EXPECT_EQ(MessageOf("<contentfile version=\"1\"/>\n<contentfile version=\"1\"/>").substr(0, 45),
              "a.ktc:2:2: This is not well-formed XML: a sec");
    std::string deep = "<contentfile version=\"1\">";
    for (int level = 0; level < 100000; ++level)
        deep += "<a>";
    for (int level = 0; level < 100000; ++level)
        deep += "</a>";
    EXPECT_NE(MessageOf(deep + "</contentfile>").find("nested too deeply"), std::string::npos);
}

TEST(ContentFile, AnotherKindOfXmlIsRefused) {
    EXPECT_EQ(MessageOf("\n<html/>"),
              "a.ktc:2:1: This is not a Content File: its root element is <html> and not "
              "<contentfile>. Choose another file.");
}

TEST(ContentFile, ANewerVersionIsRefusedWithAWordAboutUpdating) {
    EXPECT_EQ(
        MessageOf("<contentfile version=\"2\"/>"),
        "a.ktc:1:1: The file was made by a newer version of the program (file format 2, this "
        "one reads up to 1). Update the program and open the file again; it was not touched.");
}

TEST(ContentFile, AVersionThatIsNoneIsRefused) {
    for (const char* version : {"", "version=\"\"", "version=\"one\"", "version=\"0\"",
                                "version=\"99999999999999999999\""})
        EXPECT_EQ(MessageOf(std::string("<contentfile ") + version + "/>"),
                  "a.ktc:1:1: The version of the file format is missing or no number. Write "
                  "version=\"1\" into <contentfile>.")
            << version;
}

TEST(ContentFile, ACommentMustSayItsItemAndItsTag) {
    EXPECT_EQ(MessageOf("<contentfile version=\"1\">\n  <comment tag=\"##\">x</comment>\n"
                        "</contentfile>"),
              "a.ktc:2:3: This comment does not say its item. Add item=\"…\" to it, or remove it.");
    EXPECT_EQ(MessageOf("<contentfile version=\"1\">\n  <comment item=\"a\" tag=\"\"/>\n"
                        "</contentfile>"),
              "a.ktc:2:3: This comment does not say its tag. Add tag=\"…\" to it, or remove it.");
}

TEST(ContentFile, TextOutsideOfCommentsIsNotLostSilently) {
    EXPECT_EQ(
        MessageOf("<contentfile version=\"1\">\n  stray\n</contentfile>"),
        "a.ktc:2:3: Text stands here that belongs to no comment. Move it into a <comment>, or "
        "remove it.");
}

TEST(ContentFile, AFileWithAProblemLeavesTheStoreAsItWas) {
    const Opened file("<contentfile version=\"1\"><comment item=\"a\" tag=\"##\">x</comment>"
                      "<comment item=\"b\"/></contentfile>");
    ASSERT_TRUE(file.Problem);
    EXPECT_EQ(file.Store->Count(), 0u);
}

} // namespace paperkite

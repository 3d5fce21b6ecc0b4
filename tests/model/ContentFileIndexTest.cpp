#include "model/ContentFileIndex.h"

#include "model/ContentFileReader.h"
#include "model/ContentFileWriter.h"
#include "model/ModelTexts.h"

#include <gtest/gtest.h>

#include <random>

namespace paperkite {

namespace {

constexpr const char* kHead = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

std::string File(const std::string& comments) {
    return kHead + ("<contentfile version=\"1\">" + comments) + "\n</contentfile>\n";
}

std::string Comment(const std::string& item, const std::string& tag, const std::string& id,
                    const std::string& content = "><![CDATA[\n<p>Text.</p>\n]]></comment>") {
    return "\n  <comment item=\"" + item + "\" tag=\"" + tag + "\" id=\"" + id + "\"" + content;
}

/// The runs as "item count", or "refused".
std::string Runs(const std::string& bytes) {
    std::string told;
    std::string related;
    const bool isUsual =
        ContentFileIndex::Scan(bytes, related, [&](const ContentFileIndex::Run& run) {
            told += std::string(run.Item) + " " + std::to_string(run.Count) + "\n";
        });
    return isUsual ? told : "refused";
}

/// Everything that a reader makes of a file, as text.
std::string Meaning(const std::string& bytes) {
    const auto file = MakeRef<ContentFile>();
    const auto store = MakeRef<CommentStore>();
    if (const auto problem = ContentFileReader::ReadBytes(file, bytes, *store))
        return problem->Message();
    std::string meaning = file->RelatedProject + "\n";
    for (const std::string& item : store->QualifiedNames())
        for (const auto& comment : *store->Find(item))
            meaning += item + "|" + comment->GetTagIdentifier() + "|" + comment->GetId() + "|" +
                       comment->GetQualifier() + "|" + comment->GetXMLCommentType() + "|" +
                       comment->GetText() + "\n";
    return meaning;
}

/// The same file in a layout that the index refuses: the whole of it is parsed then.
std::string InAnotherLayout(const std::string& bytes) {
    return std::string(bytes).insert(bytes.find("<contentfile"), "\n");
}

} // namespace

TEST(ContentFileIndex, FindsTheCommentsOfEachItem) {
    EXPECT_EQ(Runs(File(Comment("a", "##", "1") + Comment("a", "##remarks", "2") +
                        Comment("b", "##", "1", "/>"))),
              "a 2\nb 1\n");
}

TEST(ContentFileIndex, NamesAreReadAsTheyAreMeant) {
    EXPECT_EQ(Runs(File(Comment("f(const T&amp;, &lt;\\\\&quot;&gt;)", "##", "1"))),
              "f(const T&, <\\\">) 1\n");
}

TEST(ContentFileIndex, RefusesWhatIsUnusual) {
    const std::string a = Comment("a", "##", "1");
    const std::string unusual[] = {
        "",
        kHead + std::string("<contentfile version=\"1\"/>\n"),
        File(""),
        InAnotherLayout(File(a)),
        File("\n  <!-- mine -->" + a),
        File(a + "\n  <extra/>"),
        File(a + "\n"),
        File(a) + " ",
        File(Comment("b", "##", "1") + a),
        File(a + Comment("b", "##", "1") + Comment("a", "##remarks", "2")),
        File(Comment("a", "##remarks", "1") + Comment("a", "##", "2")),
        File(Comment("", "##", "1")),
        File(Comment("a", "", "1")),
        File(Comment("a", "##", "")),
        File(Comment("a", "##&amp;", "1")),
        File(a + Comment("a", "##remarks", "1")),
        File(Comment("a", "##", "&amp;")),
        File(Comment("a\r", "##", "1")),
        File(Comment("a", "#\n", "1")),
        File(Comment("a &unknown;", "##", "1")),
        File(Comment("a", "##", "1", " more=\"x\"/>")),
        File(Comment("a", "##", "1", "><b>Bold</b></comment>")),
        File(Comment("a", "##", "1", "><![CDATA[x]]> </comment>")),
        File(Comment("a", "##", "1", "><![CDATA[x]]></comment >")),
        File(Comment("a", "##", "1", "><![CDATA[x")),
        File(Comment("a", "##", "1", std::string("><![CDATA[x\0y]]></comment>", 26))),
        "\xEF\xBB\xBF" + File(a),
    };
    for (const std::string& bytes : unusual)
        EXPECT_EQ(Runs(bytes), "refused") << bytes;
}

TEST(ContentFileIndex, AFileMeansTheSameHoweverItIsRead) {
    std::string comments;
    int number = 0;
    for (const std::string& text : test::DifficultTexts()) {
        const auto file = MakeRef<ContentFile>();
        const auto store = MakeRef<CommentStore>();
        auto comment = MakeRef<TaggedComment>("id" + std::to_string(++number));
        comment->SetTagIdentifier("##");
        comment->SetQualifier(text);
        comment->SetXMLCommentType(text);
        comment->SetText(text);
        store->Load("item " + text, comment, {file, {}});
        const std::string bytes = ContentFileWriter::Canonical(*file, *store);
        EXPECT_NE(Runs(bytes), "refused") << bytes;
        EXPECT_EQ(Meaning(bytes), Meaning(InAnotherLayout(bytes)));
    }
}

TEST(ContentFileIndex, AFileThatSomebodyDamagedMeansTheSameHoweverItIsRead) {
    std::string comments;
    for (const char* item : {"a", "a &lt;b&gt;", "c\\n"})
        for (const char* tag : {"##", "##remarks"})
            comments += Comment(item, tag, std::string("id") + tag);
    const std::string sound = File(comments);
    std::mt19937 random(11);
    const std::string pieces[] = {"<", ">", "\"", "&", "]]>", "\n", "  ", "<!--", "/>", "\\", "a"};
    for (int round = 0; round < 3000; ++round) {
        std::string bytes = sound;
        const std::size_t at = 64 + random() % (bytes.size() - 64);
        if (random() % 2)
            bytes.erase(at, 1 + random() % 3);
        else
            bytes.insert(at, pieces[random() % std::size(pieces)]);
        if (Runs(bytes) == "refused") continue;
        // Places in messages differ by the line that the other layout has more.
        EXPECT_EQ(Meaning(bytes), Meaning(InAnotherLayout(bytes))) << bytes;
    }
}

TEST(ContentFileIndex, LookingAtACommentChangesNoByte) {
    // Somebody's own line breaks.
    const std::string bytes =
        File(Comment("a", "##", "1", "><![CDATA[\n<p>One.</p><p>Two.</p>\n]]></comment>") +
             Comment("b", "##", "2", ">plain &amp; simple</comment>"));
    ASSERT_NE(Runs(bytes), "refused");
    const auto file = MakeRef<ContentFile>();
    const auto store = MakeRef<CommentStore>();
    ASSERT_FALSE(ContentFileReader::ReadBytes(file, bytes, *store));
    EXPECT_EQ(store->Find("a")->Item(std::size_t{1})->GetText(), "<p>One.</p><p>Two.</p>");
    EXPECT_EQ(ContentFileWriter::Canonical(*file, *store), bytes);
}

TEST(ContentFileIndex, AChangedCommentLeavesTheLinesOfTheOthers) {
    const std::string other =
        Comment("b", "##", "2", "><![CDATA[\n<p>One.</p><p>Two.</p>\n]]></comment>");
    const auto file = MakeRef<ContentFile>();
    const auto store = MakeRef<CommentStore>();
    ASSERT_FALSE(ContentFileReader::ReadBytes(file, File(Comment("a", "##", "1") + other), *store));
    store->Find("a")->Item(std::size_t{1})->SetText("new");
    EXPECT_EQ(ContentFileWriter::Bytes(*file, *store),
              File(Comment("a", "##", "1", "><![CDATA[\nnew\n]]></comment>") + other));
}

} // namespace paperkite

#include "journeys/CommandLineTest.h"

namespace paperkite::test {
namespace {

constexpr const char* kLayout =
    "<!DOCTYPE html>\n<html><head><meta name=\"generator\" content=\"x\"></head><body>"
    "<h1><!--KITEMETADATA start type=\"title\"-->Title<!--KITEMETADATA end--></h1>"
    "<p><!--KITEMETADATA start type=\"text\"-->Text<!--KITEMETADATA end--></p></body></html>";

class ConvertJourneyTest : public CommandLineTest {
protected:
    ConvertJourneyTest() { mFolder.Write("page.html", kLayout); }
    std::string Layout() const { return mFolder / "page.html"; }
};

TEST_F(ConvertJourneyTest, ALayoutGoesToItsSpanDocumentAndBackWithAnAuthorsChange) {
    std::string spans = Do({"convert", Layout(), "--to", "span"});
    EXPECT_TRUE(Contains(spans, "<h1><span id=\"metaspanstart1\"")) << spans;
    const std::size_t heading = spans.find("</h1>");
    spans.insert(heading, " of the author");
    mFolder.Write("spans.html", spans);
    const std::string meta =
        Do({"convert", mFolder / "spans.html", "--to", "meta", "--layout", Layout()});
    EXPECT_EQ(meta,
              "<!DOCTYPE html>\n<html>\n<head>\n  <meta name=\"generator\" content=\"Brindlewick "
              "Paperkite (https://www.brindlewick.example/)\">\n</head>\n<body>\n  <h1><!--"
              "KITEMETADATA start type=\"title\"-->Title<!--KITEMETADATA end--> of the author</h1>"
              "\n  <p><!--KITEMETADATA start type=\"text\"-->Text<!--KITEMETADATA end--></p>\n"
              "</body>\n</html>\n");
}

TEST_F(ConvertJourneyTest, ALayoutIsWrittenAsAnEditorWouldSaveIt) {
    const std::string once = Do({"convert", Layout(), "--to", "meta"});
    mFolder.Write("once.html", once);
    EXPECT_EQ(Do({"convert", mFolder / "once.html", "--to", "meta"}), once);
}

TEST_F(ConvertJourneyTest, TheBundledLayoutsGoThereAndBackWithoutAWord) {
    for (const char* layout : {"type", "callable", "group"}) {
        const std::string file =
            std::string(PAPERKITE_SOURCE_DIR "/templates/modern/") + layout + ".html";
        const std::string meta = Do({"convert", file, "--to", "meta"});
        mFolder.Write("again.html", meta);
        EXPECT_EQ(Do({"convert", mFolder / "again.html", "--to", "meta"}), meta) << layout;
    }
}

TEST_F(ConvertJourneyTest, WrongUseIsRefusedWithAWayOut) {
    const std::string spans = mFolder / "spans.html";
    mFolder.Write("spans.html", Do({"convert", Layout(), "--to", "span"}));
    mFolder.Write("other.html", "<html><body>none</body></html>");
    EXPECT_TRUE(Contains(Refused({"convert", Layout()}), "--to"));
    EXPECT_TRUE(Contains(Refused({"convert", Layout(), "--to", "text"}), "span"));
    EXPECT_TRUE(Contains(Refused({"convert", mFolder / "none.html", "--to", "span"}), "none.html"));
    EXPECT_TRUE(Contains(Refused({"convert", spans, "--to", "meta"}), "--layout"));
    EXPECT_TRUE(
        Contains(Refused({"convert", spans, "--to", "meta", "--layout", mFolder / "other.html"}),
                 "metaspanstart1"));
    EXPECT_TRUE(Contains(Refused({"convert", spans, "--to", "span", "--layout", Layout()}),
                         "Leave it out"));
}

TEST_F(ConvertJourneyTest, MistakesInTagsAreToldAndTheTextIsPrinted) {
    mFolder.Write("bad.html", "<body>a<!--KITEMETADATA start type=\"x\"-->b</body>");
    const ProgramResult result = mProgram.Run({"convert", mFolder / "bad.html", "--to", "span"});
    EXPECT_EQ(result.ExitCode, 2);
    EXPECT_TRUE(Contains(result.Err, "Page Layout Errors: Line 1, column ")) << result.Err;
    EXPECT_EQ(result.Out, "<body>a<!--KITEMETADATA start type=\"x\"-->b</body>");
}

} // namespace
} // namespace paperkite::test

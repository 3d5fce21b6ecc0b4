#include "journeys/CommandLineTest.h"

#include "foundation/Text.h"

#include <filesystem>
#include <fstream>
#include <sstream>

// Which links of a project's comments lead nowhere.

namespace paperkite::test {

namespace {

namespace fs = std::filesystem;

class LinksJourneyTest : public CommandLineTest {
protected:
    static std::string BytesOf(const fs::path& file) {
        std::ifstream stream(file, std::ios::binary);
        std::ostringstream bytes;
        bytes << stream.rdbuf();
        return bytes.str();
    }
    /// The example with a source folder of its own.
    std::string CopyOfExample() {
        const fs::path root = PAPERKITE_SOURCE_DIR;
        fs::copy(root / "src", fs::path(mFolder.Path()) / "src", fs::copy_options::recursive);
        for (const char* name : {"paperkite.kiteproject", "paperkite.ktc"})
            mFolder.Write(std::string("examples/") + name, BytesOf(root / "examples" / name));
        return mFolder / "examples/paperkite.kiteproject";
    }
    std::string Zoo(const std::string& html) {
        mFolder.Write("zoo/animals.h", "class Dog {\npublic:\n    void Bark(int times);\n};\n");
        Do({"new", mFolder / "zoo.kiteproject", "--source", mFolder / "zoo"});
        mFolder.Write("zoo.ktc",
                      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<contentfile version=\"1\">\n"
                      "  <comment item=\"zoo~Dog\" tag=\"##remarks\" id=\"a\"><![CDATA[" +
                          html + "]]></comment>\n</contentfile>\n");
        return mFolder / "zoo.kiteproject";
    }
};

TEST_F(LinksJourneyTest, NoLinkOfTheExampleLeadsNowhere) {
    const std::string project = PAPERKITE_SOURCE_DIR "/examples/paperkite.kiteproject";
    const Json json = DoJson({"links", project});
    EXPECT_GE(json["links"].size(), 4u);
    EXPECT_EQ(json["nowhere"], 0);
    EXPECT_EQ(json["isPart"], false);
    std::size_t items = 0, outside = 0;
    for (const Json& link : json["links"]) {
        items += link["leadsTo"] == "item";
        outside += link["leadsTo"] == "outside";
    }
    EXPECT_GE(items, 3u);
    EXPECT_GE(outside, 1u);
    EXPECT_TRUE(Contains(Do({"links", project}), ", none leads nowhere.\n"));
}

TEST_F(LinksJourneyTest, LongAddressesAreShortenedForPeopleOnly) {
    const std::string many(100'000, 'a');
    const std::string project = Zoo("<a href=\"" + many + "z.html\">" + many + "</a>");
    const ProgramResult result = mProgram.Run({"links", project});
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_LT(result.Out.size(), 1500u);
    EXPECT_TRUE(Contains(result.Out, "az.html\n"));
    const ProgramResult json = mProgram.Run({"links", project, "--json"});
    EXPECT_TRUE(Contains(json.Out, many + "z.html"));
}

TEST_F(LinksJourneyTest, ALinkToAnItemThatWasRenamedIsFound) {
    const std::string project = CopyOfExample();
    EXPECT_EQ(DoJson({"links", project})["nowhere"], 0);
    for (const auto& entry : fs::recursive_directory_iterator(mFolder / "src"))
        if (const std::string code = BytesOf(entry.path()); code.find("SafeFile") != code.npos)
            std::ofstream(entry.path(), std::ios::binary)
                << ReplaceAll(code, "SafeFile", "SureFile");
    const ProgramResult result = mProgram.Run({"links", project});
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_TRUE(Contains(result.Out, "SafeFile.html\n    leads nowhere: There is no item "
                                     "\"src~paperkite~SafeFile\" in this project."))
        << result.Out;
    EXPECT_TRUE(Contains(result.Out, " 1 of them leads nowhere.\n")) << result.Out;
}

TEST_F(LinksJourneyTest, EachLinkIsListedWithItsPlaceCaptionAndGoal) {
    const std::string project =
        Zoo("<p><a href=\"zoo~Dog~Bark.html\">a bark</a>, <a href=\"no.png\">a picture</a>, <a "
            "href=\"https://example.org\"><img src=\"x.png\"></a></p>");
    const ProgramResult result = mProgram.Run({"links", project});
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_EQ(result.Err, "");
    EXPECT_EQ(result.Out, "zoo~Dog: Remarks: \"a bark\" -> zoo~Dog~Bark.html\n"
                          "zoo~Dog: Remarks: \"a picture\" -> no.png\n"
                          "    leads nowhere: There is no file \"no.png\" beside the project file. "
                          "Put it there, or link to another one.\n"
                          "zoo~Dog: Remarks: https://example.org\n"
                          "3 links, 1 of them leads nowhere.\n");
    const Json json = Json::parse(mProgram.Run({"links", project, "--json"}).Out);
    EXPECT_EQ(json["nowhere"], 1);
    EXPECT_EQ(json["links"][0]["item"], "zoo~Dog~Bark");
    EXPECT_EQ(json["links"][0]["leadsTo"], "item");
    EXPECT_EQ(json["links"][1]["leadsTo"], "nowhere");
    EXPECT_TRUE(json["links"][1]["problem"].is_string());
    EXPECT_EQ(json["links"][2]["caption"], "");
}

TEST_F(LinksJourneyTest, AProjectThatIsNotThereIsRefused) {
    EXPECT_TRUE(Contains(Refused({"links", mFolder / "none.kiteproject"}), "none.kiteproject"));
}

} // namespace

} // namespace paperkite::test

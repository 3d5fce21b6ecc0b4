#include "model/ConfigurationReader.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <set>

namespace paperkite {

namespace {

std::string MessageOf(const std::string& bytes) {
    Ref<TaggedCommentDefs> definitions;
    const auto problem = ConfigurationReader::ReadBytes("c.xml", bytes, definitions);
    EXPECT_EQ(definitions, nullptr);
    return problem ? problem->Message() : "no problem";
}

std::string AfterLast(const std::string& text, char sign) {
    return text.find(sign) == std::string::npos ? std::string() : text.substr(text.rfind(sign) + 1);
}

} // namespace

TEST(ConfigurationReader, TheStandardDefinitionsAreCompleteAndInOrder) {
    std::string tags;
    const auto definitions = ConfigurationReader::Standard();
    for (const auto& definition : *definitions)
        tags += definition->TagIdentifier + " ";
    EXPECT_EQ(tags, "## ##remarks ##param ##returns ##exception ##subitem ##example "
                    "##examplesource ##isexample ##seealso ##keywords ##new ##commentsfrom "
                    "##menuitem ##xml ##threadsafety ##deprecated ##internal ");
}

TEST(ConfigurationReader, EveryStandardDefinitionCanBeListedAndExplained) {
    const auto definitions = ConfigurationReader::Standard();
    for (const auto& definition : *definitions) {
        EXPECT_NE(definition->DisplayName, "") << definition->TagIdentifier;
        EXPECT_GT(definition->Tip.size(), 30u) << definition->TagIdentifier;
        EXPECT_NE(definition->XMLTags, "") << definition->TagIdentifier;
        EXPECT_NE(definition->Namespaces, "") << definition->TagIdentifier;
        EXPECT_EQ(definition->Namespaces.find('@'), std::string::npos);
        EXPECT_NE(definition->IconName, "") << definition->TagIdentifier;
        EXPECT_EQ(definition->TabName.empty(),
                  definition->DesignerProgID.empty() && definition->TagType != "f")
            << definition->TagIdentifier;
    }
}

TEST(ConfigurationReader, TheStandardDefinitionsUseEveryDesigner) {
    std::set<std::string> used;
    const auto definitions = ConfigurationReader::Standard();
    for (const auto& definition : *definitions)
        used.insert(AfterLast(definition->DesignerProgID, '.'));
    used.erase("");
    EXPECT_EQ(used, (std::set<std::string>{"dsrHTMLEdit", "dsrIsExample", "dsrCommentsFrom",
                                           "dsrMenuItem", "dsrKeywords", "dsrExampleSource",
                                           "dsrXMLIsland", "dsrSubItem", "dsrIsNew"}));
}

TEST(ConfigurationReader, EveryIconIsThereInBothStates) {
    const std::string folder = PAPERKITE_SOURCE_DIR "/icons/commenttypes/";
    std::set<std::string> names{"other", "fullpageedit", "flags_ticked", "flags_unticked",
                                "other_ticked"};
    const auto definitions = ConfigurationReader::Standard();
    for (const auto& definition : *definitions)
        names.insert({definition->IconName, definition->IconName + "_ticked"});
    for (const std::string& name : names) {
        std::ifstream file(folder + name + ".ico", std::ios::binary);
        char header[6] = {};
        file.read(header, sizeof header);
        EXPECT_TRUE(file) << name;
        EXPECT_EQ(header[2], 1) << name;
        EXPECT_EQ(header[4], 3) << name << " has not its three sizes";
    }
}

TEST(ConfigurationReader, TheGeneralDescriptionIsTheOneGeneralDefinition) {
    std::string general;
    const auto definitions = ConfigurationReader::Standard();
    for (const auto& definition : *definitions)
        if (definition->IsGeneral) general += definition->TagIdentifier + definition->XMLTags;
    EXPECT_EQ(general, "##summary");
}

TEST(ConfigurationReader, ParametersAreOfferedForWhatHasThem) {
    const auto definition = ConfigurationReader::Standard()->Find("##PARAM");
    ASSERT_TRUE(definition);
    const std::string levels = "," + definition->Namespaces + ",";
    EXPECT_NE(levels.find(",kite.source:Method,"), std::string::npos);
    EXPECT_EQ(levels.find(",kite.source:Field,"), std::string::npos);
}

TEST(ConfigurationReader, TheFileOfTheRepositoryIsTheStandard) {
    Ref<TaggedCommentDefs> definitions;
    ASSERT_FALSE(ConfigurationReader::Load(PAPERKITE_SOURCE_DIR "/config", definitions));
    EXPECT_EQ(definitions->Count(), ConfigurationReader::Standard()->Count());
}

TEST(ConfigurationReader, AFolderWithoutTheFileGivesTheStandard) {
    const test::TemporaryFolder folder;
    Ref<TaggedCommentDefs> definitions;
    EXPECT_FALSE(ConfigurationReader::Load(folder.Path(), definitions));
    EXPECT_EQ(definitions->Count(), ConfigurationReader::Standard()->Count());
}

TEST(ConfigurationReader, ABrokenFileIsToldAndTheStandardTaken) {
    const test::TemporaryFolder folder;
    folder.Write("taggedcomments.xml", "<taggedcomments version=\"9\"/>");
    Ref<TaggedCommentDefs> definitions;
    const auto problem = ConfigurationReader::Load(folder.Path(), definitions);
    ASSERT_TRUE(problem);
    EXPECT_EQ(problem->Reason, FileProblem::ReasonCode::NewerVersion);
    EXPECT_EQ(definitions->Count(), ConfigurationReader::Standard()->Count());
}

TEST(ConfigurationReader, MistakesAreToldWithTheirPlace) {
    EXPECT_EQ(
        MessageOf("<taggedcomments version=\"1\">\n <taggedcomment/></taggedcomments>"),
        "c.xml:2:2: This definition does not say its tag. Add tag=\"##…\" to it, or remove it.");
    EXPECT_EQ(MessageOf("<taggedcomments version=\"1\"><taggedcomment tag=\"##a\"/>\n"
                        "<taggedcomment tag=\"##A\"/></taggedcomments>"),
              "c.xml:2:1: The tag \"##A\" is defined twice. Remove one of the two definitions.");
    EXPECT_EQ(MessageOf("<taggedcomments version=\"1\">\n"
                        "<taggedcomment tag=\"##a\" namespaces=\"@no\"/></taggedcomments>"),
              "c.xml:2:1: There is no list of namespaces \"@no\". Put a <namespaces name=\"no\"> "
              "before it.");
}

} // namespace paperkite

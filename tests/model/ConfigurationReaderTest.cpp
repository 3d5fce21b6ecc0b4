#include "model/ConfigurationReader.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace paperkite {

namespace {

std::string MessageOf(const std::string& bytes) {
    Ref<TaggedCommentDefs> definitions;
    const auto problem = ConfigurationReader::ReadBytes("c.xml", bytes, definitions);
    EXPECT_EQ(definitions, nullptr);
    return problem ? problem->Message() : "no problem";
}

} // namespace

TEST(ConfigurationReader, TheStandardDefinitionsAreCompleteAndInOrder) {
    std::string tags;
    const auto definitions = ConfigurationReader::Standard();
    for (const auto& definition : *definitions)
        tags += definition->TagIdentifier + " ";
    EXPECT_EQ(tags, "## ##remarks ##param ##returns ##exception ##example ##seealso ##keywords "
                    "##threadsafety ##deprecated ##internal ##new ");
}

TEST(ConfigurationReader, EveryStandardDefinitionCanBeListedAndExplained) {
    const auto definitions = ConfigurationReader::Standard();
    for (const auto& definition : *definitions) {
        EXPECT_NE(definition->DisplayName, "") << definition->TagIdentifier;
        EXPECT_GT(definition->Tip.size(), 30u) << definition->TagIdentifier;
        EXPECT_NE(definition->XMLTags, "") << definition->TagIdentifier;
        EXPECT_NE(definition->Namespaces, "") << definition->TagIdentifier;
        EXPECT_EQ(definition->Namespaces.find('@'), std::string::npos);
        EXPECT_EQ(definition->TabName, definition->TagType == "f" ? definition->DisplayName : "");
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

#include "platform/html/HtmlServices.h"
#include "support/HtmlFixtures.h"

#include "platform/html/HtmlContent.h"

#include <algorithm>
#include <set>

#include <gtest/gtest.h>

namespace paperkite::test {
namespace {

std::string Normalised(const std::string& html, const std::string& context = "span") {
    const auto document = MakeHTMLDOMFactory()->CreateFromString("");
    const auto element = document->CreateElement(context);
    element->SetInnerHTML(html);
    return element->GetInnerHTML();
}

/// Fixtures of which the standard drops a tag, or changes a comment or a line break.
bool SaysOtherwise(const std::string& name) {
    static const std::set<std::string> names{"attribute-duplicate",
                                             "carriage-returns",
                                             "cdata-in-html",
                                             "cell-outside-table",
                                             "comment-odd",
                                             "comment-processing",
                                             "html-tags",
                                             "nul",
                                             "pre-dropped-line-break",
                                             "row-outside-table",
                                             "stray-end-tags"};
    return names.contains(name);
}

class NormalisingTest : public testing::TestWithParam<HtmlFixture> {};

TEST_P(NormalisingTest, MakesWhatTheFixtureSays) {
    EXPECT_EQ(Normalised(GetParam().Source), GetParam().Result);
}

TEST_P(NormalisingTest, ChangesNothingTheSecondTime) {
    const std::string once = Normalised(GetParam().Source);
    EXPECT_EQ(Normalised(once), once);
}

TEST_P(NormalisingTest, LosesNothingThatTheStandardKeeps) {
    const bool isKept = HtmlContent(GetParam().Source).IsKeptBy(HtmlContent(GetParam().Result));
    EXPECT_EQ(isKept, !SaysOtherwise(GetParam().Name));
}

TEST_P(NormalisingTest, TidyLosesNothing) {
    const HtmlContent before(GetParam().Result);
    const std::string tidied = MakeHTMLTidy()->TidyHTML(GetParam().Result, true);
    EXPECT_TRUE(before.IsKeptBy(HtmlContent(tidied))) << tidied;
}

// Its end tags are none to the parser, which reads one more paragraph each time.
TEST(UnsettledHtmlTest, APartThatGrowsWithEachReadingIsShownAsText) {
    const std::string once = Normalised("a & b<l><svg><p><e\v>");
    EXPECT_EQ(once, "a &amp; b&lt;l&gt;&lt;svg&gt;&lt;p&gt;&lt;e\xEF\xBF\xBD&gt;");
    EXPECT_EQ(Normalised(once), once);
}

std::string NameOf(const testing::TestParamInfo<HtmlFixture>& fixture) {
    std::string name = fixture.param.Name;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Fixtures, NormalisingTest, testing::ValuesIn(HtmlFixtures()), NameOf);

} // namespace
} // namespace paperkite::test

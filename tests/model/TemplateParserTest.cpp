#include "model/TemplateParser.h"

#include "foundation/Text.h"

#include <gtest/gtest.h>

#include <functional>

namespace paperkite::test {

namespace {

/// Answers with what a test says, and remembers what it was asked.
class AnsweringProvider : public DataProvider {
public:
    std::function<std::string(const Ref<ParserElement>&)> Answer;
    std::string Asked;

    Ref<DataProvider> Clone() override { return {}; }
    Ref<Object> GetCurrentItem() override { return {}; }
    std::string GetCurrentItemType() override { return {}; }
    Ref<Object> GetCurrentParentItem() override { return {}; }
    Ref<Object> GetCurrentRootItem() override { return {}; }
    void SetCurrentRootItem(const Ref<Object>&) override {}
    Ref<NamespaceDef> GetNamespaceDef() override { return {}; }
    std::string GetProperty(const std::string&) override { return {}; }
    void Initialise(const Ref<ParserTemplate>&) override {}
    std::string ParseForProperties(const std::string&) override { return {}; }
    std::string ProvideData(const Ref<ParserElement>& element, const Ref<FileSystem>&) override {
        Asked += element->Attributes.Item("type")->Value + ";";
        return Answer ? Answer(element) : "<" + element->Attributes.Item("type")->Value + ">";
    }
    void SetCurrentItem(Ref<NamespaceDef>&, const Ref<Object>&, const std::string&,
                        const Ref<Object>&) override {}
    void DataProvider_Terminate() override {}
};

Ref<TemplateParser> Loaded(const std::string& text, bool metaDocument = false) {
    auto parser = MakeRef<TemplateParser>();
    parser->SetPageLayoutTags();
    parser->SetMetaDocumentMode(metaDocument);
    parser->LoadText(text);
    return parser;
}

const Collection<Ref<ParserElement>>& ElementsOf(TemplateParser& parser) {
    return parser.GetSections()->Item(std::size_t{1})->Elements;
}

std::string Start(const std::string& attributes) {
    return "<!--KITEMETADATA start " + attributes + "-->";
}

const std::string kEnd = "<!--KITEMETADATA end-->";

/// The attributes of the only element, as "name=value;".
std::string Attributes(const std::string& text) {
    const auto parser = Loaded(Start(text) + kEnd);
    EXPECT_EQ(parser->GetParseErrors(), "");
    std::string all;
    for (const auto& attribute : ElementsOf(*parser).Item(std::size_t{1})->Attributes)
        all += attribute->Name + "=" + attribute->Value + ";";
    return all;
}

TEST(TemplateParserTest, LiteralTextAndElementsStandInDocumentOrder) {
    const auto parser = Loaded("<p>" + Start("type=\"name\"") + "Name" + kEnd + "</p>");
    const auto& elements = ElementsOf(*parser);
    ASSERT_EQ(elements.Count(), 3u);
    EXPECT_EQ(elements.Item(std::size_t{1})->Text, "<p>");
    EXPECT_EQ(elements.Item(std::size_t{1})->ElementType, kParserLiteralText);
    EXPECT_EQ(elements.Item(std::size_t{2})->ElementType, kParserTagElement);
    EXPECT_EQ(elements.Item(std::size_t{2})->Text, "Name");
    EXPECT_EQ(elements.Item(std::size_t{2})->SourceText,
              "<!--KITEMETADATA start type=\"name\"-->Name<!--KITEMETADATA end-->");
    EXPECT_EQ(elements.Item(std::size_t{3})->Text, "</p>");
    EXPECT_EQ(elements.Item(std::size_t{2})->Section.Lock()->Template.Lock(), parser);
}

TEST(TemplateParserTest, ValuesStandInEitherQuotesOrBareAndANameAloneSaysTrue) {
    EXPECT_EQ(Attributes("type=\"a b\" One='it \"is\"' two = bare\n\tthree"),
              "type=a b;One=it \"is\";two=bare;three=true;");
}

TEST(TemplateParserTest, EntitiesStandForWhatATagCannotHold) {
    EXPECT_EQ(Attributes("type=x v=\"&quot;a&quot; &lt;b&gt; -&#45;&#x2D; &amp;amp; &none; & \""),
              "type=x;v=\"a\" <b> --- &amp; &none; & ;");
}

TEST(TemplateParserTest, NestedElementsAreTheTextOfTheOutermost) {
    const std::string inner = "<td>" + Start("type=b") + "x" + kEnd + "</td>";
    const auto parser = Loaded(Start("type=a") + inner + kEnd);
    ASSERT_EQ(ElementsOf(*parser).Count(), 1u);
    EXPECT_EQ(ElementsOf(*parser).Item(std::size_t{1})->Text, inner);
}

TEST(TemplateParserTest, AnEndTagMaySayWhatItEnds) {
    const auto parser = Loaded(Start("type=a") + "x<!--KITEMETADATA end type=\"a\"-->y");
    EXPECT_EQ(parser->GetParseErrors(), "");
    EXPECT_EQ(ElementsOf(*parser).Item(std::size_t{2})->Text, "y");
}

TEST(TemplateParserTest, TheProviderIsAskedOnceForEachElementInOrder) {
    const auto parser =
        Loaded("1" + Start("type=a") + kEnd + "2" + Start("type=b") + "text" + kEnd + "3");
    const auto provider = MakeRef<AnsweringProvider>();
    parser->SetDataProvider(provider);
    parser->SetUseProvidedText(true);
    EXPECT_EQ(parser->Parse(), "1<a>2<b>3");
    EXPECT_EQ(provider->Asked, "a;b;");
}

TEST(TemplateParserTest, WhetherTheAnswerIsUsedIsAskedBehindEachAnswer) {
    const std::string kept = Start("type=keep") + "old" + kEnd;
    const auto parser = Loaded(Start("type=a") + kEnd + kept + Start("type=b") + kEnd);
    const auto provider = MakeRef<AnsweringProvider>();
    provider->Answer = [&](const Ref<ParserElement>& element) {
        const std::string type = element->Attributes.Item("type")->Value;
        element->Section.Lock()->Template.Lock()->SetUseProvidedText(type != "keep");
        return "<" + type + ">";
    };
    parser->SetDataProvider(provider);
    EXPECT_EQ(parser->Parse(), "<a>" + kept + "<b>");
}

TEST(TemplateParserTest, WithoutAProviderTheTextComesBackByteByByte) {
    const std::string text = "\xEF\xBB\xBF<p>\r\n" + Start("type='a'  b = c") + "\tx" + kEnd +
                             std::string("\0\r", 2) + "\xFF";
    EXPECT_EQ(Loaded(text)->Parse(), text);
}

TEST(TemplateParserTest, AnEditedElementIsWrittenAnewAndAnUntouchedOneAsItWas) {
    const auto parser = Loaded(Start("type='a'  b=c") + "x" + kEnd);
    const auto element = ElementsOf(*parser).Item(std::size_t{1});
    EXPECT_EQ(element->GetSourceText(), element->SourceText);
    element->Text = "y";
    EXPECT_EQ(element->GetSourceText(), Start("type='a'  b=c") + "y" + kEnd);
    element->Attributes.Item("b")->Value = "say \"--\" & go";
    EXPECT_EQ(element->GetSourceText(),
              Start("type=\"a\" b=\"say &quot;-&#45;&quot; &amp; go\"") + "y" + kEnd);
    EXPECT_EQ(ElementsOf(*Loaded(element->GetSourceText()))
                  .Item(std::size_t{1})
                  ->Attributes.Item("b")
                  ->Value,
              "say \"--\" & go");
}

TEST(TemplateParserTest, ANewElementHasASourceTextOfItsOwn) {
    const auto parser = Loaded("");
    auto element = MakeRef<ParserElement>();
    element->ElementType = kParserTagElement;
    element->Section = parser->GetSections()->Item(std::size_t{1});
    auto type = MakeRef<ElementAttribute>();
    type->Name = "type";
    type->Value = "flags";
    element->Attributes.Add(type, "type");
    element->Text = "Flags";
    EXPECT_EQ(element->GetSourceText(), Start("type=\"flags\"") + "Flags" + kEnd);
}

struct BrokenText {
    std::string Text;
    std::string Errors;
    std::string Page;
};

TEST(TemplateParserTest, AMistakeIsToldWithItsPlaceAndTheRestOfThePageIsMade) {
    const std::string good = Start("type=good") + kEnd;
    const std::vector<BrokenText> cases = {
        {"\nä" + Start("type=a") + good,
         "Line 2, column 2: This element is not ended. Put \"<!--KITEMETADATA end-->\" where it "
         "ends.",
         "\nä" + Start("type=a") + "<good>"},
        {"x" + kEnd + good,
         "Line 1, column 2: This end tag has no start tag before it. Remove it, or put the start "
         "tag where the element begins.",
         "x" + kEnd + "<good>"},
        {"<!--KITEMETADATA start type=a\n" + good,
         "Line 1, column 1: This tag is not ended. Put \"-->\" behind it.",
         "<!--KITEMETADATA start type=a\n<good>"},
        {Start("type=\"a") + "x" + good + kEnd,
         "Line 1, column 29: The value of type is not ended. Put a \" behind it; a quotation mark "
         "in it is written &quot;.",
         Start("type=\"a") + "x<good>" + kEnd},
        {Start("type=") + kEnd + good,
         "Line 1, column 29: The attribute type has no value. Write type=\"value\", or type=\"\" "
         "for an empty one.",
         Start("type=") + kEnd + "<good>"},
        {Start("=a") + kEnd + good,
         "Line 1, column 24: An attribute's name is missing before =. Write name=\"value\".",
         Start("=a") + kEnd + "<good>"},
        {"<!--KITEMETADATA starttype=a-->" + kEnd + good,
         "Line 1, column 23: A blank is missing here. Put one behind \"<!--KITEMETADATA start\".",
         "<!--KITEMETADATA starttype=a-->" + kEnd + "<good>"},
        {"\xE4" + good,
         "Line 1, column 1: The byte E4 is not UTF-8. Save the text as UTF-8, or mend that "
         "character.",
         "\xE4<good>"},
    };
    for (const BrokenText& broken : cases) {
        const auto parser = Loaded(broken.Text);
        EXPECT_EQ(parser->GetParseErrors(), broken.Errors);
        parser->SetDataProvider(MakeRef<AnsweringProvider>());
        parser->SetUseProvidedText(true);
        EXPECT_EQ(parser->Parse(), broken.Page);
    }
}

TEST(TemplateParserTest, ATextInUtf16IsNamedAsSuch) {
    EXPECT_EQ(Loaded(std::string("\xFF\xFE<\0", 4))->GetParseErrors(),
              "Line 1, column 1: This text is UTF-16. Save it as UTF-8.");
}

TEST(TemplateParserTest, AZeroByteIsToldWithItsPlace) {
    const auto parser = Loaded("ab\n" + std::string("c\0d", 3));
    EXPECT_EQ(parser->GetParseErrors(),
              "Line 2, column 2: The byte 00 is no character of a text. Take it away.");
}

TEST(TemplateParserTest, OnlyAPublishedTextIsJudgedInsideItsElements) {
    const std::string text = Start("type=a") + Start("type=\"b") + kEnd + kEnd;
    EXPECT_NE(Loaded(text)->GetParseErrors(), "");
    EXPECT_EQ(Loaded(text, true)->GetParseErrors(), "");
}

TEST(TemplateParserTest, AnAttributeGivenTwiceIsAMistakeOfALayoutThatIsEdited) {
    const std::string text = Start("type=a Type=b") + kEnd;
    EXPECT_EQ(Loaded(text)->GetParseErrors(), "");
    EXPECT_EQ(ElementsOf(*Loaded(text)).Item(std::size_t{1})->Attributes.Item("type")->Value, "a");
    const auto strict = Loaded(text, true);
    EXPECT_EQ(strict->GetParseErrors(),
              "Line 1, column 1: An attribute is given twice. Remove one of the two.");
    EXPECT_EQ(strict->Parse(), text);
}

TEST(TemplateParserTest, ATagWithoutATypeIsAMistake) {
    EXPECT_EQ(Loaded(Start("name=a") + kEnd)->GetParseErrors(),
              "Line 1, column 1: This tag does not say what it stands for. Add type=\"…\" to it.");
}

TEST(TemplateParserTest, TenThousandNestedElementsAreOneElement) {
    std::string text;
    for (int level = 0; level < 10000; ++level)
        text += Start("type=a");
    for (int level = 0; level < 10000; ++level)
        text += kEnd;
    const auto parser = Loaded(text);
    EXPECT_EQ(parser->GetParseErrors(), "");
    ASSERT_EQ(ElementsOf(*parser).Count(), 1u);
    EXPECT_EQ(parser->Parse(), text);
}

TEST(TemplateParserTest, TheFirstHundredOfManyMistakesAreTold) {
    std::string text;
    for (int tag = 0; tag < 100000; ++tag)
        text += "<!--KITEMETADATA start type=a\n";
    const auto parser = Loaded(text);
    const auto lines = Split(parser->GetParseErrors(), "\n");
    ASSERT_EQ(lines.size(), 101u);
    EXPECT_EQ(lines[99].substr(0, 18), "Line 100, column 1");
    EXPECT_EQ(lines[100], "There are 99900 more.");
}

TEST(TemplateParserTest, ALayoutOfFiftyMegabytesIsRead) {
    const std::string line = "<p>A line of text.</p>\n";
    std::string text;
    while (text.size() < 50u * 1024 * 1024) {
        for (int count = 0; count < 100; ++count)
            text += line;
        text += Start("type=a") + kEnd;
    }
    const auto parser = Loaded(text);
    EXPECT_EQ(parser->GetParseErrors(), "");
    EXPECT_EQ(parser->Parse(), text);
}

} // namespace

} // namespace paperkite::test

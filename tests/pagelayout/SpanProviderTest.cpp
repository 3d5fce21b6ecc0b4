#include "pagelayout/PageLayoutFixture.h"

namespace paperkite::test {
namespace {

/// Remembers what it was told, and may take some of its pieces for something else.
class RecordingParser : public TemplateParser {
public:
    void SetMetaDocumentMode(bool value) override {
        Told += value ? "mode " : "no mode ";
        TemplateParser::SetMetaDocumentMode(value);
    }
    void SetUseProvidedText(bool value) override {
        Told += value ? "provided " : "own ";
        TemplateParser::SetUseProvidedText(value);
    }
    void LoadText(const std::string& text) override {
        TemplateParser::LoadText(text);
        for (const std::size_t position : Others)
            GetSections()->Item(std::size_t{1})->Elements.Item(position)->ElementType = 1;
    }

    std::string Told;
    std::vector<std::size_t> Others;
};

class RecordingMessageBox : public MessageBox {
public:
    MessageAnswer Show(const std::string&, const std::string&, MessageIcon,
                       MessageButtons buttons) override {
        Buttons.push_back(buttons);
        return MessageAnswer::Ok;
    }
    std::vector<MessageButtons> Buttons;
};

/// What the provider of a conversion is asked, and what it tells the parser.
class SpanProviderTest : public PageLayoutFixture {
protected:
    SpanProviderTest() {
        CurrentServices().CreateParserTemplate = [this] {
            mParser = MakeRef<RecordingParser>();
            mParser->Others = mOthers;
            return mParser;
        };
    }
    Ref<ParserElement> Piece(std::size_t position) {
        return mParser->GetSections()->Item(std::size_t{1})->Elements.Item(position);
    }
    SpanProvider& Provider() { return *mEdit.GetSpanProvider(); }
    std::string Excluded() {
        std::string keys;
        for (std::size_t position = 1; position <= Provider().ExcludedElements.Count(); ++position)
            keys += Provider().ExcludedElements.KeyAt(position) + " ";
        return keys;
    }

    Ref<RecordingParser> mParser;
    std::vector<std::size_t> mOthers;
};

TEST_F(SpanProviderTest, TheParserIsTakenForALayoutAndHasExcludedElementsWriteTheirOwnText) {
    ToSpan("<body><tr>" + Meta("a") + Meta("b") + "<td>" + Meta("c") + "</td>" + Meta("d"));
    EXPECT_EQ(mParser->Told, "mode provided own own provided own ");
    EXPECT_EQ(Excluded(), "1 2 4 ");
    EXPECT_EQ(Provider().ExcludedElements.Item("4"), 1);
    EXPECT_EQ(Provider().Elements.Count(), 4u);
}

TEST_F(SpanProviderTest, AnExcludedElementIsAnsweredWithNothing) {
    ToSpan("<body>" + Meta("a", "text"));
    Provider().ExcludedElements.Add(1, "2");
    mParser->Told.clear();
    EXPECT_EQ(Provider().ProvideData(Piece(2), {}), "");
    EXPECT_EQ(mParser->Told, "own ");
    mParser->Told.clear();
    EXPECT_EQ(Provider().ProvideData(Piece(2), {}), ElementToSpan(*Piece(2), 3));
    EXPECT_EQ(mParser->Told, "provided ");
    EXPECT_EQ(Provider().Elements.Count(), 3u);
}

TEST_F(SpanProviderTest, WithoutSpansAnElementIsAnsweredAsItIsWrittenAndNotCounted) {
    ToSpan("<body><tr>" + Meta("a", "text"));
    Provider().OutputSpans = false;
    mParser->Told.clear();
    EXPECT_EQ(Provider().ProvideData(Piece(2), {}), Meta("a", "text"));
    EXPECT_EQ(mParser->Told, "provided ") << "although the element is excluded";
    EXPECT_EQ(Provider().Elements.Count(), 1u);
}

TEST_F(SpanProviderTest, TheWayBackSetsTheParserToOwnTexts) {
    const std::string spans = ToSpan("<html><body>" + Meta("a") + "</body></html>");
    const Ref<RecordingParser> parser = mParser;
    parser->Told.clear();
    ToMeta(spans);
    EXPECT_EQ(parser->Told, "own ");
}

TEST_F(SpanProviderTest, AnAttributeThatIsGivenTwiceIsShownInTwoMessagesWithAnOkButton) {
    const auto box = std::make_shared<RecordingMessageBox>();
    const std::string html = "<body><!--KITEMETADATA start type=\"a\" x=\"1\" x=\"2\"-->t"
                             "<!--KITEMETADATA end-->";
    ToSpan(html);
    EXPECT_EQ(mServices.Messages->Shown.size(), 2u);
    CurrentServices().MessageBox = box;
    ToSpan(html);
    EXPECT_EQ(box->Buttons, (std::vector{MessageButtons::Ok, MessageButtons::Ok}));
}

TEST_F(SpanProviderTest, PiecesOfAnotherTypeNeitherCountNorDecide) {
    mOthers = {3};
    EXPECT_EQ(Numbers(ToSpan("<body>" + Meta("a") + "</td>" + Meta("b"))), "1 2 ")
        << "the cell's end is no text";
    EXPECT_EQ(Excluded(), "");
    mOthers = {2};
    ToSpan("<body>" + Meta("a") + "<tr>" + Meta("b"));
    EXPECT_EQ(Excluded(), "1 ") << "the first element is none";
}

TEST_F(SpanProviderTest, AParserThatIsDoneWithTheProviderLeavesTheElements) {
    ToSpan("<body>" + Meta("a"));
    const Ref<DataProvider> seenByParser = mEdit.GetSpanProvider();
    seenByParser->DataProvider_Terminate();
    EXPECT_EQ(Provider().Elements.Count(), 1u);
    Provider().Terminate();
    EXPECT_EQ(Provider().Elements.Count(), 0u);
}

} // namespace
} // namespace paperkite::test

#include "foundation/Services.h"
#include "platform/html/HtmlServices.h"
#include "support/ScriptedServices.h"
#include "widgets/HtmlEdit.h"

#include <gtest/gtest.h>

// The editor as the surface of a whole document.

namespace paperkite {
namespace {

const std::string kPage = "<html><head></head><body><p id=\"p\">One <b id=\"b\">two</b></p>"
                          "<p id=\"q\">three</p></body></html>";

class HtmlEditDocumentTest : public testing::Test, public HtmlEditObserver {
protected:
    HtmlEditDocumentTest() {
        CurrentServices().HTMLDOMFactory = MakeHTMLDOMFactory();
        mEdit->SetScope(HtmlEditScope::Document);
        mTies.push_back(mEdit->Observe(*this));
        mTies.push_back(mEdit->Events.Change.Connect(
            [this] { mLog += mEdit->GetLoading() ? "Loading;" : "Change;"; }));
    }

    void DocumentReplaced() override { mLog += "Replaced;"; }
    void ElementChanged(const Ref<HTMLElement>& element) override {
        mLog += "Element " + element->GetTagName() + ";";
    }
    bool IsShowingPage() const override { return mShowsPage; }
    void FlushWanted() override { mLog += "Flush;"; }
    void CommandWanted(const std::string& name,
                       const std::vector<std::string>& arguments) override {
        mLog += name + (arguments.empty() ? "" : " " + arguments.front()) + ";";
    }
    void SourceMarkChanged() override {
        mLog += "Mark " + std::to_string(mEdit->GetMarkedLine()) + ":" +
                std::to_string(mEdit->GetMarkedColumn()) + ";";
    }

    void Open(const std::string& html = kPage) {
        mEdit->SetDocumentHTML(html);
        TakeLog();
    }
    void OpenSource(const std::string& text) {
        mEdit->SetView(HtmlView::Source);
        mEdit->SetDocumentHTML(text);
        TakeLog();
    }
    Ref<HTMLElement> Element(const std::string& id) { return mEdit->GetDocument()->All(id); }
    std::string Body() { return mEdit->GetDocument()->GetBody()->GetInnerHTML(); }
    std::string TakeLog() { return std::exchange(mLog, {}); }

    test::ScriptedServices mServices;
    Ref<HtmlEdit> mEdit = MakeRef<HtmlEdit>("ed");
    std::vector<Connection> mTies;
    std::string mLog;
    bool mShowsPage = false;
};

TEST_F(HtmlEditDocumentTest, ATextIsGivenBackAsItWasSet) {
    const std::string odd = "<P CLASS=x>a<br>b\n\n\t<i>c</i>";
    Open(odd);
    EXPECT_EQ(mEdit->GetDocumentHTML(), odd);
    EXPECT_EQ(mEdit->GetDocument()->Tags("br").size(), 1u) << "and is a document all the same";
    EXPECT_FALSE(mEdit->GetDirty());
}

TEST_F(HtmlEditDocumentTest, AChangeOfTheDocumentIsInTheText) {
    Open();
    Element("b")->SetOuterHTML("2");
    EXPECT_EQ(mEdit->GetDocumentHTML(), "<html><head></head><body><p id=\"p\">One 2</p>"
                                        "<p id=\"q\">three</p></body></html>");
}

TEST_F(HtmlEditDocumentTest, PuttingATextInIsToldAfterItIsThereAndIsNoChangeOfTheAuthor) {
    mEdit->SetDocumentHTML(kPage);
    EXPECT_EQ(TakeLog(), "Flush;Replaced;Loading;");
    EXPECT_FALSE(mEdit->GetLoading());
    EXPECT_FALSE(mEdit->IsCommandEnabled("EditUndo"));
}

TEST_F(HtmlEditDocumentTest, TheWholeBodyIsWrittenOn) {
    Open();
    ASSERT_EQ(mEdit->GetPlaces().size(), 1u);
    EXPECT_EQ(mEdit->GetPlaces().front(), mEdit->GetDocument()->GetBody());
    EXPECT_EQ(mEdit->PlaceOf(Element("b")), mEdit->GetDocument()->GetBody());
    EXPECT_FALSE(mEdit->PlaceOf(mEdit->GetDocument()->GetDocumentElement()));
    EXPECT_FALSE(mEdit->PlaceOf({}));
}

TEST_F(HtmlEditDocumentTest, AnotherDocumentHasAnotherBody) {
    Open();
    const auto first = mEdit->GetPlaces().front();
    Open("<body>other</body>");
    EXPECT_NE(mEdit->GetPlaces().front(), first);
    EXPECT_EQ(mEdit->GetPlaces().front()->GetInnerHTML(), "other");
    EXPECT_FALSE(mEdit->PlaceOf(first));
}

TEST_F(HtmlEditDocumentTest, TypingIsToldWithoutTheText) {
    Open();
    mEdit->UserDocumentTouched(true);
    EXPECT_EQ(TakeLog(), "Change;");
    EXPECT_TRUE(mEdit->GetDirty());
    EXPECT_EQ(mEdit->GetDocumentHTML(), kPage) << "nothing came over yet";
    mEdit->CommitEdit();
    EXPECT_EQ(TakeLog(), "Flush;");
}

TEST_F(HtmlEditDocumentTest, UndoHasTwoNamesAndIsThereWhileSomethingCanBeTakenBack) {
    Open();
    mEdit->UserDocumentTouched(true);
    for (const char* name : {"undo", "EditUndo", "EDITUNDO"})
        EXPECT_TRUE(mEdit->IsCommandEnabled(name)) << name;
    EXPECT_FALSE(mEdit->IsCommandEnabled("EditRedo"));
    mEdit->UserDocumentTouched(false);
    EXPECT_FALSE(mEdit->IsCommandEnabled("EditUndo"));
    mEdit->UserDocumentTouched(true);
    mEdit->UserDocumentTouched(true);
    mEdit->UserDocumentTouched(false);
    EXPECT_FALSE(mEdit->IsCommandEnabled("undo")) << "touched twice, taken back at once";
}

TEST_F(HtmlEditDocumentTest, AnotherTextForgetsWhatCanBeTakenBackAndWhereTheAuthorStood) {
    Open();
    mEdit->UserDocumentTouched(true);
    mEdit->UserPoint(Element("b"));
    Open();
    EXPECT_FALSE(mEdit->IsCommandEnabled("undo"));
    EXPECT_FALSE(mEdit->GetCurrentElement());
    EXPECT_FALSE(mEdit->GetDirty());
}

TEST_F(HtmlEditDocumentTest, NoPageNoTyping) {
    Open();
    mEdit->UserSourceChanged("not the source view", true);
    EXPECT_EQ(mEdit->GetDocumentHTML(), kPage);
    mEdit->SetView(HtmlView::Source);
    TakeLog();
    mEdit->UserDocumentTouched(true);
    EXPECT_EQ(TakeLog(), "");
    EXPECT_FALSE(mEdit->GetDirty());
}

TEST_F(HtmlEditDocumentTest, PlacesOfAPageKnowNothingOfWholeDocuments) {
    auto places = MakeRef<HtmlEdit>();
    int changes = 0;
    const auto tie = places->Events.Change.Connect([&] { ++changes; });
    places->SetDocumentHTML("<body><span id=\"a\" contenteditable=\"true\">x</span></body>");
    places->UserDocumentTouched(true);
    places->SetView(HtmlView::Source);
    places->UserSourceChanged("other", true);
    EXPECT_EQ(changes, 0);
    EXPECT_FALSE(places->GetDirty());
    EXPECT_NE(places->GetDocumentHTML().find(">x</span>"), std::string::npos);
}

// The source view

TEST_F(HtmlEditDocumentTest, TheSourceIsKeptAsItIsTypedHoweverWrong) {
    OpenSource("<p>a");
    EXPECT_EQ(mEdit->GetDocumentHTML(), "<p>a");
    const std::string wrong = "<p <b>>\r\n</i><!-- never closed\xC3\xA4";
    mEdit->UserSourceChanged(wrong, true);
    EXPECT_EQ(mEdit->GetDocumentHTML(), wrong);
    EXPECT_EQ(TakeLog(), "Change;");
    EXPECT_TRUE(mEdit->GetDirty());
    EXPECT_TRUE(mEdit->IsCommandEnabled("EditUndo"));
    mEdit->UserSourceChanged(wrong, true);
    EXPECT_EQ(TakeLog(), "") << "the same again is no change";
}

TEST_F(HtmlEditDocumentTest, TheSourceViewBeginsWithTheTextOfTheDocument) {
    Open();
    Element("b")->SetOuterHTML("2");
    const std::string text = mEdit->GetDocumentHTML();
    mEdit->SetView(HtmlView::Source);
    EXPECT_EQ(mEdit->GetDocumentHTML(), text);
}

TEST_F(HtmlEditDocumentTest, LeavingTheSourceMakesADocumentOfIt) {
    Open();
    mEdit->SetView(HtmlView::Source);
    mEdit->UserSourceChanged("<p id=n>new", true);
    mEdit->SetView(HtmlView::Normal);
    ASSERT_TRUE(Element("n"));
    EXPECT_EQ(Element("n")->GetInnerText(), "new");
    EXPECT_EQ(mEdit->GetDocumentHTML(), "<p id=n>new") << "until it is changed";
    Element("n")->SetInnerHTML("newer");
    EXPECT_EQ(mEdit->GetDocumentHTML(),
              "<html><head></head><body><p id=\"n\">newer</p></body></html>");
}

TEST_F(HtmlEditDocumentTest, InTheSourceViewNothingIsWrittenAtTheSelection) {
    Open();
    mEdit->UserPoint(Element("b"));
    mEdit->SetView(HtmlView::Source);
    TakeLog();
    mEdit->SetSelectedHTML("<u>x</u>");
    EXPECT_EQ(TakeLog(), "");
    EXPECT_EQ(mEdit->GetDocumentHTML(), kPage);
}

TEST_F(HtmlEditDocumentTest, AMarkIsToldOnceAndGoesWithItsText) {
    OpenSource("<p>a");
    mEdit->SetSourceMark(1, 3);
    mEdit->SetSourceMark(1, 3);
    EXPECT_EQ(TakeLog(), "Mark 1:3;");
    mEdit->SetSourceMark(1, 4);
    mEdit->SetSourceMark(0, 0);
    EXPECT_EQ(TakeLog(), "Mark 1:4;Mark 0:0;");
    mEdit->SetSourceMark(2, 1);
    mEdit->SetDocumentHTML("<p>b");
    EXPECT_EQ(mEdit->GetMarkedLine(), 0);
}

// Writing at the selection

TEST_F(HtmlEditDocumentTest, WithoutAPageTheSelectionIsBehindTheCurrentElement) {
    Open();
    mEdit->UserPoint(Element("b"));
    mEdit->SetSelectedHTML("<u>x</u>");
    EXPECT_EQ(Body(), "<p id=\"p\">One <b id=\"b\">two</b><u>x</u></p><p id=\"q\">three</p>");
    EXPECT_NE(mEdit->GetDocumentHTML().find("<u>x</u>"), std::string::npos);
}

TEST_F(HtmlEditDocumentTest, WithoutACurrentElementItIsTheEndOfTheBody) {
    const std::string wanted =
        "<p id=\"p\">One <b id=\"b\">two</b></p><p id=\"q\">three</p><u>x</u>";
    for (const bool isAtBody : {false, true}) {
        Open();
        if (isAtBody) mEdit->UserPoint(mEdit->GetDocument()->GetBody());
        mEdit->SetSelectedHTML("<u>x</u>");
        EXPECT_EQ(Body(), wanted) << isAtBody;
    }
}

TEST_F(HtmlEditDocumentTest, AnElementThatIsGoneOrOutsideTheBodyIsNoSelection) {
    Open();
    const auto gone = Element("b");
    mEdit->UserPoint(gone);
    gone->SetOuterHTML("");
    mEdit->SetSelectedHTML("<u>x</u>");
    EXPECT_EQ(Body(), "<p id=\"p\">One </p><p id=\"q\">three</p><u>x</u>");
    mEdit->UserPoint(mEdit->GetDocument()->GetDocumentElement());
    mEdit->SetSelectedHTML("<i>y</i>");
    EXPECT_EQ(Body(), "<p id=\"p\">One </p><p id=\"q\">three</p><u>x</u><i>y</i>");
}

TEST_F(HtmlEditDocumentTest, OnAPageItIsTheAuthorsOwn) {
    Open();
    mShowsPage = true;
    mEdit->UserPoint(Element("b"));
    mEdit->SetSelectedHTML("<u>x</u>");
    EXPECT_EQ(TakeLog(), "inserthtml <u>x</u>;");
    EXPECT_EQ(mEdit->GetDocumentHTML(), kPage) << "it comes when the page is read";
}

TEST_F(HtmlEditDocumentTest, BeforeTheFirstDocumentAndAfterTheEndNothingHappens) {
    mEdit->SetSelectedHTML("<u>x</u>");
    mEdit->UserPoint({});
    EXPECT_EQ(mEdit->GetDocumentHTML(), "");
    Open();
    mEdit->Terminate();
    TakeLog();
    mEdit->SetSelectedHTML("<u>x</u>");
    mEdit->UserDocumentTouched(true);
    mEdit->UserSourceChanged("x", true);
    EXPECT_FALSE(mEdit->UserElementEvent(HtmlEventId::kDoubleClick, {}));
    EXPECT_EQ(mEdit->GetDocumentHTML(), "");
    EXPECT_EQ(TakeLog(), "");
    EXPECT_FALSE(mEdit->GetDirty());
}

// Events of elements

TEST_F(HtmlEditDocumentTest, TheAnswerOfAHandlerReachesThePage) {
    Open();
    auto info = MakeRef<HtmlElementEvent>();
    info->SourceElement = Element("b");
    EXPECT_FALSE(mEdit->UserElementEvent(7, info)) << "nobody wants it";
    std::string heard;
    const auto tie =
        mEdit->Events.ElementEvent.Connect([&](int id, const auto& what, bool& cancelDefault) {
            heard = std::to_string(id) + what->SourceElement->GetId();
            cancelDefault = id == HtmlEventId::kContextMenu;
        });
    EXPECT_FALSE(mEdit->UserElementEvent(HtmlEventId::kDoubleClick, info));
    EXPECT_EQ(heard, "-601b");
    EXPECT_TRUE(mEdit->UserElementEvent(HtmlEventId::kContextMenu, info));
    EXPECT_EQ(heard, "1023b");
}

TEST_F(HtmlEditDocumentTest, ATextThatNoDocumentCanBeMadeOfLeavesTheOldOne) {
    Open();
    std::string deep;
    for (int level = 0; level < 100000; ++level)
        deep += "<div>";
    EXPECT_THROW(mEdit->SetDocumentHTML(deep), Error);
    EXPECT_EQ(mEdit->GetDocumentHTML(), kPage);
    EXPECT_FALSE(mEdit->GetLoading());
}

} // namespace
} // namespace paperkite

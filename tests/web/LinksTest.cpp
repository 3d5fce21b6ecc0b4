#include "web/SurfaceTest.h"

#include "foundation/Services.h"
#include "platform/html/HtmlServices.h"
#include "platform/qt/HtmlEditMenu.h"
#include "platform/qt/HtmlEditView.h"
#include "platform/qt/LinkAddress.h"
#include "support/PageClick.h"

namespace paperkite::test {
namespace {

/// An HtmlEdit in the real engine, with a page that is one large link.
class LinksTest : public testing::Test {
protected:
    LinksTest() : mBefore(CurrentServices()) {
        CurrentServices().HTMLDOMFactory = MakeHTMLDOMFactory();
        mView.resize(600, 400);
        mView.show();
        mView.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&mView));
    }
    ~LinksTest() override { CurrentServices() = mBefore; }

    /// What a host is told when that link is clicked.
    std::string Clicked(const std::string& href) {
        std::string told;
        const auto tie =
            mEdit->Events.HyperlinkClick.Connect([&](const auto& link) { told = link; });
        mEdit->SetDocumentHTML("<html><body><a style='display:block;height:300px' href=\"" + href +
                               "\">go</a></body></html>");
        EXPECT_TRUE(WaitUntil([&] { return mView.IsReady(); }));
        ClickUntil(mView.GetSurface()->InputWidget(), QPoint(50, 50),
                   [&] { return !told.empty(); });
        return told;
    }

    Services mBefore;
    Ref<HtmlEdit> mEdit = MakeRef<HtmlEdit>("ed");
    HtmlEditView mView{mEdit, nullptr};
};

TEST_F(LinksTest, AClickTellsWhereTheLinkLeads) {
    mEdit->SetBaseURL("file:///out/the%20pages");
    EXPECT_EQ(Clicked("zoo~animals.html"), "file:///out/the%20pages/zoo~animals.html");
    EXPECT_EQ(Clicked("#remarks"), "file:///out/the%20pages/#remarks");
    EXPECT_EQ(Clicked("zoo~operator%3C.html"), "file:///out/the%20pages/zoo~operator%3C.html");
    EXPECT_EQ(Clicked("http://example.org/a%20b?c=d#e"), "http://example.org/a%20b?c=d#e");
}

TEST_F(LinksTest, WhoeverIsToldOfAClickGetsWhatWasTypedBefore) {
    mEdit->SetDocumentHTML("<html><body><a style='display:block;height:200px' href='a.html'>go</a>"
                           "<div contenteditable='true'></div></body></html>");
    ASSERT_TRUE(WaitUntil([&] { return mView.IsReady(); }));
    mEdit->SetEditFocus();
    ASSERT_TRUE(WaitUntil([&] { return mEdit->IsCommandEnabled("bold"); }));
    std::string text;
    const auto tie = mEdit->Events.HyperlinkClick.Connect([&](const auto&) {
        mEdit->CommitEdit();
        text = mEdit->GetPlaces()[0]->GetInnerHTML();
    });
    QWidget* const input = mView.GetSurface()->InputWidget();
    for (const char letter : {'a', 'b', 'c'})
        QTest::keyClick(input, letter);
    QTest::mouseClick(input, Qt::LeftButton, {}, QPoint(50, 50));
    EXPECT_TRUE(WaitUntil([&] { return !text.empty(); }));
    EXPECT_EQ(text, "abc");
}

TEST_F(LinksTest, TheMenuFollowsALinkAsAClickDoes) {
    mEdit->SetBaseURL("file:///out/");
    std::string told = Clicked("first.html");
    const auto tie = mEdit->Events.HyperlinkClick.Connect([&](const auto& link) { told = link; });
    QTest::mouseClick(mView.GetSurface()->InputWidget(), Qt::RightButton, {}, QPoint(50, 50));
    HtmlEditMenu* menu = nullptr;
    ASSERT_TRUE(WaitUntil([&] { return (menu = mView.findChild<HtmlEditMenu*>()) != nullptr; }));
    told.clear();
    for (QAction* action : menu->actions())
        if (action->text() == "&Follow the link") action->trigger();
    EXPECT_EQ(told, "file:///out/first.html");
    menu->close();
}

TEST(LinkAddressTest, AddressesAreResolvedAsABrowserDoes) {
    const auto resolved = [](const char* page, const char* link) {
        return ResolvedLink(page, link).toStdString();
    };
    EXPECT_EQ(resolved("", "a~b.html"), "file:///a~b.html");
    EXPECT_EQ(resolved("file:///o/", "../a.html"), "file:///a.html");
    EXPECT_EQ(resolved("file:///o/", "#"), "file:///o/#");
    EXPECT_EQ(resolved("file:///o/", "n%C3%A4her.html#k%20l"), "file:///o/n%C3%A4her.html#k%20l");
    EXPECT_EQ(resolved("file:///o/", "f(a%3A%3Ab,c<d>)%2F%25.html?x"),
              "file:///o/f(a%3A%3Ab,c%3Cd%3E)%2F%25.html");
    EXPECT_EQ(resolved("file:///o/", "operator%.html"), "file:///o/operator%25.html");
    EXPECT_EQ(resolved("file:///o/", "mailto:a@b.org"), "mailto:a@b.org");
    EXPECT_EQ(resolved("file:///o/", "javascript:alert(1)"), "javascript:alert(1)");
    EXPECT_EQ(resolved("file:///o/", "http://[bad"), "http://[bad");
}

} // namespace
} // namespace paperkite::test

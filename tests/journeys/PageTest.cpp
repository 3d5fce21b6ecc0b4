#include "journeys/PageTest.h"

#include "foundation/GlobalConfig.h"
#include "host/HeadlessServices.h"
#include "model/ConfigurationReader.h"

#include <QEventLoop>
#include <QTest>
#include <QTimer>

#include <stdexcept>

namespace paperkite::test {

PageTest::PageTest() {
    EXPECT_FALSE(ConfigurationReader::Load(PAPERKITE_SOURCE_DIR "/config",
                                           GlobalConfig().TaggedCommentDefs));
    LoadPageTemplates();
}

HtmlEditView& PageTest::Page() const {
    for (auto* widget : mWindow->findChildren<QWidget*>())
        if (auto* page = dynamic_cast<HtmlEditView*>(widget);
            page && page->isVisible() && page->window() == mWindow.get())
            return *page;
    throw std::logic_error("The window shows no page");
}

void PageTest::OpenPage(const std::string& item) {
    ClickItem(item);
    WaitForPage();
}

void PageTest::WaitForPage() {
    ASSERT_TRUE(WaitUntil([&] { return Page().IsReady(); })) << Page().GetNotice().toStdString();
}

void PageTest::TypeOnPage(const std::string& text) {
    mWindow->activateWindow();
    Page().GetSurface()->FocusText();
    // The page says so when the caret stands in a place.
    const auto& edit = Editor().InPlaceEditor->GetEditControl();
    ASSERT_TRUE(WaitUntil([&] {
        return edit->IsCommandEnabled("bold") && Page().GetSurface()->InputWidget()->hasFocus();
    }));
    for (const char letter : text)
        QTest::keyClick(Page().GetSurface()->InputWidget(), letter);
}

void PageTest::PressOnPage(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(Page().GetSurface()->InputWidget(), key, modifiers);
}

void PageTest::ChooseTab(const std::string& key) {
    for (const auto& group : Editor().eb->GetGroups())
        for (const auto& item : *group)
            if (item->GetKey() == key) {
                Editor().eb->UserClick(item);
                Settle();
                return;
            }
    FAIL() << "The bar has no tab " << key;
}

std::string PageTest::Places() const {
    std::string texts;
    for (const auto& place : Editor().InPlaceEditor->GetEditControl()->GetPlaces())
        texts += place->GetId() + "=" + place->GetInnerHTML() + ";";
    return texts;
}

} // namespace paperkite::test

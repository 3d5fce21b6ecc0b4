#pragma once

#include "journeys/WindowTest.h"
#include "platform/qt/HtmlEditView.h"
#include "support/Waiting.h"

#include <functional>

namespace paperkite::test {

/// The window with page templates, and the page of the real engine in it.
class PageTest : public WindowTest {
protected:
    PageTest();

    /// The page that is to be seen; none is a failure.
    HtmlEditView& Page() const;
    /// Opens the item's page and waits until it stands.
    void OpenPage(const std::string& item);
    void WaitForPage();
    /// Keys to where the caret is in the page.
    void TypeOnPage(const std::string& text);
    void PressOnPage(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
    /// Chooses a tab of the bar as a click on it does.
    void ChooseTab(const std::string& key);
    /// The texts of the page's places: "id=text;".
    std::string Places() const;
};

} // namespace paperkite::test

#pragma once

#include "host/window/LayoutWindow.h"
#include "journeys/PageTest.h"

#include <functional>
#include <string>

namespace paperkite::test {

/// The window of page layouts over templates of the test's own.
class LayoutTest : public PageTest {
protected:
    LayoutTest();

    /// The bytes of the layout of types.
    std::string OnDisk() const { return mFolder.Read(kTypeFile); }
    void WriteOnDisk(const std::string& bytes) const { mFolder.Write(kTypeFile, bytes); }

    /// Opens the window from the menu, and waits until its page stands.
    void OpenLayouts();
    LayoutWindow& Window() const { return *mWindow->GetLayoutWindow(); }
    MetaDocumentEdit& Edit() const { return Window().GetEdit(); }
    HtmlEditView& LayoutPage() const;
    void WaitForLayout();
    /// Clicks a layout in the list.
    void ClickLayout(const std::string& key);
    std::string ChosenLayout() const;
    void Do(const char* action);
    /// Puts the caret at the beginning of the text and types.
    void TypeIntoLayout(const std::string& text);
    /// Answers the next dialog: clicks an element in its tree if one is named, then a button.
    void AnswerElementDialog(const std::string& element, const std::string& button);
    /// The body of the layout as it is now, without the lines of tidying.
    std::string Body() const;
    /// The sentence above the layout; empty for none.
    std::string Notice() const;

    static constexpr const char* kTypeFile = "templates/modern/type.html";
};

} // namespace paperkite::test

#pragma once

#include "foundation/HTMLDocument.h"
#include "platform/qt/WebSurface.h"

#include <functional>

namespace paperkite {

/// One element of a page that the author writes on, as the page tells of it: its tag, its id, and
/// what it stands in. Writing its outer HTML is passed on to the page; what else the page knows of
/// it is in the document, once that was read. Asking for it here is error 438.
class PagePoint : public HTMLElement {
public:
    using Replace = std::function<void(const std::string& html)>;

    /// Nothing for an empty path. Only the innermost element can be written.
    static Ref<HTMLElement> Of(const WebPath& path, Replace replace = {});

    PagePoint(const WebElement& element, Ref<HTMLElement> parent, Replace replace);

    std::string GetTagName() const override { return mTag; }
    Ref<HTMLElement> GetParentElement() const override { return mParent; }
    Ref<HTMLDocument> GetDocument() const override { return {}; }
    std::optional<std::string> GetAttribute(const std::string& name) const override;
    void SetOuterHTML(const std::string& html) override;

    void SetAttribute(const std::string& name, const std::string& value) override;
    void RemoveAttribute(const std::string& name) override;
    std::string GetInnerHTML() const override;
    void SetInnerHTML(const std::string& html) override;
    std::string GetOuterHTML() const override;
    std::string GetInnerText() const override;
    void InsertAdjacentHTML(InsertPosition where, const std::string& html) override;
    void InsertAdjacentElement(InsertPosition where, const Ref<HTMLElement>& element) override;
    void RemoveKeepingContents() override;
    std::vector<Ref<HTMLElement>> Tags(const std::string& tag) const override;

private:
    std::string mTag;
    std::string mId;
    Ref<HTMLElement> mParent;
    Replace mReplace;
};

} // namespace paperkite

#include "platform/qt/PagePoint.h"

#include "foundation/Error.h"
#include "foundation/Text.h"
#include "platform/qt/Conversions.h"

namespace paperkite {

namespace {

[[noreturn]] void NotKnown(const char* what) {
    RaiseError(ErrorNumber::NoSuchMember,
               std::string("A page tells no ") + what +
                   " of an element that the author points at; the document has it");
}

} // namespace

Ref<HTMLElement> PagePoint::Of(const WebPath& path, Replace replace) {
    Ref<HTMLElement> element;
    for (auto at = path.crbegin(); at != path.crend(); ++at) {
        const bool isInnermost = std::next(at) == path.crend();
        element = MakeRef<PagePoint>(*at, element, isInnermost ? replace : Replace());
    }
    return element;
}

PagePoint::PagePoint(const WebElement& element, Ref<HTMLElement> parent, Replace replace)
    : mTag(FromQString(element.Tag)), mId(FromQString(element.Id)), mParent(std::move(parent)),
      mReplace(std::move(replace)) {}

std::optional<std::string> PagePoint::GetAttribute(const std::string& name) const {
    if (!EqualIgnoringCase(name, "id")) NotKnown("attributes");
    return mId.empty() ? std::nullopt : std::optional(mId);
}

void PagePoint::SetOuterHTML(const std::string& html) {
    if (!mReplace) NotKnown("way to write");
    mReplace(html);
}

void PagePoint::SetAttribute(const std::string&, const std::string&) {
    NotKnown("attributes");
}

void PagePoint::RemoveAttribute(const std::string&) {
    NotKnown("attributes");
}

std::string PagePoint::GetInnerHTML() const {
    NotKnown("contents");
}

void PagePoint::SetInnerHTML(const std::string&) {
    NotKnown("contents");
}

std::string PagePoint::GetOuterHTML() const {
    NotKnown("contents");
}

std::string PagePoint::GetInnerText() const {
    NotKnown("contents");
}

void PagePoint::InsertAdjacentHTML(InsertPosition, const std::string&) {
    NotKnown("neighbours");
}

void PagePoint::InsertAdjacentElement(InsertPosition, const Ref<HTMLElement>&) {
    NotKnown("neighbours");
}

void PagePoint::RemoveKeepingContents() {
    NotKnown("contents");
}

std::vector<Ref<HTMLElement>> PagePoint::Tags(const std::string&) const {
    NotKnown("contents");
}

} // namespace paperkite

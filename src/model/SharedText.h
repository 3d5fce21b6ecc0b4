#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace paperkite {

/// A text that never changes and is shared by its copies: what large files are kept in.
class SharedText {
public:
    SharedText() = default;
    explicit SharedText(std::string text)
        : mText(std::make_shared<const std::string>(std::move(text))) {}

    SharedText& operator=(std::string text) {
        mText = std::make_shared<const std::string>(std::move(text));
        return *this;
    }

    const std::string& Get() const {
        static const std::string none;
        return mText ? *mText : none;
    }
    operator const std::string&() const { return Get(); }
    operator std::string_view() const { return Get(); }

    bool empty() const { return Get().empty(); }
    std::size_t size() const { return Get().size(); }

    friend bool operator==(const SharedText& left, const SharedText& right) {
        return left.mText == right.mText || left.Get() == right.Get();
    }
    friend bool operator==(const SharedText& left, const std::string& right) {
        return left.Get() == right;
    }

private:
    std::shared_ptr<const std::string> mText;
};

} // namespace paperkite

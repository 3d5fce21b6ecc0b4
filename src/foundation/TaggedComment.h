#pragma once

#include "foundation/Object.h"

#include <memory>
#include <string>

namespace paperkite {

struct TaggedCommentDef;

/// The states that components write; other values are the model's own.
inline constexpr int kTaggedCommentNew = 2;
inline constexpr int kTaggedCommentTombstone = 3;

/// One comment of one tag on one code item, kept outside the source.
class TaggedComment : public Object {
public:
    /// A comment without an identity gets a fresh one.
    explicit TaggedComment(std::string id = {});
    std::string TypeName() const override { return "TaggedComment"; }
    Value Get(std::string_view member) const override;
    void Set(std::string_view member, const Value& value) override;

    /// The key of this comment in its collection; never changes.
    const std::string& GetId() const { return mId; }
    const std::string& GetTagIdentifier() const { return mTagIdentifier; }
    void SetTagIdentifier(std::string value) { mTagIdentifier = std::move(value); }

    /// The name of the element, for tags that need one.
    const std::string& GetQualifier() const { return mQualifier; }
    void SetQualifier(std::string value) { mQualifier = std::move(value); }

    /// HTML, or a plain value.
    const std::string& GetText() const { return mText; }
    void SetText(std::string value);

    /// Another form of the same text, as a page's parser writes it. GetText gives it; what was
    /// written before stays what is stored, until SetText says something else.
    void SetNormalisedText(std::string value);
    /// The text as it was written, which is what is stored.
    const std::string& GetWrittenText() const { return mWrittenText ? *mWrittenText : mText; }

    /// The text after links and model comments were worked in; empty until somebody does.
    const std::string& GetResolvedText() const { return mResolvedText; }
    void SetResolvedText(std::string value) { mResolvedText = std::move(value); }

    /// The XML tag that the comment maps to, where comments are held as XML comment tags.
    const std::string& GetXMLCommentType() const { return mXMLCommentType; }
    void SetXMLCommentType(std::string value) { mXMLCommentType = std::move(value); }
    int GetState() const { return mState; }
    void SetState(int value) { mState = value; }

    /// The element that owns this comment; nothing when it is gone.
    Ref<Object> GetItem() const { return mItem.Lock(); }
    void SetItem(const Ref<Object>& value) { mItem = value; }

    /// The definition of this comment's tag in the configuration, or nothing.
    Ref<TaggedCommentDef> GetTaggedCommentDef() const;

private:
    std::string mId;
    std::string mTagIdentifier;
    std::string mQualifier;
    std::string mText;
    /// Nothing while it is mText.
    std::unique_ptr<const std::string> mWrittenText;
    std::string mResolvedText;
    std::string mXMLCommentType;
    int mState = 0;
    WeakRef<Object> mItem;
};

} // namespace paperkite

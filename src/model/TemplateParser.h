#pragma once

#include "foundation/ParserTemplate.h"
#include "model/TemplateAttributes.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace paperkite {

/// The parser of page layouts; docs/page-layouts.md describes the tags. All it does takes time in
/// proportion to the length of the text, however tags are nested.
///
///     auto layout = MakeRef<TemplateParser>();
///     layout->SetPageLayoutTags();
///     layout->LoadText(html);
///     layout->SetDataProvider(provider);
///     layout->SetUseProvidedText(true);
///     std::string page = layout->Parse();
///
/// The one section holds literal text and the outermost tag elements. What is wrong with a tag is
/// in ParseErrors, and the tag stays in the text as it stands; what is between a broken start tag
/// and its end is read as if the two were not there.
class TemplateParser : public ParserTemplate {
public:
    TemplateParser();

    /// The tags of page layouts: `<!--KITEMETADATA start …-->` and `<!--KITEMETADATA end-->`.
    void SetPageLayoutTags();
    void SetStartTagPrefix(const std::string& value) override { mStartTagPrefix = value; }
    void SetStartTagSuffix(const std::string& value) override { mStartTagSuffix = value; }
    void SetEndTagPrefix(const std::string& value) override { mEndTagPrefix = value; }
    void SetEndTagSuffix(const std::string& value) override { mEndTagSuffix = value; }
    /// True: the attributes of nested tags are not looked at, and an attribute that is given twice
    /// is a mistake. False: nested tags are judged too, and of two attributes of one name the first
    /// counts.
    void SetMetaDocumentMode(bool value) override { mMetaDocumentMode = value; }
    void SetUseProvidedText(bool value) override { mUseProvidedText = value; }

    /// Takes effect with the tags and the mode that are set by then.
    void LoadText(const std::string& text) override;
    /// "Line 12, column 5: what is wrong. How to mend it.", at most a hundred of them; columns
    /// count characters.
    std::string GetParseErrors() const override { return mParseErrors; }
    Ref<ParserSections> GetSections() override { return mSections; }
    void SetDataProvider(const Ref<DataProvider>& value) override { mDataProvider = value; }
    std::string SourceOf(const ParserElement& element) const override;
    /// Without a data provider every element stays as it stands.
    std::string Parse() override;

    /// Whether a text holds the beginning of a tag.
    bool HoldsTags(std::string_view text) const {
        return text.find(mStartTagPrefix) != std::string_view::npos;
    }

private:
    struct Tag {
        bool IsStart = false;
        std::size_t From = 0;
        std::size_t To = 0;
        /// The other tag of the pair, or none.
        std::size_t Match = kNone;
    };
    struct Mistake {
        std::size_t Offset = 0;
        std::string What;
    };
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    void FindTags(std::string_view text);
    void MatchTags();
    void MakeElements(std::string_view text);
    void CheckNested(std::string_view text, std::size_t from, std::size_t to);
    bool ReadAttributes(std::string_view text, const Tag& tag, TemplateAttributes::List& list);
    void AddText(std::string_view text);
    void AddElement(std::string_view text, const Tag& start, const Tag& end,
                    const TemplateAttributes::List& attributes);
    void CheckEncoding(std::string_view text);
    void AddMistake(std::size_t offset, std::string what);
    void TellMistakes(std::string_view text);
    std::string StartTagOf(const ParserElement& element) const;

    std::string mStartTagPrefix;
    std::string mStartTagSuffix;
    std::string mEndTagPrefix;
    std::string mEndTagSuffix;
    bool mMetaDocumentMode = false;
    bool mUseProvidedText = false;
    Ref<ParserSections> mSections;
    Ref<DataProvider> mDataProvider;
    std::string mParseErrors;
    /// Of the text that is being loaded.
    std::vector<Tag> mTags;
    std::vector<Mistake> mMistakes;
};

} // namespace paperkite

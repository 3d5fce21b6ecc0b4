#pragma once

#include "foundation/Collection.h"
#include "foundation/Object.h"

#include <string>

namespace paperkite {

/// One kind of comment that an author may write, as the configuration defines it.
struct TaggedCommentDef : Object {
    std::string TypeName() const override { return "TaggedCommentDef"; }
    Value Get(std::string_view member) const override;

    /// The tag, with its leading "#" signs.
    std::string TagIdentifier;
    std::string DisplayName;
    /// The class of the designer that edits this tag; "{None}": it gets no tab.
    std::string DesignerProgID;
    /// "f" marks a flag; the same text is matched against a host's design flag.
    std::string TagType;
    /// Not empty marks a tag of an older version.
    std::string LegacyName;
    /// Not empty: the tag has a tab of its own and is not in the tag list.
    std::string TabName;
    /// What the tag is for, in a sentence.
    std::string Tip;
    /// Letters; "x": not offered for adding.
    std::string Options;
    /// Names of the namespace definitions that it applies to, separated by commas.
    std::string Namespaces;
    std::string GroupName;
    /// XML tag names separated by commas; the first is the tag's XML comment type.
    std::string XMLTags;
    std::string IconName;
    std::string AppendsToDescription;
    std::string DescriptionFormat;
    /// The comment is the item's general description.
    bool IsGeneral = false;
};

/// The definitions of the configuration, in its order, by TagIdentifier without regard to case.
class TaggedCommentDefs : public Object {
public:
    std::string TypeName() const override { return "TaggedCommentDefs"; }
    bool IsEnumerable() const override { return true; }
    void Enumerate(const std::function<bool(const Value&)>& visit) const override;

    /// A second definition of the same tag is an error.
    void Add(const Ref<TaggedCommentDef>& definition);
    std::size_t Count() const { return mDefinitions.Count(); }
    Ref<TaggedCommentDef> Item(std::size_t position) const { return mDefinitions.Item(position); }

    /// The definition of a tag, or nothing.
    Ref<TaggedCommentDef> Find(const std::string& tagIdentifier) const;
    std::string GetDefaultDesignerProgID() const { return mDefaultDesignerProgID; }
    void SetDefaultDesignerProgID(std::string value) { mDefaultDesignerProgID = std::move(value); }
    auto begin() const { return mDefinitions.begin(); }
    auto end() const { return mDefinitions.end(); }

private:
    Collection<Ref<TaggedCommentDef>> mDefinitions{KeyComparison::IgnoringCase};
    std::string mDefaultDesignerProgID;
};

} // namespace paperkite

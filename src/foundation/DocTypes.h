#pragma once

#include "foundation/Collection.h"
#include "foundation/DocType.h"
#include "foundation/Object.h"

#include <string>

namespace paperkite {

/// The document types of a project, by the names of their definitions.
class DocTypes : public Object {
public:
    std::string TypeName() const override { return "DocTypes"; }

    void Add(const Ref<DocType>& docType) { mDocTypes.Add(docType, docType->Definition->Name); }
    std::size_t Count() const { return mDocTypes.Count(); }
    /// An unknown name or position is an error.
    Ref<DocType> Item(const std::string& key) const { return mDocTypes.Item(key); }
    Ref<DocType> Item(std::size_t position) const { return mDocTypes.Item(position); }
    bool Contains(const std::string& key) const { return mDocTypes.Contains(key); }

    /// Those of which the project has root items, in the same order; a collection of its own.
    Collection<Ref<DocType>> GetEnabledDocTypes() const;

    /// The template that the help project files are made from; nothing: each type's own.
    const Ref<PageTemplate>& GetHelpProjectTemplate() const { return mHelpProjectTemplate; }
    void SetHelpProjectTemplate(const Ref<PageTemplate>& value) { mHelpProjectTemplate = value; }
    auto begin() const { return mDocTypes.begin(); }
    auto end() const { return mDocTypes.end(); }

private:
    Collection<Ref<DocType>> mDocTypes{KeyComparison::IgnoringCase};
    Ref<PageTemplate> mHelpProjectTemplate;
};

} // namespace paperkite

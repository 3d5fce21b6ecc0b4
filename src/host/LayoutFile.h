#pragma once

#include "model/PageTemplateDocument.h"
#include "pagelayout/LayoutEnvelope.h"

#include <optional>
#include <string>

namespace paperkite {

/// The file of a layout that is being edited. What stands in front of the root element and
/// behind it is kept apart and written back byte for byte.
class LayoutFile {
public:
    LayoutFile(Ref<PageTemplateDocument> owner, Ref<PageLayout> layout);

    const Ref<PageTemplateDocument>& GetTemplate() const { return mTemplate; }
    const Ref<PageLayout>& GetLayout() const { return mLayout; }
    std::string GetPath() const { return mTemplate->PathOf(*mLayout); }
    /// False where the file or its folder refuses to be written.
    bool IsWritable() const;

    /// Reads the file; the text that was read before stays where that fails.
    std::optional<FileProblem> Read();
    /// What is edited: the root element.
    const std::string& GetText() const { return mRoot; }
    /// The whole file with that text.
    std::string With(const std::string& text) const;

    enum class Others { Keep, Replace };
    /// Writes safely. A file that somebody else changed since it was read is a problem of the
    /// reason ChangedOnDisk, unless it is to be replaced; the file is as it was then.
    std::optional<FileProblem> Write(const std::string& text, Others others = Others::Keep);
    /// Writes it to another file.
    std::optional<FileProblem> WriteCopy(const std::string& text, const std::string& path) const;

private:
    void Take(const std::string& bytes);

    Ref<PageTemplateDocument> mTemplate;
    Ref<PageLayout> mLayout;
    std::string mBytes;
    std::string mPrologue;
    std::string mRoot;
    std::string mEpilogue;
};

} // namespace paperkite

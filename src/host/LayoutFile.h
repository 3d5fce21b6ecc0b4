#pragma once

#include "model/PageTemplateDocument.h"

#include <optional>
#include <string>

namespace paperkite {

/// The file of a layout that is being edited. A byte order mark and line ends of two characters
/// are no part of the text, and are in the file again when it is written.
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
    /// What is edited.
    const std::string& GetText() const { return mText; }
    /// What the file holds now, where that is not what was read or written last.
    std::optional<std::string> ChangedBytes() const;
    bool IsAsRead() const { return !ChangedBytes(); }

    enum class Others { Keep, Replace };
    /// Writes safely. A file that somebody else changed since it was read is a problem of the
    /// reason ChangedOnDisk, unless it is to be replaced; the file is as it was then.
    std::optional<FileProblem> Write(const std::string& text, Others others = Others::Keep);
    /// Writes it to another file.
    std::optional<FileProblem> WriteCopy(const std::string& text, const std::string& path) const;

private:
    void Take(const std::string& bytes);
    std::string BytesOf(const std::string& text) const;

    Ref<PageTemplateDocument> mTemplate;
    Ref<PageLayout> mLayout;
    std::string mBytes;
    std::string mText;
    bool mHasMark = false;
    bool mHasLongLineEnds = false;
};

} // namespace paperkite

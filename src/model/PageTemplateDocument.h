#pragma once

#include "foundation/PageTemplate.h"
#include "model/FileProblem.h"
#include "model/XmlReader.h"

#include <optional>
#include <string>
#include <vector>

namespace paperkite {

/// A page template with its folder: "template.xml", the layouts beside it, "sample.html", and what
/// pages need beside them.
///
///     auto opened = PageTemplateDocument::Open(folder);
///     if (opened.Problem) return Say(opened.Problem->Message());
///     opened.Template->Phrases.Item("Remarks")->Text = "Bemerkungen";
///     if (auto problem = opened.Template->Save()) Say(problem->Message());
class PageTemplateDocument : public PageTemplate {
public:
    struct OpenResult {
        /// Nothing when there is a problem.
        Ref<PageTemplateDocument> Template;
        std::optional<FileProblem> Problem;
        /// What is missing though the template can be used: its sample, files of layouts.
        std::vector<FileProblem> Warnings;
    };

    /// One that is in no folder yet; who makes it sets Folder and Name before Save.
    PageTemplateDocument() = default;
    /// Lets go of the levels, which may hold each other.
    ~PageTemplateDocument() override;

    static OpenResult Open(const std::string& folder);
    /// Opens every folder below one that holds page templates, in the order of their names, and
    /// adds those that can be used. A template whose name is taken is a problem. Gives all problems
    /// and warnings; a folder that is not there has no templates.
    static std::vector<FileProblem> OpenAll(const std::string& folder,
                                            Collection<Ref<PageTemplate>>& templates);

    /// Writes "template.xml" if what it says has changed. A file that another program changed
    /// meanwhile is not replaced.
    std::optional<FileProblem> Save();

    /// The whole path of a layout's file, and that of the sample page.
    std::string PathOf(const PageLayout& layout) const { return Folder + "/" + layout.FileName; }
    std::string SamplePath() const { return Folder + "/sample.html"; }
    /// Nothing when all went well; otherwise the text or the file is as it was.
    std::optional<FileProblem> ReadLayout(const PageLayout& layout, std::string& text) const;
    std::optional<FileProblem> WriteLayout(const PageLayout& layout, const std::string& text) const;

private:
    std::vector<FileProblem> FindMissing() const;

    XmlFile mKept;
    std::string mBytes;
    std::string mCanonicalBytes;
    bool mExistsOnDisk = false;
};

} // namespace paperkite

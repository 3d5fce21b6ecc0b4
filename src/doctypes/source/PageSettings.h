#pragma once

#include "foundation/CommentType.h"
#include "foundation/KiteProject.h"
#include "foundation/PageTemplate.h"

namespace paperkite {

/// How pages are made.
struct PageSettings {
    /// Where links to the pages of other items lead.
    enum class Links {
        Pages, ///< to files named after the layouts' FileNameTemplate
        None,  ///< nowhere: names stand as text, since only one page is made
    };

    /// Comment places are marked so that one can write into them, and shown when they are empty.
    bool ForEdit = false;
    CommentType EditCommentType = CommentType::TaggedComments;
    Links LinksTo = Links::Pages;
    /// Style sheets stand in the page itself, which then needs no file beside it.
    bool InlineStyles = true;
    /// Whose phrases, scraps and variables count; may be nothing.
    Ref<PageTemplate> Template;
    /// Whose values of variables, scope and exclusions count; may be gone.
    WeakRef<KiteProject> Project;
    /// Where the breadcrumb begins; nothing: at the root of the code.
    Ref<Object> RootItem;
};

} // namespace paperkite

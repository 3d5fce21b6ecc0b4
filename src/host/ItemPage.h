#pragma once

#include "foundation/PageTemplate.h"
#include "host/ProjectSession.h"

#include <string>
#include <vector>

namespace paperkite {

/// The page of an item as a layout makes it.
struct ItemPage {
    std::string Text;
    std::vector<std::string> Mistakes; ///< in the tags of the layout
    std::vector<std::string> Missing;  ///< what the page cannot show
};

/// How a page is made.
struct ItemPageOptions {
    /// With places to write on.
    bool IsForEdit = false;
    /// Whether the files of the template stand beside the page; otherwise their styles go into it.
    bool HasFiles = false;
};

/// Makes the page of an item out of the text of a layout.
ItemPage MakeItemPage(ProjectSession& session, const Ref<SourceItem>& item,
                      const Ref<PageTemplate>& from, const std::string& layout,
                      const ItemPageOptions& options);

/// The item whose page an item is on: for a parameter that of its function.
Ref<SourceItem> ItemWithPage(const Ref<Object>& item);
/// The moniker and kind of an item ("kite.source:Method"), as layouts name what they serve.
std::string LevelOf(const SourceItem& item);
bool Serves(const PageLayout& layout, const std::string& level);

} // namespace paperkite

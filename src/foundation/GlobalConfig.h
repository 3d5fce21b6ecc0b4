#pragma once

#include "foundation/Object.h"
#include "foundation/PageTemplate.h"
#include "foundation/TaggedCommentDef.h"

#include <string>

namespace paperkite {

/// What every tree of the process shows; the controls read and write it directly.
struct ProjectViewOptions {
    bool Grouped = true;
    bool ShowPrivate = false;
    bool ShowFriend = false;
    bool ShowProtected = true;
    bool AutoExpandChildren = false;
};

struct UserOptions {
    int ToolbarStyle = 0;
    int ListStyle = 0;
};

/// The configuration that all components of the process share. The host fills it at its start.
struct GlobalConfigData {
    paperkite::ProjectViewOptions ProjectViewOptions;
    paperkite::UserOptions UserOptions;
    /// The tab that an author works on is kept from item to item, however it was chosen.
    bool KeepLastCommentTab = false;
    std::string ApplicationDataFolder;
    Collection<Ref<PageTemplate>> Templates;
    Ref<paperkite::TaggedCommentDefs> TaggedCommentDefs = MakeRef<paperkite::TaggedCommentDefs>();
};

/// The one configuration of the process, made on first use.
GlobalConfigData& GlobalConfig();

} // namespace paperkite

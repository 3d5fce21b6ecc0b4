#pragma once

#include "foundation/Event.h"
#include "foundation/NamespaceProvider.h"
#include "foundation/Object.h"
#include "foundation/ObjectCollection.h"

#include <string>

namespace paperkite {

class DocTypes;

/// A documentation project, as the host supplies it. Its many plain settings ("OutputFolder",
/// "Language" …) are reached by name through Get and Set.
class KiteProject : public Object {
public:
    std::string TypeName() const override { return "KiteProject"; }
    virtual Ref<paperkite::DocTypes> GetDocTypes() = 0;
    /// The provider that serves a namespace moniker, or nothing.
    virtual Ref<paperkite::NamespaceProvider> NamespaceProvider(const std::string& moniker) = 0;

    /// The qualified names that are unticked, each under itself as key.
    virtual Ref<TextCollection> GetNamespaceExclusions() = 0;

    /// Scope of item enumeration.
    virtual bool GetIncludePrivate() const = 0;
    virtual void SetIncludePrivate(bool value) = 0;
    virtual bool GetIncludeFriend() const = 0;
    virtual void SetIncludeFriend(bool value) = 0;
    virtual bool GetIncludeProtected() const = 0;
    virtual void SetIncludeProtected(bool value) = 0;
    virtual bool GetIncludeProtectedFriend() const = 0;
    virtual void SetIncludeProtectedFriend(bool value) = 0;

    /// Marks the project as changed.
    virtual void SetDirty(bool value) = 0;

    struct ProjectEvents {
        Event<> NamespaceExclusionsChanged;
    } Events;
};

} // namespace paperkite

#pragma once

#include "foundation/Object.h"

#include <string>
#include <utility>
#include <vector>

namespace paperkite {

/// Is told that the place the author works at has changed, and can show a help topic.
class DynamicHelpHost : public Object {
public:
    std::string TypeName() const override { return "DynamicHelpHost"; }
    virtual void ContextChanged() = 0;
    virtual void ShowTopic(const std::string& topic) = 0;
};

/// What a component answers when it is asked where the author works: keywords, and attributes with
/// values, both in the order in which they were added.
struct DynamicHelpQuery {
    std::vector<std::string> KeywordCollection;
    std::vector<std::pair<std::string, std::string>> Attributes;
};

/// Implemented by components that serve dynamic help.
class IDynamicHelpContext {
public:
    virtual ~IDynamicHelpContext() = default;
    virtual void IDynamicHelpContext_Initialise(const Ref<DynamicHelpHost>& Notify) = 0;
    virtual void IDynamicHelpContext_QueryContext(DynamicHelpQuery& query) = 0;
};

} // namespace paperkite

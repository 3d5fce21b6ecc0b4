#pragma once

#include <functional>
#include <string>

namespace paperkite {

/// What is known of an item to which comments may be moved.
struct ItemPlace {
    std::string QualifiedName;
    /// The word for what it is ("Class", "Method").
    std::string Kind;
    /// The moniker and kind, as tags name what they apply to ("kite.source:Method").
    std::string Namespace;
    /// "(int a, const Slice& key)"; empty for what has none.
    std::string Signature;
};

/// Lists all items of a code base, without making them.
class ItemDirectory {
public:
    virtual ~ItemDirectory() = default;
    virtual void ForEachItem(const std::function<void(const ItemPlace&)>& visit) const = 0;
    /// Lists what is in an item and has comments of its own, but is not listed as an item: its
    /// parameters. Most have none.
    virtual void ForEachPart(const std::string&,
                             const std::function<void(const ItemPlace&)>&) const {}
};

} // namespace paperkite

#pragma once

#include "doctypes/source/SourceIndex.h"
#include "foundation/NamespaceDefs.h"
#include "widgets/Picture.h"

#include <string_view>
#include <vector>

namespace paperkite {

/// The levels of source code, as a tree shows them: one definition for each kind of item that the
/// scanned code has, below the one of the project. Levels that may hold each other do so, which is
/// why the owner calls Release on the result when it is done with it.
///
/// Definitions are named "kite.source:" and the kind; the item type is the kind ("Class").
Ref<NamespaceDefs> MakeSourceNamespaceDefs(const std::vector<const SourceIndex*>& indexes);

/// What many items of a kind are called: "Classes".
std::string_view PluralText(SourceKind kind);

/// The name in the icon theme of what a tree shows before items of a kind.
std::string_view IconText(SourceKind kind);

/// Whether items of a kind are published as topics of their own and can be ticked.
bool IsTopic(SourceKind kind);

/// The pictures that the definitions name, and those of groups.
Ref<ImageList> MakeSourceImages();

} // namespace paperkite

#pragma once

#include "faults/WalkScene.h"

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

namespace paperkite::test {

/// One use of a component by its host or by an author.
struct WalkedOperation {
    std::string Owner; ///< the class that has it
    std::string Name;
    std::function<void(WalkScene&)> Run;
    /// What comes before it, on the tree with A open.
    std::function<void(WalkScene&)> Prepare = [](WalkScene&) {};
    /// What must hold behind it, whatever failed.
    std::function<void(WalkScene&)> Check = [](WalkScene&) {};
    /// The component is of no more use behind it.
    bool IsLast = false;

    std::string Title() const { return Owner + "." + Name; }
};

/// The public operations of the components, properties among them; some stand there more than once.
std::vector<WalkedOperation> ProjectViewOperations();
std::vector<WalkedOperation> CommentEditorOperations();
std::vector<WalkedOperation> ProjectEditorOperations();
std::vector<WalkedOperation> PageOperations();
std::vector<WalkedOperation> ElementOperations();
/// Of page layouts that are edited.
std::vector<WalkedOperation> LayoutOperations();
/// Of the panels that compose links.
std::vector<WalkedOperation> LinkOperations();
/// The author's gestures on their controls.
std::vector<WalkedOperation> Gestures();

std::vector<WalkedOperation> AllOperations();

/// For the names that a test's report gives.
void PrintTo(const WalkedOperation& operation, std::ostream* stream);

} // namespace paperkite::test

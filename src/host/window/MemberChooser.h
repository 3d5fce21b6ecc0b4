#pragma once

#include "host/ProjectSession.h"
#include "host/window/ItemFinder.h"
#include "itemtree/ProjectView.h"
#include "widgets/Container.h"
#include "widgets/Label.h"

#include <string>
#include <vector>

namespace paperkite {

/// The items of a project to choose one of: a tree, and a field above it that finds items by their
/// names. What is chosen is told below it.
class MemberChooser : public Container {
public:
    /// The session must outlive the chooser. Without `anyItems` nothing is offered.
    MemberChooser(std::string name, ProjectSession& session, bool anyItems = true);
    ~MemberChooser() override;

    /// The qualified name of the chosen item; empty for none.
    const std::string& GetChosen() const { return mChosen; }
    /// Its own name, as the author knows it; empty for none.
    std::string GetChosenName() const;
    /// Chooses an item. One that the tree does not show with the present options is chosen all the
    /// same; one that is not there leaves the choice, and false is given.
    bool Choose(const std::string& qualifiedName);
    /// The words before the name in what is told of the choice, such as "Link to".
    void SetTipPrefix(const std::string& value);

    struct {
        Event<> Changed; ///< another item is chosen, or none
    } Events;

    Ref<ItemFinder> finder;
    ProjectView Tree;
    Ref<Label> lblChosen;

private:
    void LoadTree();
    void NodeChosen(const Ref<TreeNode>& node);
    void Take(const std::string& qualifiedName, bool isShown);
    void Tell(bool isShown);

    ProjectSession& mSession;
    bool mAnyItems;
    std::string mTipPrefix;
    std::string mChosen;
    bool mChoosing = false;
    std::vector<Connection> mConnections;
};

} // namespace paperkite

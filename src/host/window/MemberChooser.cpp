#include "host/window/MemberChooser.h"

#include "foundation/ScopeExit.h"
#include "host/ItemTitle.h"

namespace paperkite {

namespace {

constexpr const char* kNothingChosen =
    "Type a part of a name above, or choose an item in the tree.";
constexpr const char* kNoItems =
    "This project has no items of the wanted kind. Cancel, and type the name of the topic.";
/// Longer ones are cut in the middle.
constexpr std::size_t kLongestShown = 300;

} // namespace

MemberChooser::MemberChooser(std::string name, ProjectSession& session, bool anyItems)
    : Container(std::move(name)), finder(Controls.Make<ItemFinder>("finder")), mSession(session),
      mAnyItems(anyItems) {
    finder->SetAccessibleName("Find an item to link to");
    finder->SetSearch([this](const std::string& text, std::size_t most) {
        std::vector<ItemFinder::Match> matches;
        for (const std::string& found : mSession.FindByName(text, most)) {
            const auto item = mSession.GetProvider()->GetItem(found);
            matches.push_back({ItemCaption(*item), ItemScope(*item), found});
        }
        return matches;
    });
    if (session.IsPart()) finder->SetNote("Not all source code was read yet; there may be more");
    mConnections.push_back(
        finder->Events.Chosen.Connect([this](const std::string& found) { Choose(found); }));
    Controls.Add(Tree.tvwProject);
    lblChosen = Controls.Make<Label>("lblChosen");
    lblChosen->SetWordWrap(true);
    SetLayout(FormLayout::Column({FormLayout::Item(finder), FormLayout::Item(Tree.tvwProject, 1),
                                  FormLayout::Item(lblChosen)}));
    finder->SetEnabled(mAnyItems);
    if (mAnyItems) LoadTree();
    Tell(true);
}

MemberChooser::~MemberChooser() {
    mConnections.clear();
    Tree.Terminate();
}

void MemberChooser::LoadTree() {
    Tree.SetKiteProject(mSession.GetProject());
    Tree.SetImageList(mSession.GetImages());
    Tree.LoadFromNamespaceDefs(mSession.GetDefinitions(), kSourceMoniker, true);
    mConnections.push_back(
        Tree.Events.NodeClick.Connect([this](const auto& node) { NodeChosen(node); }));
}

std::string MemberChooser::GetChosenName() const {
    const auto item = mChosen.empty() ? Ref<Object>() : mSession.GetProvider()->GetItem(mChosen);
    return item ? item->Get("Name").ToText() : std::string();
}

bool MemberChooser::Choose(const std::string& qualifiedName) {
    if (!mAnyItems || !mSession.GetProvider()->Exists(qualifiedName)) return false;
    {
        // On its way the tree may select what stands above the item.
        mChoosing = true;
        const ScopeExit chosen([this] { mChoosing = false; });
        Tree.SelectItem(qualifiedName);
    }
    const auto node = Tree.GetSelectedItem();
    const bool isShown = node && node->GetKey() == qualifiedName;
    if (isShown) node->EnsureVisible();
    Take(qualifiedName, isShown);
    return true;
}

void MemberChooser::SetTipPrefix(const std::string& value) {
    mTipPrefix = value;
    Tell(true);
}

void MemberChooser::NodeChosen(const Ref<TreeNode>& node) {
    if (mChoosing) return;
    const bool isItem = node && !IsGroupNode(*node) && !IsPlaceholderKey(node->GetKey());
    Take(isItem ? node->GetKey() : std::string(), true);
}

void MemberChooser::Take(const std::string& qualifiedName, bool isShown) {
    mChosen = qualifiedName;
    Tell(isShown);
    Events.Changed.Raise();
}

void MemberChooser::Tell(bool isShown) {
    if (mChosen.empty()) return lblChosen->SetCaption(mAnyItems ? kNothingChosen : kNoItems);
    const auto item = mSession.GetProvider()->GetItem(mChosen);
    std::string text = (mTipPrefix.empty() ? "Chosen:" : mTipPrefix) + " " +
                       ShortenedInMiddle(item ? ItemPath(*item) : mChosen, kLongestShown);
    if (!isShown) text += " (the tree does not show it with the options of the View menu)";
    lblChosen->SetCaption(text);
    Tree.tvwProject->SetToolTipText(text);
}

} // namespace paperkite

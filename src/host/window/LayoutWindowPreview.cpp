#include "host/ItemPage.h"
#include "host/window/LayoutWindow.h"

#include "foundation/Services.h"
#include "foundation/Text.h"
#include "widgets/Label.h"

#include <QAction>

// The finished page of an item, as the layout that is being edited makes it.

namespace paperkite {

namespace {

constexpr int kPreviewView = 2;

} // namespace

void LayoutWindow::MakePreview() {
    mPreview = MakeRef<HtmlEdit>("preview");
    mPreview->SetAccessibleName("Preview");
    mPreview->SetView(HtmlView::Preview);
    mPreviewNote = MakeRef<Label>("lblPreview");
    mPreviewNote->SetWordWrap(true);
    mPreviewPane = MakeRef<Container>("conPreview");
    mPreviewPane->Controls.Add(mPreviewNote);
    mPreviewPane->Controls.Add(mPreview);
    mPreviewPane->SetLayout(FormLayout::Column(
        {FormLayout::Padded({FormLayout::Item(mPreviewNote)}, 0), FormLayout::Item(mPreview, 1)}));
    mEdit->SetPreview(mPreviewPane);
}

void LayoutWindow::SetWorkspace(Workspace* workspace) {
    if (mWorkspace == workspace) return;
    mWorkspace = workspace;
    mPreviewItem.clear();
    if (mFile) mPreviewItem = FindItem();
    ShowPreview();
    UpdateActions();
}

bool LayoutWindow::IsServed(const std::string& qualifiedName) const {
    if (!mWorkspace || !mFile || qualifiedName.empty()) return false;
    const auto item = ItemWithPage(mWorkspace->GetSession().GetProvider()->GetItem(qualifiedName));
    return item && Serves(*mFile->GetLayout(), LevelOf(*item));
}

std::string LayoutWindow::FindItem() const {
    if (!mWorkspace) return {};
    const auto& open = mWorkspace->GetEditor().cEditor.GetCurrentCodeElement();
    if (open) {
        const std::string name = open->Get("QualifiedName").ToText();
        if (IsServed(name)) return name;
    }
    std::string found;
    mWorkspace->GetSession().GetProvider()->ForEachItem([&](const ItemPlace& place) {
        if (found.empty() && Serves(*mFile->GetLayout(), place.Namespace))
            found = place.QualifiedName;
    });
    return found;
}

void LayoutWindow::SetPreviewItem(const std::string& qualifiedName) {
    mPreviewItem = qualifiedName;
    ShowPreview();
    UpdateActions();
}

void LayoutWindow::ChoosePreviewItem() {
    const std::string topic =
        Required(CurrentServices().ControlHelper).BuildTopic(mPreviewItem, false, "Preview");
    if (topic.empty()) return;
    SetPreviewItem(topic);
    mEdit->fstView->UserClick(kPreviewView + 1);
}

void LayoutWindow::ShowPreview() {
    if (mEdit->GetView() != kPreviewView || !mFile) return;
    const auto item =
        mWorkspace && !mPreviewItem.empty()
            ? ItemWithPage(mWorkspace->GetSession().GetProvider()->GetItem(mPreviewItem))
            : Ref<SourceItem>();
    if (!item) {
        mPreview->SetDocumentHTML("<html><body></body></html>");
        mPreviewNote->SetCaption(
            mWorkspace ? "The project has no item that this layout is for. Choose one with Preview "
                         "on Item, or read other source code."
                       : "Open a project to see the page of one of its items here.");
        return;
    }
    const std::string text = mEdit->GetDocumentHTML();
    const ItemPage page =
        MakeItemPage(mWorkspace->GetSession(), item, mFile->GetTemplate(), text, {});
    std::string note = "The page of " + ReplaceAll(mPreviewItem, "~", " ~ ");
    if (!IsServed(mPreviewItem)) note += ", which this layout is not meant for";
    for (const std::string& missing : page.Missing)
        note += "\n" + missing;
    mPreviewNote->SetCaption(note);
    mPreview->SetBaseURL(mEdit->GetBaseURL());
    mPreview->SetDocumentHTML(page.Text);
}

} // namespace paperkite

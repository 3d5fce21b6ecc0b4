#include "host/window/LayoutWindow.h"

#include "foundation/GlobalConfig.h"
#include "foundation/ScopeExit.h"
#include "foundation/Text.h"
#include "host/ItemPage.h"
#include "pagelayout/ParsedLayout.h"
#include "platform/qt/Theme.h"
#include "widgets/Label.h"

#include <QAction>
#include <QCloseEvent>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QSplitter>
#include <QStatusBar>
#include <QTimer>
#include <QUrl>
#include <QVBoxLayout>

namespace paperkite {

namespace {

constexpr int kFirstWidth = 1200;
constexpr int kFirstHeight = 800;
constexpr int kListWidth = 260;
/// Milliseconds without a key before the tags of the source are looked at.
constexpr int kTagCheckDelay = 300;

std::string AddressOf(const std::string& folder) {
    return QUrl::fromLocalFile(QString::fromStdString(folder + "/"))
        .toString(QUrl::FullyEncoded)
        .toStdString();
}

/// A path as people write it, with "~" for their own folder.
QString WithHome(const QString& path) {
    const QString home = QDir::homePath() + '/';
    return home.size() > 1 && path.startsWith(home) ? "~/" + path.mid(home.size()) : path;
}

} // namespace

LayoutWindow::LayoutWindow(ViewFactory& factory, QWidget* parent)
    : QMainWindow(parent, Qt::Window), mFactory(factory),
      mEdit(MakeRef<MetaDocumentEdit>("layoutEdit")), mNotice(new QLabel(this)),
      mPath(new QLabel(this)), mCount(new QLabel(this)), mModified(new QLabel(this)),
      mTagCheck(new QTimer(this)) {
    setObjectName("LayoutWindow");
    resize(kFirstWidth, kFirstHeight);
    mEdit->Initialize();
    // The window has a bar of its own with the same commands.
    mEdit->dksUI->GetToolbar("Elements")->SetVisible(false);
    MakePreview();
    MakeList();

    mNotice->setWordWrap(true);
    mNotice->setMargin(8);
    mNotice->setFrameShape(QFrame::StyledPanel);
    mNotice->hide();
    auto* right = new QWidget(this);
    auto* column = new QVBoxLayout(right);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(mNotice);
    column->addWidget(mFactory.MakeView(mEdit, right), 1);
    auto* split = new QSplitter(this);
    split->addWidget(mFactory.MakeView(mList, split));
    split->addWidget(right);
    split->setStretchFactor(1, 1);
    const int list = Theme::Scaled(kListWidth);
    split->setSizes({list, kFirstWidth - list});
    split->setChildrenCollapsible(false);
    setCentralWidget(split);

    for (QLabel* label : {mPath, mCount, mModified})
        label->setForegroundRole(QPalette::PlaceholderText);
    mPath->setContentsMargins(8, 0, 0, 0);
    mPath->setTextInteractionFlags(Qt::TextSelectableByMouse);
    mPath->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    statusBar()->addWidget(mPath, 1);
    statusBar()->addPermanentWidget(mCount);
    statusBar()->addPermanentWidget(mModified);

    mTagCheck->setSingleShot(true);
    mTagCheck->setInterval(kTagCheckDelay);
    connect(mTagCheck, &QTimer::timeout, this, [this] { CheckTags(); });
    MakeActions();
    const auto keep = [this](Connection tie) { mConnections.push_back(std::move(tie)); };
    keep(mEdit->Events.Change.Connect([this] {
        ShowTitle();
        UpdateActions();
        if (mEdit->GetView() == 1) mTagCheck->start();
    }));
    keep(mEdit->dedDocument->Events.ToolsRefreshed.Connect([this] { UpdateActions(); }));
    keep(mEdit->fstView->Events.Change.Connect([this](const auto&, const auto&) {
        CheckTags();
        ShowPreview();
        UpdateActions();
        mEdit->dedDocument->SetEditFocus();
    }));
    ShowTitle();
    UpdateActions();
}

LayoutWindow::~LayoutWindow() {
    mConnections.clear();
    mEdit->Terminate();
    mPreview->Terminate();
}

// The list

void LayoutWindow::MakeList() {
    mList = MakeRef<TreeControl>("tvwLayouts");
    mList->SetAccessibleName("Templates and layouts");
    mList->SetHideSelection(false);
    mList->SetEmptyText("There is no page template. Put one into the program's folder "
                        "\"templates\", and open this window again.");
    mConnections.push_back(
        mList->Events.NodeClick.Connect([this](const auto& node) { ChooseNode(node); }));
}

void LayoutWindow::FillList() {
    const bool isChoosing = std::exchange(mChoosing, true);
    const ScopeExit done([&] { mChoosing = isChoosing; });
    mPlaces.clear();
    mList->SetRedraw(false);
    mList->Nodes.Clear();
    for (const auto& known : GlobalConfig().Templates) {
        const auto document = known.As<PageTemplateDocument>();
        if (!document) continue;
        const auto top = mList->Nodes.Add(nullptr, TreeRelationship::Last, "T:" + known->Name,
                                          known->Name, "folder");
        for (const auto& layout : *document->PageLayouts) {
            const std::string key = "L:" + known->Name + "/" + layout->Name;
            mList->Nodes.Add(top, TreeRelationship::Child, key, layout->Name,
                             "document-properties");
            mPlaces[key] = {document, layout};
        }
        top->SetExpanded(true);
    }
    mList->SetRedraw(true);
}

void LayoutWindow::ChooseNode(const Ref<TreeNode>& node) {
    if (mChoosing || !node) return;
    const auto found = mPlaces.find(node->GetKey());
    if (found == mPlaces.end()) return;
    const bool isOpen = mFile && mFile->GetLayout() == found->second.Layout &&
                        mFile->GetTemplate() == found->second.Template;
    if (isOpen || Open(found->second) || !mFile) return;
    // The layout that is open stays, and the list says so.
    mChoosing = true;
    const ScopeExit done([this] { mChoosing = false; });
    const std::string key = "L:" + mFile->GetTemplate()->Name + "/" + mFile->GetLayout()->Name;
    mList->SetSelectedItem(mList->Nodes.Item(key));
}

void LayoutWindow::ShowLayout(const Ref<PageTemplate>& from, const std::string& layout) {
    FillList();
    std::string wanted;
    if (!from) return;
    const auto open =
        mWorkspace ? mWorkspace->GetEditor().cEditor.GetCurrentCodeElement() : nullptr;
    const auto item = open ? ItemWithPage(open) : Ref<SourceItem>();
    for (const auto& known : *from->PageLayouts) {
        const bool isMeant = layout.empty() ? item && Serves(*known, LevelOf(*item))
                                            : EqualIgnoringCase(known->Name, layout);
        if (!isMeant) continue;
        wanted = known->Name;
        break;
    }
    if (wanted.empty() && from->PageLayouts->Count() > 0)
        wanted = from->PageLayouts->Item(std::size_t{1})->Name;
    if (!wanted.empty())
        mList->SetSelectedItem(mList->Nodes.Item("L:" + from->Name + "/" + wanted));
}

bool LayoutWindow::Open(const Place& place) {
    if (!MayGiveUp()) return false;
    auto file = std::make_unique<LayoutFile>(place.Template, place.Layout);
    if (const auto problem = file->Read()) {
        TellProblem(*problem);
        return false;
    }
    if (!Show(*file)) return false;
    mFile = std::move(file);
    mChangesSeen.reset();
    mTagMistakes = ParsedLayout(mFile->GetText())->GetParseErrors();
    if (!IsServed(mPreviewItem)) mPreviewItem = FindItem();
    CheckTags();
    ShowPreview();
    ShowTitle();
    UpdateActions();
    return true;
}

// What cannot be shown leaves the layout that is open with its own template.
bool LayoutWindow::Show(const LayoutFile& file) {
    const auto put = [this](const LayoutFile& shown) {
        mEdit->SetTemplate(shown.GetTemplate());
        mEdit->SetLayout(shown.GetLayout());
        mEdit->SetBaseURL(AddressOf(shown.GetTemplate()->Folder));
        std::vector<std::string> sheets;
        for (const std::string& name : shown.GetTemplate()->Files)
            if (name.ends_with(".css")) sheets.push_back(name);
        mEdit->dedDocument->SetStyleSheets(sheets);
    };
    put(file);
    const bool isShown = mEdit->SetDocumentHTML(file.GetText());
    if (isShown)
        mEdit->SetDirty(false);
    else if (mFile)
        put(*mFile);
    return isShown;
}

void LayoutWindow::ShowNotice(QString text) {
    if (text.isEmpty() && mFile && !mFile->IsWritable())
        text = tr("This layout cannot be written here. Save a copy of it elsewhere, or make %1 "
                  "writable.")
                   .arg(QString::fromStdString(mFile->GetPath()));
    mNotice->setText(text);
    mNotice->setAccessibleName(text);
    mNotice->setVisible(!text.isEmpty());
}

void LayoutWindow::ShowTitle() {
    const bool isDirty = mFile && mEdit->GetDirty();
    const QString name = mFile ? QString::fromStdString(mFile->GetLayout()->Name + " (" +
                                                        mFile->GetTemplate()->Name + ")")
                               : tr("Page Layouts");
    setWindowTitle(name + "[*] — Paperkite");
    setWindowModified(isDirty);
    mModified->setText(isDirty ? tr("Modified") : QString());
    const QString path = mFile ? QString::fromStdString(mFile->GetPath()) : QString();
    mPath->setText(WithHome(path));
    mPath->setToolTip(path);
    const auto& provider = mEdit->GetSpanProvider();
    const int count = provider ? static_cast<int>(provider->Elements.Count()) : 0;
    mCount->setText(
        !mFile || isDirty
            ? QString()
            : tr("%n element(s)", nullptr, count).replace("(s)", count == 1 ? "" : "s"));
}

// What is wrong with a tag is pointed at where it stands.
void LayoutWindow::CheckTags() {
    // In the other views nobody can mend a tag, so that it stays what it was.
    if (mEdit->GetView() == 1)
        mTagMistakes = ParsedLayout(mEdit->dedDocument->GetDocumentHTML())->GetParseErrors();
    const QStringList mistakes =
        QString::fromStdString(mTagMistakes).split('\n', Qt::SkipEmptyParts);
    const QString first = mistakes.value(0);
    static const QRegularExpression place("^Line (\\d+), column (\\d+):");
    const auto match = place.match(first);
    mEdit->dedDocument->SetSourceMark(match.captured(1).toInt(), match.captured(2).toInt());
    ShowNotice(mistakes.size() < 2
                   ? first
                   : tr("%1 (The first of %L2 mistakes.)").arg(first).arg(mistakes.size()));
}

void LayoutWindow::ShowHelp() {
    Ref<HTMLElement> span;
    if (!mEdit->IsInsideMetaSpan(mEdit->dedDocument->GetCurrentElement(), &span)) return;
    const auto index = mEdit->GetSpanIndex(span->GetId());
    if (index < 1) return;
    const auto element = mEdit->GetSpanProvider()->Elements.Item(static_cast<std::size_t>(index));
    const auto* type = element->Attributes.Find("type");
    const QString name = type ? QString::fromStdString((*type)->Value) : QString();
    QString text = tr("The template says nothing about elements of the type \"%1\".").arg(name);
    for (const auto& served : mFile->GetTemplate()->Namespaces)
        if (const auto* known = type ? served->ElementDefs.Find((*type)->Value) : nullptr)
            text = QString::fromStdString((*known)->Description);
    QMessageBox::information(this, name, text);
}

// Saving

bool LayoutWindow::TellProblem(const FileProblem& problem) {
    QMessageBox::warning(this, tr("Page Layouts"), QString::fromStdString(problem.Message()));
    return false;
}

bool LayoutWindow::ReadText(std::string& text) {
    text = mEdit->GetDocumentHTML();
    if (!text.empty() || mEdit->dedDocument->GetDocumentHTML().empty()) return true;
    QMessageBox::warning(this, tr("Page Layouts"),
                         tr("The layout could not be brought into the form of a file, so that "
                            "nothing was written. All that you wrote is still in the window: undo "
                            "the last change, or mend it in the HTML view."));
    return false;
}

bool LayoutWindow::Store(LayoutFile::Others others) {
    std::string text;
    if (!ReadText(text)) return false;
    const auto problem = mFile->Write(text, others);
    if (!problem) {
        mEdit->SetDirty(false);
        ShowTitle();
        if (Saved) Saved();
        return true;
    }
    if (problem->Reason != FileProblem::ReasonCode::ChangedOnDisk) return TellProblem(*problem);
    QMessageBox box(QMessageBox::Warning, tr("Page Layouts"),
                    QString::fromStdString(problem->Message()), QMessageBox::Cancel, this);
    auto* replace = box.addButton(tr("&Replace"), QMessageBox::DestructiveRole);
    auto* copy = box.addButton(tr("Save a &Copy …"), QMessageBox::ActionRole);
    box.setDefaultButton(QMessageBox::Cancel);
    box.exec();
    if (box.clickedButton() == copy) SaveCopy();
    return box.clickedButton() == replace && Store(LayoutFile::Others::Replace);
}

bool LayoutWindow::Save() {
    if (!mFile || !mEdit->GetDirty()) return true;
    return Store(LayoutFile::Others::Keep);
}

void LayoutWindow::SaveCopy() {
    std::string text;
    if (!mFile || !ReadText(text)) return;
    const QString path = QFileDialog::getSaveFileName(
        this, tr("Save a Copy"), QString::fromStdString(mFile->GetLayout()->FileName),
        tr("Page layouts (*.html);;All files (*)"));
    if (path.isEmpty()) return;
    if (const auto problem = mFile->WriteCopy(text, path.toStdString())) TellProblem(*problem);
}

bool LayoutWindow::MayGiveUp() {
    if (!mFile || !mEdit->GetDirty()) return true;
    QMessageBox box(
        QMessageBox::Warning, tr("Page Layouts"),
        tr("The layout \"%1\" was changed.").arg(QString::fromStdString(mFile->GetLayout()->Name)),
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, this);
    box.setInformativeText(tr("What you wrote is lost unless you save it."));
    box.setDefaultButton(QMessageBox::Save);
    const int answer = box.exec();
    return answer == QMessageBox::Save ? Save() : answer == QMessageBox::Discard;
}

bool LayoutWindow::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate && mFile && !mEdit->GetDirty()) ReadChanges();
    return QMainWindow::event(event);
}

// Once for each change: the message that tells what is wrong with it gives the focus back here.
void LayoutWindow::ReadChanges() {
    const auto changed = mFile->ChangedBytes();
    if (!changed || changed == mChangesSeen) return;
    mChangesSeen = changed;
    Open({mFile->GetTemplate(), mFile->GetLayout()});
}

void LayoutWindow::closeEvent(QCloseEvent* event) {
    if (!MayGiveUp()) return event->ignore();
    GiveUp();
    // The next look at it begins with what is in the file.
    mFile.reset();
    mList->SetSelectedItem(nullptr);
    QMainWindow::closeEvent(event);
}

} // namespace paperkite

#include "host/window/MainWindow.h"

#include "host/CommentHistory.h"
#include "host/window/BackgroundReading.h"
#include "host/window/CoverageStatus.h"
#include "host/window/LayoutWindow.h"
#include "host/window/LinkDialogs.h"
#include "host/window/SafeKeeping.h"

#include "foundation/GlobalConfig.h"
#include "foundation/Settings.h"
#include "foundation/Text.h"
#include "foundation/Version.h"
#include "platform/qt/FormView.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QStackedWidget>
#include <QStatusBar>
#include <QVBoxLayout>

namespace paperkite {

namespace {

constexpr const char* kWindowPath = "Window";
constexpr const char* kToolbarSetting = "TypesToolbar";
constexpr const char* kTemplateSetting = "PageTemplate";
constexpr int kFirstWidth = 1280;
constexpr int kFirstHeight = 800;
constexpr int kLargest = 8192;

struct TreeOption {
    const char* Name;
    bool ProjectViewOptions::*Field;
};

/// What the tree shows is the author's choice, kept for all projects.
constexpr TreeOption kTreeOptions[] = {
    {"Grouped", &ProjectViewOptions::Grouped},
    {"ShowPrivate", &ProjectViewOptions::ShowPrivate},
    {"ShowFriend", &ProjectViewOptions::ShowFriend},
    {"ShowProtected", &ProjectViewOptions::ShowProtected},
    {"AutoExpand", &ProjectViewOptions::AutoExpandChildren},
};

QString DroppedPath(const QMimeData& data) {
    for (const QUrl& url : data.urls())
        if (url.isLocalFile()) return url.toLocalFile();
    return {};
}

} // namespace

MainWindow::MainWindow(Theme& theme) : mTheme(theme) {
    setObjectName("MainWindow");
    setAcceptDrops(true);
    resize(kFirstWidth, kFirstHeight);
    SourcePane::RegisterView(mFactory);
    ItemFinder::RegisterView(mFactory);
    FormView::InstallRunner(mFactory);
    mPages = new QStackedWidget(this);
    mPages->addWidget(MakeStartPage());
    setCentralWidget(mPages);
    mPath = new QLabel(this);
    mPath->setTextInteractionFlags(Qt::TextSelectableByMouse);
    mModified = new QLabel(this);
    mCoverage = new CoverageStatus(this);
    mReading = new BackgroundReading(this);
    for (QLabel* label : {mPath, mModified})
        label->setForegroundRole(QPalette::PlaceholderText);
    mPath->setContentsMargins(8, 0, 0, 0);
    mModified->setContentsMargins(0, 0, 8, 0);
    // A long name must not widen the window.
    mPath->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    statusBar()->addWidget(mPath, 1);
    statusBar()->addPermanentWidget(mReading);
    MakeHomelessStatus();
    statusBar()->addPermanentWidget(mCoverage);
    statusBar()->addPermanentWidget(mModified);
    mAppName = "Paperkite";
    RestoreAppearance();
    MakeActions();
    ShowTitle();
    UpdateActions();
}

MainWindow::~MainWindow() {
    KeepAppearance();
    HideProject();
    Form::SetDefaultRunner({});
}

QWidget* MainWindow::MakeStartPage() {
    auto* page = new QWidget(this);
    auto* column = new QVBoxLayout(page);
    column->setSpacing(12);
    column->addStretch(2);
    auto* text = new QLabel(tr("<h2>Write documentation beside the source</h2>"
                               "<p>Choose a folder of source code to begin a project, or drop one "
                               "here. Comments are kept in files of their own.</p>"),
                            page);
    text->setAlignment(Qt::AlignCenter);
    text->setWordWrap(true);
    column->addWidget(text);
    const auto addButton = [&](const QString& caption, void (MainWindow::*slot)()) {
        auto* button = new QPushButton(caption, page);
        button->setMinimumWidth(220);
        connect(button, &QPushButton::clicked, this, slot);
        column->addWidget(button, 0, Qt::AlignCenter);
        return button;
    };
    addButton(tr("&New Project … (Ctrl+N)"), &MainWindow::New)->setDefault(true);
    addButton(tr("&Open Project … (Ctrl+O)"), &MainWindow::Open);
    mRecentLinks = new QLabel(page);
    mRecentLinks->setAlignment(Qt::AlignCenter);
    mRecentLinks->setTextInteractionFlags(Qt::TextBrowserInteraction);
    connect(mRecentLinks, &QLabel::linkActivated, this,
            [this](const QString& path) { OpenProject(path); });
    column->addWidget(mRecentLinks);
    column->addStretch(3);
    return page;
}

void MainWindow::ShowRecentLinks() {
    QString links;
    for (const std::string& path : mRecent.Load()) {
        const QString file = QString::fromStdString(path);
        links += QString("<p><a href=\"%1\">%2</a></p>")
                     .arg(file.toHtmlEscaped(), QFileInfo(file).completeBaseName().toHtmlEscaped());
    }
    mRecentLinks->setText(links.isEmpty() ? QString() : tr("<p>Or go on with</p>") + links);
}

void MainWindow::ShowTitle() {
    if (!mWorkspace) {
        ShowRecentLinks();
        setWindowTitle("Paperkite");
        setWindowModified(false);
        mModified->clear();
        return;
    }
    const auto& project = mWorkspace->GetSession().GetProject();
    const bool isReadOnly = mKeeping && mKeeping->IsReadOnly();
    setWindowTitle(QString::fromStdString(project->GetTitle()) +
                   (isReadOnly ? tr(" (read-only)") : QString()) + "[*] — Paperkite");
    setWindowModified(project->GetDirty());
    mModified->setText(project->GetDirty() ? tr("Modified") : QString());
}

void MainWindow::ScaleText(int change) {
    mTheme.SetTextScale(mTheme.GetTextScale() + change);
}

void MainWindow::SetScheme(ColourScheme scheme) {
    mTheme.SetScheme(scheme);
}

void MainWindow::SetTemplate(const Ref<PageTemplate>& value) {
    mWorkspace->GetEditor().cEditor.SetInPlaceTemplate(value);
    Ignoring([&] { SetAppValue(kTemplateSetting, Value(value->Name), kWindowPath); });
}

void MainWindow::ShowTypesAsToolbar(bool value) {
    // The surface is shown anew; what was typed last comes first.
    mWorkspace->GetEditor().CommitEdit();
    mWorkspace->GetEditor().cEditor.SetShowCombo(value);
    GetAction("TypesToolbar")->setChecked(value);
    Ignoring([&] { SetAppValue(kToolbarSetting, value, kWindowPath); });
}

void MainWindow::RestoreTemplate() {
    ShowTypesAsToolbar(GetAppNumber(kToolbarSetting, 0, 0, 1, kWindowPath) != 0);
    std::string name;
    Ignoring([&] {
        name = GetAppValue(kTemplateSetting, Value(""), kConvertToText, kWindowPath).ToText();
    });
    const auto& templates = GlobalConfig().Templates;
    if (templates.Contains(name))
        mWorkspace->GetEditor().cEditor.SetInPlaceTemplate(templates.Item(name));
}

void MainWindow::RestoreAppearance() {
    const auto number = [](const char* name, int byDefault, int least, int most) {
        return GetAppNumber(name, byDefault, least, most, kWindowPath);
    };
    Ignoring([&] {
        resize(number("Width", kFirstWidth, 400, kLargest),
               number("Height", kFirstHeight, 300, kLargest));
        if (number("Maximised", 0, 0, 1) != 0) setWindowState(Qt::WindowMaximized);
        mTheme.SetTextScale(number("TextScale", mTheme.GetTextScale(), 0, kLargest));
        mTheme.SetScheme(static_cast<ColourScheme>(
            number("Colours", static_cast<int>(mTheme.GetScheme()), 0, 2)));
        for (const TreeOption& option : kTreeOptions) {
            bool& field = GlobalConfig().ProjectViewOptions.*option.Field;
            field = number(option.Name, field, 0, 1) != 0;
        }
    });
}

void MainWindow::KeepAppearance() {
    Ignoring([&] {
        if (!isMaximized()) {
            SetAppValue("Width", width(), kWindowPath);
            SetAppValue("Height", height(), kWindowPath);
        }
        SetAppValue("Maximised", isMaximized(), kWindowPath);
        SetAppValue("TextScale", mTheme.GetTextScale(), kWindowPath);
        SetAppValue("Colours", static_cast<int>(mTheme.GetScheme()), kWindowPath);
        for (const TreeOption& option : kTreeOptions)
            SetAppValue(option.Name, GlobalConfig().ProjectViewOptions.*option.Field, kWindowPath);
    });
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if ((mLayoutWindow && !mLayoutWindow->MayGiveUp()) || !SavedOrGivenUp()) return event->ignore();
    if (mLayoutWindow) mLayoutWindow->GiveUp();
    event->accept();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    const QFileInfo dropped(DroppedPath(*event->mimeData()));
    if (dropped.isDir() || dropped.fileName().endsWith(kProjectEnding))
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
    event->acceptProposedAction();
    OpenPath(DroppedPath(*event->mimeData()));
}

void MainWindow::About() {
    QMessageBox::about(this, tr("About Paperkite"),
                       tr("<b>Paperkite %1</b><p>Writes the documentation of source code, in files "
                          "of its own beside the source.</p>")
                           .arg(kVersion));
}

} // namespace paperkite

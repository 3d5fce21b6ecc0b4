#include "BenchmarkTable.h"
#include "MadeOnce.h"

#include "foundation/Services.h"
#include "host/HeadlessServices.h"
#include "host/Workspace.h"
#include "host/window/DesktopServices.h"
#include "platform/qt/HtmlEditView.h"
#include "platform/qt/ViewFactory.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QWebEngineView>

#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>

#include <unistd.h>

#include <benchmark/benchmark.h>

// Pages of large types, in the real engine on both sides.

namespace paperkite::bench {

namespace {

namespace fs = std::filesystem;

constexpr QSize kWindowSize(900, 700);
constexpr int kMilliseconds = 60000;
const std::vector<std::int64_t> kMembers{250, 800, 2'500};

template <class Done>
void WaitUntil(const Done& done) {
    QElapsedTimer waited;
    waited.start();
    while (!done()) {
        if (waited.elapsed() > kMilliseconds) throw std::runtime_error("the page did not answer");
        QApplication::processEvents(QEventLoop::AllEvents, 1);
    }
}

/// Until the page has been drawn again, as it has between two keys of a quick writer.
void LetDraw(benchmark::State& state) {
    state.PauseTiming();
    QElapsedTimer waited;
    waited.start();
    WaitUntil([&] { return waited.elapsed() > 60; });
    state.ResumeTiming();
}

void PressKey(QWidget* widget) {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent key(type, Qt::Key_X, Qt::NoModifier, QStringLiteral("x"));
        QApplication::sendEvent(widget, &key);
    }
}

/// The authoring components in a window, on code with two types of so many members.
class PageWindow {
public:
    explicit PageWindow(std::int64_t members)
        : mFolder(fs::temp_directory_path() /
                  ("paperkite-bench-page-" + std::to_string(::getpid()) + "-" +
                   std::to_string(members))) {
        fs::create_directories(mFolder / "code");
        WriteType("First", members);
        WriteType("Second", members);
        auto made = ProjectSession::Create(
            {(mFolder / "p.kiteproject").string(), (mFolder / "code").string(), "Bench", {}});
        if (!made.Session) throw std::runtime_error(made.Problem);
        static const auto helper = InstallHeadlessServices(PAPERKITE_SOURCE_DIR);
        InstallDesktopServices(*helper);
        mWorkspace = std::make_unique<Workspace>(std::move(made.Session));
        mWindow.reset(mFactory.MakeView(mWorkspace->GetEditor().splitMain, nullptr));
        mWindow->resize(kWindowSize);
        mWindow->show();
        mWorkspace->GetEditor().cEditor.UserControl_Show();
        Open("code~First");
    }
    ~PageWindow() {
        mWindow.reset();
        mWorkspace.reset();
        std::error_code ignored;
        fs::remove_all(mFolder, ignored);
    }

    /// Until the page stands.
    void Open(const std::string& item) {
        if (!mWorkspace->Select(item)) throw std::runtime_error("there is no " + item);
        WaitUntil([this] { return View() && View()->IsReady(); });
    }
    HtmlEditView* View() const {
        for (auto* child : mWindow->findChildren<QWidget*>())
            if (auto* page = dynamic_cast<HtmlEditView*>(child); page && page->isVisible())
                return page;
        return nullptr;
    }
    const Ref<HtmlEdit>& Edit() const {
        return mWorkspace->GetEditor().cEditor.InPlaceEditor->GetEditControl();
    }
    std::string TextOf(const std::string& item) const {
        const auto comments = mWorkspace->GetSession().GetProject()->GetComments()->Find(item);
        return comments && comments->Count() > 0 ? comments->Item(std::size_t{1})->GetText()
                                                 : std::string();
    }
    /// The same page in a file, as the engine gets it.
    std::string WritePage() const {
        const std::string file = (mFolder / "page.html").string();
        std::ofstream(file) << Edit()->GetDocumentHTML();
        return file;
    }

private:
    void WriteType(const std::string& name, std::int64_t members) const {
        std::ofstream file(mFolder / "code" / (name + ".h"));
        file << "class " << name << " {\npublic:\n";
        for (std::int64_t number = 0; number < members; ++number)
            file << "    /// Gives the value of that number.\n    int member" << number
                 << "(int index) const;\n";
        file << "};\n";
    }

    fs::path mFolder;
    ViewFactory mFactory;
    std::unique_ptr<Workspace> mWorkspace;
    std::unique_ptr<QWidget> mWindow;
};

PageWindow& WindowOf(std::int64_t members) {
    return MadeOnce(members, [](std::int64_t size) { return std::make_unique<PageWindow>(size); });
}

/// The engine alone, with the same page from a file.
class BareView {
public:
    explicit BareView(std::int64_t members) : mFile(WindowOf(members).WritePage()) {
        mView.resize(kWindowSize);
        mView.show();
        QObject::connect(&mView, &QWebEngineView::loadFinished, [this] { mLoaded = true; });
        QObject::connect(&mView, &QWebEngineView::titleChanged,
                         [this](const QString& title) { mTitle = title; });
        Load();
    }

    void Load() {
        mLoaded = false;
        mView.load(QUrl::fromLocalFile(QString::fromStdString(mFile)));
        WaitUntil([this] { return mLoaded; });
    }
    /// Says in its title how many keys came.
    void CountKeys() {
        bool isDone = false;
        mView.page()->runJavaScript(
            "let keys = 0; document.title = '0'; document.addEventListener('input', () => "
            "{ document.title = ++keys; }); "
            "document.querySelector('[contenteditable=true]').focus();",
            [&](const QVariant&) { isDone = true; });
        WaitUntil([&] { return isDone && mTitle == "0"; });
    }
    void Key() {
        const QString next = QString::number(mTitle.toInt() + 1);
        PressKey(mView.focusProxy());
        WaitUntil([&] { return mTitle == next; });
    }

private:
    std::string mFile;
    QWebEngineView mView;
    bool mLoaded = false;
    QString mTitle;
};

BareView& BareOf(std::int64_t members) {
    return MadeOnce(members, [](std::int64_t size) { return std::make_unique<BareView>(size); });
}

void OpenOurs(benchmark::State& state, std::int64_t members) {
    PageWindow& window = WindowOf(members);
    for (auto _ : state) {
        state.PauseTiming();
        window.Open("code~Second");
        state.ResumeTiming();
        window.Open("code~First");
    }
}

void OpenYardstick(benchmark::State& state, std::int64_t members) {
    BareView& view = BareOf(members);
    for (auto _ : state)
        view.Load();
}

void KeyOurs(benchmark::State& state, std::int64_t members) {
    PageWindow& window = WindowOf(members);
    window.Open("code~First");
    window.View()->GetSurface()->FocusText();
    WaitUntil([&] { return window.Edit()->IsCommandEnabled("bold"); });
    for (auto _ : state) {
        LetDraw(state);
        const std::size_t before = window.TextOf("code~First").size();
        PressKey(window.View()->GetSurface()->InputWidget());
        WaitUntil([&] { return window.TextOf("code~First").size() != before; });
    }
}

void KeyYardstick(benchmark::State& state, std::int64_t members) {
    BareView& view = BareOf(members);
    view.Load();
    view.CountKeys();
    for (auto _ : state) {
        LetDraw(state);
        view.Key();
    }
}

} // namespace

void AddPageRows(std::vector<Row>& rows) {
    rows.push_back({"page.open", "open the page of a type with 2,500 members", OpenOurs,
                    "the web engine loading the same HTML from a file", OpenYardstick, kMembers,
                    Judged::TimeRatio, 2, 5});
    rows.push_back({"page.key", "a key on a page of 2,500 members, until it is in the model",
                    KeyOurs, "the same key in a bare contenteditable page of that size",
                    KeyYardstick, kMembers, Judged::TimeRatio, 1.5, 5});
}

} // namespace paperkite::bench

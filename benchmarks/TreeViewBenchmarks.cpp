#include "BenchmarkCode.h"
#include "BenchmarkTable.h"

#include "itemtree/ProjectView.h"
#include "platform/qt/TreeView.h"

#include <QApplication>
#include <QEvent>
#include <QTreeWidget>

#include <memory>

#include <benchmark/benchmark.h>

namespace paperkite::bench {

namespace {

const std::vector<std::int64_t> kSizes{1'000, 10'000, 100'000};
constexpr QSize kWindowSize(500, 700);

/// Counts how often a view was painted.
class PaintCount : public QObject {
public:
    explicit PaintCount(QWidget* watched) { watched->installEventFilter(this); }

    int Painted() const { return mPainted; }

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        mPainted += event->type() == QEvent::Paint;
        return false;
    }

private:
    int mPainted = 0;
};

void ShowAndSettle(QWidget& window) {
    window.resize(kWindowSize);
    window.show();
    for (int round = 0; round < 5; ++round)
        QApplication::processEvents();
}

void WaitForPaint(const PaintCount& paints, int before) {
    while (paints.Painted() == before)
        QApplication::processEvents();
}

void ExpandOurs(benchmark::State& state, std::int64_t children) {
    BenchmarkCode code(IndexOfOneClass(children));
    for (auto _ : state) {
        state.PauseTiming();
        ProjectView view;
        view.SetGrouped(false);
        view.SetKiteProject(code.Project);
        auto screen = std::make_unique<TreeView>(view.tvwProject, nullptr);
        view.LoadFromNamespaceDefs(code.Definitions, kSourceMoniker, true);
        ShowAndSettle(*screen);
        const PaintCount paints(screen->viewport());
        const Ref<TreeNode> type = view.GetNodes().Item("engine~Registers");
        ForgetFreeMemory();
        state.ResumeTiming();
        type->SetExpanded(true);
        WaitForPaint(paints, 0);
        state.PauseTiming();
        screen.reset();
        view.SetGrouped(true);
        state.ResumeTiming();
    }
}

/// Items for the children that the provider gives, with what the tree shows of them.
QList<QTreeWidgetItem*> MakeItems(BenchmarkCode& code, const Ref<Object>& parent) {
    static const QFont bold = [] {
        QFont font = QApplication::font();
        font.setBold(true);
        return font;
    }();
    QList<QTreeWidgetItem*> made;
    for (auto definition : *code.Definitions->Item(1)->GetChildDefs()->Item(1)->GetChildDefs()) {
        const auto items = code.Provider->GetItems(definition, parent, "scope=public+protected");
        for (const auto& item : *items) {
            const std::string name = item->Get("Name").ToText();
            const std::string key = item->Get("QualifiedName").ToText();
            auto* row = new QTreeWidgetItem(QStringList(QString::fromStdString(name)));
            row->setData(0, Qt::UserRole, QString::fromStdString(key));
            if (item->Get("Access").ToText() == "PRIVATE") row->setForeground(0, Qt::gray);
            const auto comments = item->Get("TaggedComments").ToObject();
            if (comments->Get("Count").ToInteger() > 0) row->setFont(0, bold);
            made.append(row);
        }
    }
    return made;
}

void ExpandYardstick(benchmark::State& state, std::int64_t children) {
    BenchmarkCode code(IndexOfOneClass(children));
    for (auto _ : state) {
        state.PauseTiming();
        auto tree = std::make_unique<QTreeWidget>();
        tree->setHeaderHidden(true);
        tree->setUniformRowHeights(true);
        auto* project = new QTreeWidgetItem(tree.get(), QStringList("engine"));
        project->setExpanded(true);
        auto* type = new QTreeWidgetItem(project, QStringList("Registers"));
        type->setChildIndicatorPolicy(QTreeWidgetItem::ShowIndicator);
        QObject::connect(tree.get(), &QTreeWidget::itemExpanded, [&](QTreeWidgetItem* opened) {
            if (opened == type)
                type->addChildren(MakeItems(code, code.Provider->GetItem("engine~Registers")));
        });
        ShowAndSettle(*tree);
        const PaintCount paints(tree->viewport());
        ForgetFreeMemory();
        state.ResumeTiming();
        type->setExpanded(true);
        WaitForPaint(paints, 0);
        state.PauseTiming();
        if (type->childCount() != children) return state.SkipWithError("children are missing");
        tree.reset();
        state.ResumeTiming();
    }
}

} // namespace

void AddTreeViewRows(std::vector<Row>& rows) {
    rows.push_back({"tree.expand", "expand a node of 100,000 children until painted", ExpandOurs,
                    "the same items, from the same provider, in a QTreeWidget", ExpandYardstick,
                    kSizes, Judged::TimeRatio, 1});
}

} // namespace paperkite::bench

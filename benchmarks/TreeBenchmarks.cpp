#include "BenchmarkCode.h"
#include "BenchmarkTable.h"
#include "MadeOnce.h"

#include "foundation/Utilities.h"
#include "itemtree/ProjectView.h"

#include <QStandardItemModel>

#include <memory>
#include <random>

#include <benchmark/benchmark.h>

namespace paperkite::bench {

namespace {

const std::vector<std::int64_t> kSizes{10'000, 100'000, 1'000'000};

/// The code of a size, made once for all rows.
BenchmarkCode& CodeOf(std::int64_t items) {
    return MadeOnce(items, [](std::int64_t size) {
        return std::make_unique<BenchmarkCode>(IndexOfClasses(size));
    });
}

void OpenAll(ProjectView& view, BenchmarkCode& code) {
    view.SetKiteProject(code.Project);
    view.LoadFromNamespaceDefs(code.Definitions, kSourceMoniker, true);
    for (Ref<TreeNode> node = view.GetNodes().GetFirst(); node;) {
        if (node->GetIsExpandable() && !node->GetExpanded()) node->SetExpanded(true);
        if (const Ref<TreeNode> child = node->GetChild()) {
            node = child;
            continue;
        }
        Ref<TreeNode> next = node->GetNext();
        while (!next && (node = node->GetParent()))
            next = node->GetNext();
        node = next;
    }
}

/// A tree with all its nodes, kept for the rows that look things up in it.
ProjectView& OpenedView(std::int64_t items) {
    return MadeOnce(items, [](std::int64_t size) {
        auto view = std::make_unique<ProjectView>();
        OpenAll(*view, CodeOf(size));
        return view;
    });
}

/// What a node shows and is known by, and how many of those that follow stand below it.
struct PlainNode {
    std::string Key;
    std::string Text;
    int Depth;
};

using PlainNodes = std::vector<PlainNode>;

std::unique_ptr<PlainNodes> MakePlainNodes(std::int64_t items) {
    auto nodes = std::make_unique<PlainNodes>();
    ProjectView view;
    OpenAll(view, CodeOf(items));
    int depth = 0;
    for (Ref<TreeNode> node = view.GetNodes().GetFirst(); node;) {
        nodes->push_back({node->GetKey(), node->GetText(), depth});
        Ref<TreeNode> next = node->GetChild();
        if (next) {
            ++depth;
        } else {
            next = node->GetNext();
            while (!next && (node = node->GetParent())) {
                --depth;
                next = node->GetNext();
            }
        }
        node = next;
    }
    view.Terminate();
    return nodes;
}

/// The nodes of an opened tree, top down, as the yardsticks are handed them.
const PlainNodes& PlainNodesOf(std::int64_t items) {
    return MadeOnce(items, [](std::int64_t size) { return MakePlainNodes(size); });
}

void LoadOurs(benchmark::State& state, std::int64_t items) {
    BenchmarkCode& code = CodeOf(items);
    for (auto _ : state) {
        state.PauseTiming();
        ForgetFreeMemory();
        state.ResumeTiming();
        ProjectView view;
        OpenAll(view, code);
        state.PauseTiming();
        const double full = AllocatedBytes();
        view.Clear();
        ReportBytes(state, full - AllocatedBytes());
        state.ResumeTiming();
    }
}

void LoadYardstick(benchmark::State& state, std::int64_t items) {
    const auto& nodes = PlainNodesOf(items);
    for (auto _ : state) {
        state.PauseTiming();
        ForgetFreeMemory();
        const double before = AllocatedBytes();
        state.ResumeTiming();
        auto model = std::make_unique<QStandardItemModel>();
        std::vector<QStandardItem*> open{model->invisibleRootItem()};
        for (const PlainNode& node : nodes) {
            auto* item = new QStandardItem(QString::fromStdString(node.Text));
            item->setData(QString::fromStdString(node.Key), Qt::UserRole);
            open.resize(static_cast<std::size_t>(node.Depth) + 1);
            open.back()->appendRow(item);
            open.push_back(item);
        }
        state.PauseTiming();
        ReportBytes(state, AllocatedBytes() - before);
        model.reset();
        state.ResumeTiming();
    }
}

std::vector<std::string> SomeKeys(std::int64_t items) {
    const auto& nodes = PlainNodesOf(items);
    std::mt19937_64 random(7);
    std::vector<std::string> keys;
    for (int count = 0; count < 4096; ++count)
        keys.push_back(nodes[random() % nodes.size()].Key);
    return keys;
}

void SelectOurs(benchmark::State& state, std::int64_t items) {
    ProjectView& view = OpenedView(items);
    const auto keys = SomeKeys(items);
    std::size_t at = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(view.SelectItem(keys[++at % keys.size()]));
}

void ExclusionsOurs(benchmark::State& state, std::int64_t items) {
    TextCollection exclusions;
    for (const PlainNode& node : PlainNodesOf(items))
        exclusions.Add(node.Key, node.Key);
    auto keys = SomeKeys(items);
    for (std::size_t odd = 1; odd < keys.size(); odd += 2)
        keys[odd] += "~missing";
    std::size_t at = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(Utilities::ContainsKey(exclusions, keys[++at % keys.size()]));
}

void GetItemOurs(benchmark::State& state, std::int64_t items) {
    BenchmarkCode& code = CodeOf(items);
    const auto keys = SomeKeys(items);
    std::size_t at = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(code.Provider->GetItem(keys[++at % keys.size()]));
}

} // namespace

void AddTreeRows(std::vector<Row>& rows) {
    constexpr const char* kBeside = "the same keys and texts appended to a QStandardItemModel";
    rows.push_back({"tree.load.time", "load and open 1,000,000 items through ProjectView", LoadOurs,
                    kBeside, LoadYardstick, kSizes, Judged::TimeRatio, 2, 3});
    rows.push_back({"tree.load.memory", "the tree's own share of 1,000,000 items", LoadOurs,
                    kBeside, LoadYardstick, kSizes, Judged::MemoryRatio, 1, 1});
    rows.push_back({"tree.select", "SelectItem", SelectOurs, {}, {}, kSizes, Judged::Growth, 0.4});
    rows.push_back({"tree.exclusions",
                    "test whether an item is excluded",
                    ExclusionsOurs,
                    {},
                    {},
                    kSizes,
                    Judged::Growth,
                    0.4});
    rows.push_back({"tree.getitem", "GetItem", GetItemOurs, {}, {}, kSizes, Judged::Growth, 0.4});
}

} // namespace paperkite::bench

#include "BenchmarkTable.h"

#include "authoring/CommentEditor.h"
#include "foundation/GlobalConfig.h"
#include "model/CodeItem.h"

#include <benchmark/benchmark.h>

namespace paperkite::bench {

namespace {

constexpr int kDefinitions = 200;
constexpr const char* kNamespace = "bench:Class";

/// 200 definitions for one kind of item: one in ten a flag, all others in the tag list.
Ref<TaggedCommentDefs> Definitions() {
    auto definitions = MakeRef<TaggedCommentDefs>();
    for (int number = 0; number < kDefinitions; ++number) {
        auto definition = MakeRef<TaggedCommentDef>();
        definition->TagIdentifier = "##tag" + std::to_string(number);
        definition->DisplayName = "Tag number " + std::to_string(number);
        definition->Namespaces = kNamespace;
        definition->XMLTags = "remarks";
        if (number % 10 == 0) definition->TagType = "f";
        definitions->Add(definition);
    }
    return definitions;
}

void LoadEditor(benchmark::State& state, std::int64_t comments) {
    const auto configured = GlobalConfig().TaggedCommentDefs;
    GlobalConfig().TaggedCommentDefs = Definitions();
    const auto store = MakeRef<CommentStore>();
    const auto item = MakeRef<CodeItem>("ClassElement", "engine~TableReader", store);
    for (std::int64_t number = 0; number < comments; ++number) {
        auto comment = MakeRef<TaggedComment>();
        // 180 definitions take comments in turn; those that are flags are passed over.
        comment->SetTagIdentifier("##tag" + std::to_string(number % 180 / 9 * 10 + 1 + number % 9));
        comment->SetText("<p>What the reader does with the table.</p>");
        item->GetTaggedComments()->Add(comment, comment->GetId());
    }
    auto space = MakeRef<NamespaceDef>();
    space->Name = kNamespace;
    auto spaces = MakeRef<NamespaceDefs>("bench");
    spaces->Add(space, kNamespace);
    {
        CommentEditor editor;
        for (auto _ : state)
            editor.Load(space, item, item);
        if (editor.prpTags->Count() < static_cast<std::size_t>(comments))
            return state.SkipWithError("the comments are not listed");
        editor.Terminate();
    }
    GlobalConfig().TaggedCommentDefs = configured;
}

/// Definitions for one kind of item: of ten, one is a flag, three have tabs (in one group for each
/// hundred), and the others stand in the tag list.
Ref<TaggedCommentDefs> MixedDefinitions(std::int64_t count, bool withTabs) {
    auto definitions = MakeRef<TaggedCommentDefs>();
    for (std::int64_t number = 0; number < count; ++number) {
        auto definition = MakeRef<TaggedCommentDef>();
        definition->TagIdentifier = "#tag" + std::to_string(number);
        definition->DisplayName = "Tag number " + std::to_string(number);
        definition->Namespaces = kNamespace;
        if (number % 10 == 0) definition->TagType = "f";
        if (withTabs && number % 10 >= 7) {
            definition->TabName = "Tab " + std::to_string(number);
            definition->GroupName = "Group " + std::to_string(number / 100);
        }
        definitions->Add(definition);
    }
    return definitions;
}

void RefreshEditor(benchmark::State& state, std::int64_t count) {
    const auto configured = GlobalConfig().TaggedCommentDefs;
    const bool kept = GlobalConfig().KeepLastCommentTab;
    const auto store = MakeRef<CommentStore>();
    const auto item = MakeRef<CodeItem>("ClassElement", "engine~TableReader", store);
    auto space = MakeRef<NamespaceDef>();
    space->Name = kNamespace;
    auto spaces = MakeRef<NamespaceDefs>("bench");
    spaces->Add(space, kNamespace);
    {
        CommentEditor editor;
        // The tag list is shown first, and kept: what designers do is not measured here.
        GlobalConfig().KeepLastCommentTab = true;
        GlobalConfig().TaggedCommentDefs = MixedDefinitions(count, false);
        editor.Load(space, item, item);
        GlobalConfig().TaggedCommentDefs = MixedDefinitions(count, true);
        for (auto _ : state)
            editor.Refresh(false);
        const auto offered = static_cast<std::size_t>(count * 6 / 10);
        if (editor.prpTags->Count() != offered + 2 || editor.eb->GetGroups().size() < 4)
            state.SkipWithError("the definitions are not listed");
        editor.Terminate();
    }
    GlobalConfig().TaggedCommentDefs = configured;
    GlobalConfig().KeepLastCommentTab = kept;
}

} // namespace

void AddEditorRows(std::vector<Row>& rows) {
    rows.push_back({"editor.load",
                    "CommentEditor.Load with 200 definitions",
                    LoadEditor,
                    {},
                    {},
                    {10, 100, 1000},
                    Judged::Growth,
                    1.1});
    rows.push_back({"editor.refresh",
                    "CommentEditor.Refresh by number of definitions",
                    RefreshEditor,
                    {},
                    {},
                    {10, 100, 1000},
                    Judged::Growth,
                    1.1});
}

} // namespace paperkite::bench

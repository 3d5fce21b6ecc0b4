#pragma once

#include "authoring/ProjectEditor.h"
#include "foundation/Text.h"
#include "platform/html/HtmlServices.h"
#include "support/ModelServices.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

namespace paperkite::test {

/// The authoring screen over the test model, with a recording wrapper and one tag "#note".
class ProjectEditorFixture : public testing::Test {
protected:
    ProjectEditorFixture() {
        CurrentServices().HTMLDOMFactory = MakeHTMLDOMFactory();
        const auto definition = MakeRef<TaggedCommentDef>();
        definition->TagIdentifier = "#note";
        definition->DisplayName = "Note";
        definition->Namespaces = "Test:Class,Test:Method,Test:Project";
        GlobalConfig().TaggedCommentDefs->Add(definition);
        for (const char* name : {"Project", "Class", "Method", "Field"})
            mImages->Add(name, {"code", {}, name});
        mEditor.Project.SetImageList(mImages);
        mEditor.SetKiteProject(mModel.Project);
        mEditor.BindToWrapper(MakeRef<TestWrapper>(mWrapperLog));
        mEditor.LoadFromNamespaceDefs(mModel.Defs, "moniker");
        mEditor.SelectItem("P~A~Run");
        mWrapperLog.Take();
    }
    ~ProjectEditorFixture() override { mEditor.Terminate(); }

    Ref<TreeNode> Node(const std::string& key) { return mEditor.Project.GetNodes().Item(key); }
    std::string Current() {
        const auto item = mEditor.cEditor.GetCurrentCodeElement();
        return item ? item->Get("QualifiedName").ToText() : "nothing";
    }
    std::string Messages() {
        std::string shown;
        for (const auto& message : std::exchange(mServices.Messages->Shown, {}))
            shown += message + "\n";
        return shown;
    }

    ModelServices mServices;
    KeptConfiguration mConfiguration;
    EventLog mWrapperLog;
    TestModel mModel;
    Ref<ImageList> mImages = MakeRef<ImageList>();
    ProjectEditor mEditor;
};

} // namespace paperkite::test

#pragma once

#include "foundation/Text.h"
#include "itemtree/ProjectView.h"
#include "support/ModelServices.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

namespace paperkite::test {

/// A tree over the test model.
class ProjectViewFixture : public testing::Test {
protected:
    ProjectViewFixture() { mView.SetKiteProject(mModel.Project); }
    ~ProjectViewFixture() override { mView.Terminate(); }

    void Load() {
        mView.LoadFromNamespaceDefs(mModel.Defs, "moniker", true);
        mModel.Log.Take();
    }
    void Open(const std::string& key) { Node(key)->SetExpanded(true); }
    bool Has(const std::string& key) { return mView.GetNodes().Contains(key); }
    Ref<TreeNode> Node(const std::string& key) { return mView.GetNodes().Item(key); }
    std::string Text() { return TreeText(*mView.tvwProject); }
    std::string Shape() { return TreeShape(*mView.tvwProject); }
    std::string Selected() {
        const auto node = mView.GetSelectedItem();
        return node ? node->GetKey() : "nothing";
    }
    Ref<DockCommand> Command(const std::string& name) { return mView.Dock->Commands.Item(name); }
    std::string Exclusions() { return TextsOf(*mView.GetExclusions()); }

    ModelServices mServices;
    KeptConfiguration mConfiguration;
    TestModel mModel;
    ProjectView mView;
};

} // namespace paperkite::test

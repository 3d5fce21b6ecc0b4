#include "foundation/DocTypes.h"

#include <gtest/gtest.h>

namespace paperkite {

namespace {

class PlugInWithRoots : public DocTypePlugIn {
public:
    explicit PlugInWithRoots(std::size_t count) {
        for (std::size_t index = 0; index < count; ++index)
            mRoots->Add(nullptr);
    }
    void Initialise(IKiteProjectHost&) override {}
    void VoteControlStates() override {}
    std::int32_t ItemSelectorCount(const std::string&) override { return 0; }
    void ProjectItemsChanged() override {}
    Ref<ObjectCollection> RootItems(const std::string&) override { return mRoots; }
    Ref<NamespaceDefs> NamespaceDefsOf(const Ref<Object>&) override { return {}; }
    bool MatchesMoniker(const Ref<Object>&, const std::string&) override { return false; }

private:
    Ref<ObjectCollection> mRoots = MakeRef<ObjectCollection>();
};

Ref<DocType> TypeWith(const std::string& name, const Ref<DocTypePlugIn>& plugIn) {
    auto docType = MakeRef<DocType>();
    docType->Definition->Name = name;
    docType->PlugIn = plugIn;
    return docType;
}

} // namespace

TEST(DocTypes, ThoseWithRootItemsAreEnabled) {
    DocTypes docTypes;
    docTypes.Add(TypeWith("Bare", nullptr));
    docTypes.Add(TypeWith("Empty", MakeRef<PlugInWithRoots>(0)));
    docTypes.Add(TypeWith("Source Code", MakeRef<PlugInWithRoots>(2)));
    const auto enabled = docTypes.GetEnabledDocTypes();
    ASSERT_EQ(enabled.Count(), 1u);
    EXPECT_EQ(enabled.Item(1)->Definition->Name, "Source Code");
    EXPECT_EQ(enabled.Item("source code")->GetRootItemCount(), 2);
}

TEST(DocTypes, ASecondTypeOfTheSameNameIsAnError) {
    DocTypes docTypes;
    docTypes.Add(TypeWith("Source Code", nullptr));
    EXPECT_THROW(docTypes.Add(TypeWith("SOURCE CODE", nullptr)), Error);
}

} // namespace paperkite

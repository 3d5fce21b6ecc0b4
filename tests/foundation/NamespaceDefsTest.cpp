#include "foundation/NamespaceDefs.h"

#include "support/EventLog.h"

#include <gtest/gtest.h>

namespace paperkite {
namespace {

class NamespaceDefsTest : public testing::Test {
protected:
    ~NamespaceDefsTest() override { mTop->Release(); }

    Ref<NamespaceDef> Add(const Ref<NamespaceDefs>& level, const std::string& name,
                          const std::string& itemType) {
        const auto definition = MakeRef<NamespaceDef>();
        definition->Name = name;
        definition->ItemType = itemType;
        level->Add(definition, name);
        return definition;
    }
    std::string NamesFor(const std::string& itemType) {
        std::string names;
        for (const auto& definition : mTop->ItemsForType(itemType))
            names += definition->Name + " ";
        return names;
    }

    Ref<NamespaceDefs> mTop = MakeRef<NamespaceDefs>("kite.test");
};

TEST_F(NamespaceDefsTest, AnItemTypeIsFoundOnEveryLevelTheUpperOneFirst) {
    const auto module = Add(mTop, "T:Module", "module");
    Add(module->GetChildDefs(), "T:Inner", "class");
    Add(mTop, "T:Class", "class");
    EXPECT_EQ(NamesFor("class"), "T:Class T:Inner ");
    EXPECT_EQ(NamesFor("module"), "T:Module ");
    EXPECT_EQ(NamesFor("Class"), "");
}

TEST_F(NamespaceDefsTest, ALevelThatIsItsOwnChildIsWalkedOnce) {
    const auto module = Add(mTop, "T:Module", "module");
    const auto scope = Add(module->GetChildDefs(), "T:Scope", "scope");
    Add(module->GetChildDefs(), "T:Class", "class");
    scope->SetChildDefs(module->GetChildDefs());
    EXPECT_EQ(NamesFor("scope"), "T:Scope ");
    EXPECT_EQ(NamesFor("class"), "T:Class ");
    scope->SetChildDefs(mTop);
    EXPECT_EQ(NamesFor("module"), "T:Module ");
    EXPECT_EQ(NamesFor("unknown"), "");
}

TEST_F(NamespaceDefsTest, WhatIsFoundJoinsTheAccumulator) {
    const auto first = Add(mTop, "T:A", "a");
    const auto second = Add(mTop, "T:B", "b");
    const auto found = mTop->ItemsForType("b", mTop->ItemsForType("a"));
    ASSERT_EQ(found.size(), 2u);
    EXPECT_TRUE(found[0] == first);
    EXPECT_TRUE(found[1] == second);
}

TEST_F(NamespaceDefsTest, NoDefinitionOfAnItemTypeIsAnErrorThatNamesIt) {
    const auto definition = Add(mTop, "T:A", "a");
    EXPECT_TRUE(FirstDefinitionForType(mTop, "a") == definition);
    try {
        FirstDefinitionForType(mTop, "missing");
        FAIL() << "no error";
    } catch (const Error& error) {
        EXPECT_EQ(error.GetNumber(), 5);
        EXPECT_NE(error.GetDescription().find("\"missing\""), std::string::npos);
    }
}

TEST_F(NamespaceDefsTest, TheFirstCollectionOwnsADefinition) {
    const auto definition = Add(mTop, "T:A", "a");
    const auto other = MakeRef<NamespaceDefs>("other");
    other->Add(definition, "T:A");
    EXPECT_TRUE(definition->GetParentDefs() == mTop);
    EXPECT_EQ(ErrorNumberOf([&] { other->Add(definition, "T:A"); }), 457);
    EXPECT_EQ(other->Count(), 1u);
}

TEST_F(NamespaceDefsTest, ReleaseCutsACircle) {
    WeakRef<NamespaceDefs> level;
    {
        const auto outer = Add(mTop, "T:Module", "module");
        const auto scope = Add(outer->GetChildDefs(), "T:Scope", "scope");
        scope->SetChildDefs(outer->GetChildDefs());
        level = outer->GetChildDefs();
    }
    ASSERT_TRUE(level.Lock());
    mTop->Release();
    EXPECT_FALSE(level.Lock());
    EXPECT_EQ(mTop->Count(), 1u);
}

} // namespace
} // namespace paperkite

#pragma once

#include "foundation/GlobalConfig.h"
#include "foundation/KiteProject.h"
#include "foundation/NamespaceProvider.h"
#include "foundation/TaggedCommentCollection.h"
#include "support/EventLog.h"
#include "widgets/TreeControl.h"

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace paperkite::test {

/// A model item whose members are a plain map, so that a test may take any of them away.
class TestItem : public Object {
public:
    TestItem(EventLog& log, std::string typeName, const std::string& qualifiedName);
    std::string TypeName() const override { return mTypeName; }
    Value Get(std::string_view member) const override;
    /// Only members that are there; writes of Analysed are recorded.
    void Set(std::string_view member, const Value& value) override;
    /// Prepare and Load, recorded; anything else is no member.
    Value Call(std::string_view member, const std::vector<Value>& arguments) override;

    TestItem& With(const std::string& member, const Value& value);
    TestItem& Without(const std::string& member);
    std::string QualifiedName() const { return Get("QualifiedName").ToText(); }
    bool Flag(std::string_view member) const { return Get(member).ToBoolean(); }
    Ref<TaggedCommentCollection> Comments() const;
    /// Adds a comment that belongs to this item.
    Ref<TaggedComment> Comment(const std::string& tag, const std::string& text = "text",
                               const std::string& id = {}, int state = 0);

    /// Runs before each use of a member of any item, with "Get(Name)" and the like; may raise.
    inline static std::function<void(const std::string&)> OnUse;

    /// The name of the definition that covers the item.
    std::string DefinitionName;
    std::vector<Ref<TestItem>> Children;

private:
    EventLog& mLog;
    std::string mTypeName;
    std::map<std::string, Value, std::less<>> mMembers;
};

/// Fills "%%Name%%" in; records SetCurrentItem, CurrentRootItem and ParseForProperties.
class TestDataProvider : public DataProvider {
public:
    explicit TestDataProvider(EventLog& log) : mLog(log) {}
    Ref<DataProvider> Clone() override { return MakeRef<TestDataProvider>(mLog); }
    Ref<Object> GetCurrentItem() override { return mItem; }
    std::string GetCurrentItemType() override { return mItemType; }
    Ref<Object> GetCurrentParentItem() override { return mParent; }
    Ref<Object> GetCurrentRootItem() override { return mRoot; }
    void SetCurrentRootItem(const Ref<Object>& item) override;
    Ref<NamespaceDef> GetNamespaceDef() override { return mDefinition; }
    std::string GetProperty(const std::string& name) override;
    void Initialise(const Ref<ParserTemplate>&) override {}
    std::string ParseForProperties(const std::string& text) override;
    std::string ProvideData(const Ref<ParserElement>&, const Ref<FileSystem>&) override {
        return {};
    }
    void SetCurrentItem(Ref<NamespaceDef>& definition, const Ref<Object>& item,
                        const std::string& itemType, const Ref<Object>& parentItem) override;
    void DataProvider_Terminate() override {}

    /// Comes back in place of the definition that is handed in.
    Ref<NamespaceDef> Replacement;

private:
    EventLog& mLog;
    Ref<Object> mItem;
    Ref<Object> mParent;
    Ref<Object> mRoot;
    Ref<NamespaceDef> mDefinition;
    std::string mItemType;
};

/// Serves the items it was given, and records every call.
class TestProvider : public NamespaceProvider {
public:
    explicit TestProvider(EventLog& log) : Data(MakeRef<TestDataProvider>(log)), mLog(log) {}
    Ref<DataProvider> GetDataProvider() override { return Data; }
    Ref<Object> GetRootItem(Ref<NamespaceDef>& definition, const std::string& moniker) override;
    Ref<Object> GetItem(const std::string& qualifiedName) override;
    Ref<Object> ItemByQualifiedName(const std::string& qualifiedName) override;
    Ref<ObjectCollection> GetItems(Ref<NamespaceDef>& definition, const Ref<Object>& parentItem,
                                   const std::string& filter) override;

    Ref<TestDataProvider> Data;
    Ref<TestItem> Root;
    std::map<std::string, Ref<TestItem>> Items;
    /// Names of definitions of which there are no items at all: nothing instead of a collection.
    std::set<std::string> Silent;
    /// By the name of the definition asked for: what comes back in its place.
    std::map<std::string, Ref<NamespaceDef>> Replacements;
    /// Runs before each call is answered, with what was recorded; may raise.
    std::function<void(const std::string&)> OnCall;

private:
    void Told(const std::string& call);

    EventLog& mLog;
};

/// A project whose providers stand in a map.
class TestProject : public KiteProject {
public:
    explicit TestProject(EventLog& log) : mLog(log) {}
    Ref<DocTypes> GetDocTypes() override { return mDocTypes; }
    Ref<paperkite::NamespaceProvider> NamespaceProvider(const std::string& moniker) override;
    Ref<TextCollection> GetNamespaceExclusions() override { return mExclusions; }
    bool GetIncludePrivate() const override { return mPrivate; }
    void SetIncludePrivate(bool value) override { mPrivate = value; }
    bool GetIncludeFriend() const override { return mFriend; }
    void SetIncludeFriend(bool value) override { mFriend = value; }
    bool GetIncludeProtected() const override { return mProtected; }
    void SetIncludeProtected(bool value) override { mProtected = value; }
    bool GetIncludeProtectedFriend() const override { return mProtectedFriend; }
    void SetIncludeProtectedFriend(bool value) override { mProtectedFriend = value; }
    void SetDirty(bool) override {}

    /// The four switches as letters p, f, t, b; a dash for one that is off.
    std::string Scope() const;

    std::map<std::string, Ref<paperkite::NamespaceProvider>> Providers;

private:
    EventLog& mLog;
    Ref<DocTypes> mDocTypes = MakeRef<DocTypes>();
    Ref<TextCollection> mExclusions = MakeRef<TextCollection>();
    bool mPrivate = false;
    bool mFriend = false;
    bool mProtected = false;
    bool mProtectedFriend = false;
};

/// A command wrapper that records what it is called.
class TestWrapper : public Object {
public:
    explicit TestWrapper(EventLog& log) : mLog(log) {}
    std::string TypeName() const override { return "CommandWrapper"; }
    Value Call(std::string_view member, const std::vector<Value>&) override;

private:
    EventLog& mLog;
};

/// Puts the configuration of the process back as it was.
class KeptConfiguration {
public:
    KeptConfiguration() : mBefore(GlobalConfig()) { GlobalConfig() = GlobalConfigData(); }
    ~KeptConfiguration() { GlobalConfig() = mBefore; }
    KeptConfiguration(const KeptConfiguration&) = delete;
    KeptConfiguration& operator=(const KeptConfiguration&) = delete;

private:
    GlobalConfigData mBefore;
};

/// One project with one provider under the moniker "test", and its log.
///
/// The definitions: "Test:Project" (type project) over "Test:Class" (class, may be a root, grouped
/// as "Classes") over "Test:Method" (method, "Methods") and "Test:Field" (field, "Fields").
/// The items: P over P~A (methods Run, Stop; field Size) and P~B (method Go) and P~C.
class TestModel {
public:
    TestModel();
    ~TestModel();
    TestModel(const TestModel&) = delete;
    TestModel& operator=(const TestModel&) = delete;

    /// Adds an item below another one (nothing: it is the root).
    Ref<TestItem> Add(const std::string& parent, const std::string& name,
                      const std::string& definition, const std::string& typeName);
    Ref<TestItem> Item(const std::string& qualifiedName) const;
    Ref<NamespaceDef> Def(const std::string& name) const { return Definitions.at(name); }

    EventLog Log;
    Ref<NamespaceDefs> Defs;
    std::map<std::string, Ref<NamespaceDef>> Definitions;
    Ref<TestProvider> Provider;
    Ref<TestProject> Project;
};

/// A definition under the moniker "test"; its item type is the name behind the colon, in lower
/// case, its image that name.
Ref<NamespaceDef> MakeDef(const std::string& name, const std::string& groupCaption = {});

/// A tree, a line a node: indent, text, key in angle brackets, image, then the marks "*" bold, "v"
/// ticked, "+" expanded, "grey".
std::string TreeText(const TreeControl& tree);
/// The same with keys only, and "+" for an expanded node.
std::string TreeShape(const TreeControl& tree);

/// The entries of a collection, joined by blanks.
std::string TextsOf(const TextCollection& texts);

} // namespace paperkite::test

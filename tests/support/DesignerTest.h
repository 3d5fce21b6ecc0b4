#pragma once

#include "designers/DesignerFactory.h"
#include "designers/TagDesignerControl.h"
#include "foundation/CommentDesignerHost.h"
#include "foundation/GlobalConfig.h"
#include "model/XmlCheck.h"
#include "platform/html/HtmlServices.h"
#include "support/ModelServices.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

namespace paperkite::test {

/// Keeps the comments of items as the comment editor does, and writes down what it is told: "+" for
/// a comment that came, "=" for one that changed, "-" for one that went, with the text.
class TestHost : public ICommentDesignerHost {
public:
    void ICommentDesignerHost_TaggedCommentAdded(const Ref<Object>& Item,
                                                 const Ref<TaggedComment>& comment) override {
        Told += "+" + comment->GetText() + ";";
        Of(Item)->Add(comment, comment->GetId());
    }
    void ICommentDesignerHost_TaggedCommentChanged(const Ref<Object>&,
                                                   const Ref<TaggedComment>& comment) override {
        Told += "=" + comment->GetText() + ";";
    }
    void ICommentDesignerHost_TaggedCommentDeleted(const Ref<Object>& Item,
                                                   const Ref<TaggedComment>& comment) override {
        Told += "-" + comment->GetText() + ";";
        Of(Item)->Remove(comment->GetId());
    }
    std::string ICommentDesignerHost_AppName() const override { return "Test"; }
    std::vector<std::string> ICommentDesignerHost_ModuleNames(const std::string&) const override {
        return {};
    }
    std::vector<std::string> ICommentDesignerHost_ProjectNames() const override { return {}; }
    Ref<PageTemplate> ICommentDesignerHost_Template() override { return {}; }
    Ref<NamespaceDef> ICommentDesignerHost_NamespaceDef() const override { return {}; }
    Ref<Object> ICommentDesignerHost_CurrentParentItem() const override { return {}; }
    Ref<Object> ICommentDesignerHost_CurrentItem() const override { return {}; }
    Ref<Object> ICommentDesignerHost_CurrentRootItem() const override { return {}; }
    Ref<Object> ICommentDesignerHost_GetObjectFromQualifiedName(const std::string& name) override {
        const auto found = Items.find(name);
        return found == Items.end() ? Ref<Object>() : found->second;
    }
    CommentType ICommentDesignerHost_CommentType() const override { return {}; }
    bool ICommentDesignerHost_IsDotNet() const override { return false; }
    std::string ICommentDesignerHost_BuildLink(const std::string&, bool, std::string&, bool,
                                               const std::string&, const std::string&,
                                               bool) override {
        return Link;
    }
    std::string ICommentDesignerHost_BaseURL() const override { return {}; }

    static Ref<TaggedCommentCollection> Of(const Ref<Object>& item) {
        return item->Get("TaggedComments").ToObjectOf<TaggedCommentCollection>();
    }
    std::string Take() { return std::exchange(Told, {}); }

    std::string Told;
    std::string Link;
    std::map<std::string, Ref<Object>> Items;
};

/// One designer on the items "zoo" over "zoo~Cat" and "zoo~Dog" over "zoo~Dog~Bark", of which
/// "zoo~Dog" is shown.
template <class Designer>
class DesignerTest : public testing::Test {
protected:
    explicit DesignerTest(const std::string& name) {
        CurrentServices().HTMLDOMFactory = MakeHTMLDOMFactory();
        CurrentServices().CheckXML = &CheckXml;
        mDefinition->TagIdentifier = "##tag";
        mDefinition->DisplayName = "Tag";
        mDefinition->DesignerProgID = "Kite4CommentDesigners." + name;
        GlobalConfig().TaggedCommentDefs->Add(mDefinition);
        mControl = MakeDesigner(mDefinition->DesignerProgID).template As<Designer>();
        mZoo = AddItem("zoo", nullptr);
        mCat = AddItem("zoo~Cat", mZoo);
        mDog = AddItem("zoo~Dog", mZoo);
        mBark = AddItem("zoo~Dog~Bark", mDog);
        mDesigner = mControl->GetObject();
    }
    ~DesignerTest() override {
        EXPECT_EQ(mServices.TakeReports(), "") << "a handler failed";
        // Items hold each other.
        for (const auto& [name, item] : mHost.Items)
            item.template As<TestItem>()->With("Parent", Value());
    }

    Ref<TestItem> AddItem(const std::string& name, const Ref<TestItem>& parent) {
        const auto item = MakeRef<TestItem>(mLog, "ClassElement", name);
        const auto items = MakeRef<ObjectCollection>();
        item->With("Items", Value(Ref<Object>(items))).With("HasItems", Value(false));
        item->With("ProjectFolder", Value("/project"));
        item->With("Parent", Value(Ref<Object>(parent)));
        if (parent) {
            parent->Get("Items").ToObjectOf<ObjectCollection>()->Add(item);
            parent->With("HasItems", Value(true));
        }
        mHost.Items[name] = item;
        return item;
    }

    /// Shows the dog with one comment for each text.
    void Show(const std::vector<std::string>& texts) {
        for (const std::string& text : texts)
            mDog->Comment("##tag", text);
        Refresh();
    }
    void Refresh() {
        const auto comments = TestHost::Of(mDog)->UnDeletedTaggedComments();
        if (mIsShown) return mDesigner->Refresh(mDog, comments, "##tag", {});
        mDesigner->Initialize(mHost, mDog, comments, "##tag", {}, {});
        mIsShown = true;
    }
    /// The texts of the dog's comments, each with ";".
    std::string Texts() const {
        std::string texts;
        for (const auto& comment : *TestHost::Of(mDog))
            texts += comment->GetText() + ";";
        return texts;
    }
    /// What the host was told, and what the dog's comments are, when a text was shown, got the
    /// focus and was left. Where nothing happened to it that is the text with ";".
    std::string AfterLookingAt(const std::string& text) {
        while (TestHost::Of(mDog)->Count() > 0)
            TestHost::Of(mDog)->Remove(TestHost::Of(mDog)->Item(std::size_t(1))->GetId());
        Show({text});
        mDesigner->SetActive(true);
        mDesigner->Call("SetEditFocus", {});
        mDesigner->CommitEdit();
        mDesigner->Deactivate();
        mDesigner->SetActive(false);
        mDesigner->Refresh(mCat, MakeRef<TaggedCommentCollection>(), "##tag", {});
        return mHost.Take() + Texts();
    }

    EventLog mLog;
    ModelServices mServices;
    KeptConfiguration mConfiguration;
    Ref<TaggedCommentDef> mDefinition = MakeRef<TaggedCommentDef>();
    TestHost mHost;
    Ref<TestItem> mZoo;
    Ref<TestItem> mCat;
    Ref<TestItem> mDog;
    Ref<TestItem> mBark;
    Ref<Designer> mControl;
    Ref<CommentDesigner> mDesigner;
    bool mIsShown = false;
};

} // namespace paperkite::test

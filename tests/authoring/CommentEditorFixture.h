#pragma once

#include "authoring/CommentEditor.h"
#include "foundation/Text.h"
#include "model/TemplateParser.h"
#include "platform/html/HtmlServices.h"
#include "support/ModelServices.h"
#include "support/TestModel.h"
#include "widgets/Keys.h"

#include <gtest/gtest.h>

namespace paperkite::test {

/// A comment editor over the test model, and a configuration of five tags: "##" (general, XML
/// summary), "#remarks" (XML remarks), "#note" (no XML), "#tab" (with a tab that no designer
/// serves), "#todo" (a flag).
class CommentEditorFixture : public testing::Test {
protected:
    CommentEditorFixture() {
        CurrentServices().HTMLDOMFactory = MakeHTMLDOMFactory();
        CurrentServices().CreateParserTemplate = [] { return MakeRef<TemplateParser>(); };
        Define("##", "Description").IsGeneral = true;
        Tag("##").XMLTags = "summary,para";
        Define("#remarks", "Remarks").XMLTags = "remarks,note";
        Define("#note", "Note");
        Define("#tab", "Tab").TabName = "The tab";
        Tag("#tab").GroupName = "Texts";
        Tag("#tab").DesignerProgID = "{None}";
        Define("#todo", "To do").TagType = "f";
        Tag("#todo").XMLTags = "todo";
        mItem = mModel.Item("P~A");
        LogEvents();
    }
    ~CommentEditorFixture() override { mEditor.Terminate(); }

    TaggedCommentDef& Define(const std::string& tag, const std::string& displayName) {
        const auto definition = MakeRef<TaggedCommentDef>();
        definition->TagIdentifier = tag;
        definition->DisplayName = displayName;
        definition->Namespaces = "Test:Class,Test:Method";
        GlobalConfig().TaggedCommentDefs->Add(definition);
        return *definition;
    }
    TaggedCommentDef& Tag(const std::string& tag) {
        return *GlobalConfig().TaggedCommentDefs->Find(tag);
    }
    void Load(const std::string& name = "P~A") {
        mItem = mModel.Item(name);
        mEditor.Load(mModel.Def(mItem->DefinitionName), mItem, mModel.Provider->Root);
        mLog.Take();
    }

    /// The rows of the tag list, a row "caption=value", headers in brackets, offers with "+".
    std::string Rows() {
        std::string rows;
        for (const auto& row : *mEditor.prpTags) {
            if (!rows.empty()) rows += " ";
            if (row->IsHeader())
                rows += "[" + row->GetCaption() + "]";
            else
                rows += row->GetCaption() + (row->GetReadOnly() ? "+" : "=" + row->GetValue());
        }
        return rows;
    }
    Ref<PropertyItem> Offer(const std::string& tag) {
        for (const auto& row : *mEditor.prpTags)
            if (row->GetReadOnly() && row->GetCaption() == tag) return row;
        return {};
    }
    std::string SelectedRow() {
        const auto row = mEditor.prpTags->GetSelectedItem();
        return row ? row->GetCaption() + (row->GetReadOnly() ? "+" : "") : "nothing";
    }
    std::string Buttons() {
        std::string shown;
        for (int position = 1; position <= mEditor.prpTags->GetButtonCount(); ++position)
            if (mEditor.prpTags->GetButton(position).Visible)
                shown += mEditor.prpTags->GetButton(position).Key;
        return shown;
    }
    Ref<CheckBox> FlagBox(const std::string& tag) {
        const auto frame =
            mEditor.eb->GetGroup("flags")->Item("checkboxcontainer")->GetControl().As<Container>();
        if (frame)
            for (const auto& control : frame->Controls)
                if (control->GetTag() == tag) return control.As<CheckBox>();
        return {};
    }

    ModelServices mServices;
    KeptConfiguration mConfiguration;
    TestModel mModel;
    EventLog mLog;
    CommentEditor mEditor;
    Ref<TestItem> mItem;

private:
    static std::string Described(const TaggedComment& comment) {
        return comment.GetTagIdentifier() + "/" + comment.GetQualifier() + "/" +
               comment.GetXMLCommentType() + "/" + std::to_string(comment.GetState());
    }
    void LogEvents() {
        auto& events = mEditor.Events;
        mLog.Keep(events.TaggedCommentAdded.Connect([this](const auto&, const auto& comment) {
            mLog.Add("added(" + Described(*comment) + ")");
        }));
        mLog.Keep(events.TaggedCommentChanged.Connect(
            [this](const auto&, const auto& comment, const std::string& key) {
                mLog.Add("changed(" + key + "," + comment->GetText() + ")");
            }));
        mLog.Keep(events.TaggedCommentDeleted.Connect(
            [this](const auto&, const auto& comment, const std::string& key) {
                mLog.Add("deleted(" + key + "," + std::to_string(comment->GetState()) + ")");
            }));
        mLog.Keep(events.DirtyStateChanged.Connect(
            [this] { mLog.Add(mEditor.GetDirty() ? "dirty" : "clean"); }));
    }
};

} // namespace paperkite::test

#include "host/Commands.h"

#include "foundation/GlobalConfig.h"
#include "foundation/Text.h"
#include "host/NearestNames.h"
#include "host/TagName.h"

#include <nlohmann/json.hpp>

#include <ostream>

namespace paperkite {

namespace {

using Json = nlohmann::ordered_json;

/// The definition that a user means: its identifier, with or without "#" signs, or its name.
Ref<TaggedCommentDef> FindTag(const std::string& wanted) {
    const auto& definitions = *GlobalConfig().TaggedCommentDefs;
    if (const auto exact = definitions.Find(wanted)) return exact;
    const auto bare = [](const std::string& tag) {
        const auto from = tag.find_first_not_of('#');
        return from == std::string::npos ? tag : tag.substr(from);
    };
    for (const auto& definition : definitions)
        if (EqualIgnoringCase(definition->DisplayName, wanted) ||
            EqualIgnoringCase(bare(definition->TagIdentifier), bare(wanted)))
            return definition;
    return {};
}

std::string UnknownTag(const std::string& wanted) {
    NearestNames nearest(wanted);
    std::vector<std::string> all;
    for (const auto& definition : *GlobalConfig().TaggedCommentDefs) {
        nearest.Offer(definition->TagIdentifier);
        nearest.Offer(definition->DisplayName);
        all.push_back(definition->TagIdentifier);
    }
    const auto best = nearest.Best(2);
    return "There is no tag \"" + wanted + "\". " +
           (best.empty() ? "The tags are " + Join(all, ", ") + "."
                         : "Did you mean " + Join(best, " or ") + "?");
}

/// Works on one item as an author would: through the rows and buttons of the editor.
class ItemEditing {
public:
    ItemEditing(Workspace& workspace, const TaggedCommentDef& definition)
        : mEditor(workspace.GetEditor().cEditor), mDefinition(definition) {}

    /// False when the tag does not apply to the item.
    bool Write(const std::string& text, bool another) {
        if (mDefinition.TagType == "f") return Tick(true);
        if (!mDefinition.TabName.empty()) return HasTab() && WriteAsDesigner(text, another);
        ShowList();
        const auto row = another ? Ref<PropertyItem>() : FindRow(false);
        if (!row && !BeginNew()) return false;
        if (row) {
            mEditor.prpTags->SetSelectedItem(row);
            mEditor.prpTags->BeginEdit();
        }
        mEditor.prpTags->UserType(text);
        mEditor.CommitEdit();
        return true;
    }

    std::size_t DeleteAll() {
        if (mDefinition.TagType == "f") return IsTicked() && Tick(false) ? 1 : 0;
        if (!mDefinition.TabName.empty()) return DeleteAsDesigner();
        ShowList();
        std::size_t count = 0;
        for (auto row = FindRow(false); row; row = FindRow(false), ++count) {
            mEditor.prpTags->SetSelectedItem(row);
            mEditor.prpTags->UserClickButton("DeleteButton");
        }
        return count;
    }

private:
    bool HasTab() const {
        for (const auto& group : mEditor.eb->GetGroups())
            if (group->Find(mDefinition.TagIdentifier)) return true;
        return false;
    }

    /// The comments of the tag, in order.
    std::vector<Ref<TaggedComment>> Comments() const {
        std::vector<Ref<TaggedComment>> found;
        const auto comments = mEditor.GetTaggedComments()->UnDeletedTaggedComments();
        for (const auto& comment : *comments)
            if (EqualIgnoringCase(comment->GetTagIdentifier(), mDefinition.TagIdentifier))
                found.push_back(comment);
        return found;
    }

    /// A tag with a tab has no row: its text goes the way of the designers.
    bool WriteAsDesigner(const std::string& text, bool another) {
        ICommentDesignerHost& host = mEditor;
        const auto item = mEditor.GetCurrentCodeElement();
        const auto comments = Comments();
        if (!another && !comments.empty()) {
            comments.front()->SetText(text);
            host.ICommentDesignerHost_TaggedCommentChanged(item, comments.front());
            return true;
        }
        const auto comment = MakeRef<TaggedComment>();
        comment->SetTagIdentifier(mDefinition.TagIdentifier);
        comment->SetText(text);
        comment->SetItem(item);
        host.ICommentDesignerHost_TaggedCommentAdded(item, comment);
        return true;
    }

    std::size_t DeleteAsDesigner() {
        ICommentDesignerHost& host = mEditor;
        const auto comments = Comments();
        for (const auto& comment : comments)
            host.ICommentDesignerHost_TaggedCommentDeleted(mEditor.GetCurrentCodeElement(),
                                                           comment);
        return comments.size();
    }

    /// Tags without a tab are written in the list, which need not be what is shown.
    void ShowList() {
        for (const auto& group : mEditor.eb->GetGroups())
            if (const auto item = group->Find("other"); item && !item->GetSelected())
                mEditor.eb->UserClick(item);
    }

    bool BeginNew() {
        const auto offer = FindRow(true);
        if (!offer) return false;
        mEditor.prpTags->SetSelectedItem(offer);
        mEditor.prpTags->UserClickButton("AddButton");
        return true;
    }

    Ref<PropertyItem> FindRow(bool offer) const {
        for (const auto& row : *mEditor.prpTags)
            if (!row->IsHeader() && row->GetReadOnly() == offer &&
                EqualIgnoringCase(row->GetCaption(), mDefinition.TagIdentifier))
                return row;
        return {};
    }

    bool IsTicked() const {
        const auto row = mEditor.prpFlags->Find(mDefinition.TagIdentifier);
        return row && row->GetChecked();
    }

    bool Tick(bool value) {
        const auto row = mEditor.prpFlags->Find(mDefinition.TagIdentifier);
        if (!row) return false;
        row->SetChecked(value);
        return true;
    }

    CommentEditor& mEditor;
    const TaggedCommentDef& mDefinition;
};

Json CommentAsJson(const TaggedComment& comment) {
    return {{"id", comment.GetId()},
            {"tag", comment.GetTagIdentifier()},
            {"name", TagName(comment.GetTagIdentifier())},
            {"qualifier", comment.GetQualifier()},
            {"text", comment.GetText()}};
}

void PrintComment(const TaggedComment& comment, std::ostream& out) {
    out << TagName(comment.GetTagIdentifier()) << " (" << comment.GetTagIdentifier() << ")\n";
    if (comment.GetText().empty()) return;
    out << "    " << ReplaceAll(comment.GetText(), "\n", "\n    ") << '\n';
}

} // namespace

int RunComments(const CommandTarget& target, Output& output) {
    const auto workspace = OpenWorkspace(target.Project, output);
    if (!workspace) return 2;
    const auto name = FindTarget(*workspace, target, output);
    if (!name) return 2;
    const auto item = workspace->GetSession().GetProvider()->GetItem(*name);
    const auto comments = item->Get("TaggedComments").ToObjectOf<TaggedCommentCollection>();
    if (output.Json) {
        Json list = Json::array();
        for (const auto& comment : *comments)
            list.push_back(CommentAsJson(*comment));
        const Json json{{"qualifiedName", *name}, {"comments", std::move(list)}};
        output.Out << json.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
        return 0;
    }
    if (comments->Count() == 0) output.Out << *name << " has no comments yet.\n";
    for (const auto& comment : *comments)
        PrintComment(*comment, output.Out);
    return 0;
}

int CommentCommand::Run(const CommandTarget& target, Output& output) const {
    const auto definition = FindTag(Tag);
    if (!definition) return output.Fail(UnknownTag(Tag));
    if (!Delete && !HasText && definition->TagType != "f")
        return output.Fail("Say what to write with --text, or --delete.");
    return WorkAlone(target.Project, output, [&](Workspace& workspace) {
        return Write(workspace, *definition, target, output);
    });
}

int CommentCommand::Write(Workspace& workspace, const TaggedCommentDef& definition,
                          const CommandTarget& target, Output& output) const {
    const auto name = FindTarget(workspace, target, output);
    if (!name) return 2;
    if (!workspace.Select(*name)) return output.Fail("The tree does not show \"" + *name + "\".");
    ItemEditing editing(workspace, definition);
    if (Delete) {
        const std::size_t count = editing.DeleteAll();
        if (count == 0)
            return output.Fail(*name + " has no comment \"" + definition.DisplayName + "\".");
        output.Out << "Deleted " << count << (count == 1 ? " comment" : " comments") << " of "
                   << *name << ".\n";
    } else {
        if (!editing.Write(Text, Add))
            return output.Fail(
                "\"" + definition.DisplayName + "\" does not apply to a " +
                workspace.GetSession().GetProvider()->GetItem(*name)->Get("Kind").ToText() + ".");
        output.Out << "Wrote \"" << definition.DisplayName << "\" of " << *name << ".\n";
    }
    if (const auto problem = workspace.Save()) return output.Fail(problem->Message());
    return 0;
}

} // namespace paperkite

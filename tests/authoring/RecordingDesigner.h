#pragma once

#include "foundation/CommentDesigner.h"
#include "foundation/CommentDesignerHost.h"
#include "foundation/Text.h"
#include "support/EventLog.h"
#include "widgets/DesignerControl.h"

#include <functional>
#include <string>
#include <utility>

namespace paperkite::test {

/// Writes down what its host calls, and does nothing else unless a test says so.
class RecordingDesigner : public CommentDesigner {
public:
    RecordingDesigner(std::string name, EventLog& log) : mName(std::move(name)), mLog(log) {}

    void SetActive(bool value) override { Told(value ? "Active(True)" : "Active(False)"); }
    void Initialize(ICommentDesignerHost& host, const Ref<Object>& element,
                    const Ref<TaggedCommentCollection>& comments, const std::string& tag,
                    const std::string& reserved, const Ref<DataCells>& cells) override {
        Host = &host;
        Cells = cells;
        Shown = comments;
        Told("Initialize(" + Described(element, *comments, tag) + reserved + ")");
    }
    void Refresh(const Ref<Object>& element, const Ref<TaggedCommentCollection>& comments,
                 const std::string& tag, const std::string& reserved) override {
        Shown = comments;
        Told("Refresh(" + Described(element, *comments, tag) + reserved + ")");
    }
    void Detach(const Ref<DataCells>& cells) override { Told(cells ? "Detach(cells)" : "Detach"); }
    void CommitEdit() override { Told("CommitEdit"); }
    void SpellCheck(const Ref<Object>& spell, bool& cancel) override {
        Told(std::string("SpellCheck(") + (spell ? spell->TypeName() : "nothing") + ")");
        cancel = cancel || CancelsSpellCheck;
    }
    void SetSpellObject(const Ref<Object>& spell) override {
        Told(std::string("SetSpellObject(") + (spell ? spell->TypeName() : "nothing") + ")");
    }
    bool QueryCapability(const std::string& name) override {
        return ContainsIgnoringCase(Capabilities, name);
    }
    void BindToWrapper(const Ref<Object>& wrapper) override {
        Told(std::string("BindToWrapper(") + (wrapper ? wrapper->TypeName() : "nothing") + ")");
    }
    void Deactivate() override { Told("Deactivate"); }
    Value Call(std::string_view member, const std::vector<Value>& arguments) override {
        std::string text;
        for (const Value& argument : arguments)
            text += (text.empty() ? "(" : ",") + argument.ToText();
        Told(std::string(member) + text + (text.empty() ? "" : ")"));
        return {};
    }

    /// Runs behind each call, with its text; may raise.
    std::function<void(const std::string&)> OnCall;
    std::string Capabilities;
    bool CancelsSpellCheck = false;
    ICommentDesignerHost* Host = nullptr;
    Ref<DataCells> Cells;
    Ref<TaggedCommentCollection> Shown;

private:
    static std::string Described(const Ref<Object>& element,
                                 const TaggedCommentCollection& comments, const std::string& tag) {
        std::string text =
            (element ? element->Get("QualifiedName").ToText() : "nothing") + "," + tag;
        for (const auto& comment : comments)
            text += "," + comment->GetText();
        return text;
    }
    void Told(const std::string& call) {
        mLog.Add(mName + "." + call);
        if (OnCall) OnCall(call);
    }

    std::string mName;
    EventLog& mLog;
};

class RecordingDesignerControl : public DesignerControl {
public:
    RecordingDesignerControl(const std::string& name, EventLog& log)
        : DesignerControl(name), Designer(MakeRef<RecordingDesigner>(name, log)) {}
    Ref<CommentDesigner> GetObject() override { return Designer; }
    Ref<HtmlEdit> GetEditor() const override { return Editor; }

    Ref<RecordingDesigner> Designer;
    Ref<HtmlEdit> Editor;
};

} // namespace paperkite::test

#pragma once

#include "authoring/CommentEditorFixture.h"
#include "foundation/KiteProject.h"

#include <functional>
#include <string>
#include <utility>

namespace paperkite::test {

/// The place of a comment as it stands in a layout.
inline std::string PlaceTag(const std::string& item, const std::string& tag,
                            const std::string& text = {}) {
    return "<!--KITEMETADATA start type=\"place\" item=\"" + item + "\" tag=\"" + tag + "\"-->" +
           text + "<!--KITEMETADATA end-->";
}

/// Makes the places of pages: spans while a page is edited, otherwise only their texts.
class PageData : public TestDataProvider {
public:
    PageData(TestModel& model, EventLog& log) : TestDataProvider(log), mModel(model), mLog(log) {}

    void Set(std::string_view member, const Value& value) override {
        if (member == "ForEdit") ForEdit = value.ToBoolean();
        const bool isNothing = value.IsObject() && !value.ToObject();
        mLog.Add(std::string(member) + "=" +
                 (isNothing          ? "nothing"
                  : value.IsObject() ? value.ToObject()->Get("QualifiedName").ToText()
                                     : value.ToText()));
    }
    Value Call(std::string_view member, const std::vector<Value>& arguments) override {
        const auto item = arguments.at(1).ToObject();
        mLog.Add(std::string(member) + "(" + arguments.at(0).ToObjectOf<NamespaceDef>()->Name +
                 "," + (item ? item->Get("QualifiedName").ToText() : "nothing") + "," +
                 arguments.at(2).ToText() + "," +
                 (arguments.at(3).ToObject() ? "parent" : "nothing") + ")");
        if (OnPrepare) OnPrepare();
        return {};
    }
    std::string ProvideData(const Ref<ParserElement>& element, const Ref<FileSystem>&) override {
        const auto attribute = [&](const char* name) {
            return element->Attributes.Contains(name) ? element->Attributes.Item(name)->Value
                                                      : std::string();
        };
        if (attribute("type") != "place") return {};
        const std::string item = attribute("item");
        const std::string tag = attribute("tag");
        std::string text = element->Text;
        const auto owner = mModel.Provider->Items.find(item);
        if (owner != mModel.Provider->Items.end())
            if (const auto comment = mHelper.FindTaggedComment(owner->second->Comments(), tag))
                text = comment->GetText();
        if (!ForEdit) return text;
        return "<span id=\"TaggedComment|" + item + "|" + tag + "\" contenteditable=\"true\">" +
               text + "</span>";
    }

    bool ForEdit = false;
    std::function<void()> OnPrepare;

private:
    TestModel& mModel;
    EventLog& mLog;
    ModelControlHelper mHelper;
};

/// A comment editor with a template of two layouts, "class.html" for classes and "method.html" for
/// methods, and the real parser and documents.
class PageFixture : public CommentEditorFixture {
protected:
    PageFixture() {
        GlobalConfig().ApplicationDataFolder = "/data";
        mModel.Provider->Data = mData;
        for (const char* level : {"Test:Project", "Test:Class"})
            mModel.Def(level)->GetChildDefs()->SetName("kite.test");
        mTemplate->Name = "Plain";
        mTemplate->Folder = "/templates/plain";
        for (const char* moniker : {"kite.test", "test"}) {
            const auto served = MakeRef<TemplateNamespace>();
            served->Moniker = moniker;
            mTemplate->Namespaces.push_back(served);
        }
        AddLayout("class.html", "Test:Class");
        AddLayout("method.html", "Test:Method");
        GlobalConfig().Templates.Add(mTemplate);
        mEditor.SetKiteProject(mModel.Project);
    }
    ~PageFixture() override { mEditor.Terminate(); }

    void AddLayout(const std::string& file, const std::string& namespaces) {
        const auto layout = MakeRef<PageLayout>();
        layout->Name = file;
        layout->FileName = file;
        layout->Namespaces = namespaces;
        mTemplate->PageLayouts->Add(layout);
    }
    void Write(const std::string& file, const std::string& body) {
        WriteWhole(file, "<html><head></head><body>" + body + "</body></html>");
    }
    void WriteWhole(const std::string& file, const std::string& text) {
        mServices.Files->Texts[mTemplate->Folder + "\\" + file] = text;
    }
    InPlaceEditor& Page() { return *mEditor.InPlaceEditor; }
    HtmlEdit& Widget() { return *Page().GetEditControl(); }
    Ref<HTMLElement> Span(const std::string& item, const std::string& tag) {
        return Widget().GetDocument()->All("TaggedComment|" + item + "|" + tag);
    }
    /// What the author makes of a place.
    void Type(const std::string& item, const std::string& tag, const std::string& html) {
        const auto& places = Widget().GetPlaces();
        for (std::size_t place = 0; place < places.size(); ++place)
            if (places[place]->GetId() == "TaggedComment|" + item + "|" + tag)
                return Widget().UserSpanChanged(place, html);
        ADD_FAILURE() << "no place for " << tag << " of " << item;
    }
    std::string Body() { return Widget().GetDocument()->GetBody()->GetInnerHTML(); }
    void ShowView(const std::string& key) {
        for (std::size_t position = 1; position <= Page().FlatStrip->Count(); ++position)
            if (Page().FlatStrip->Item(position)->Key == key)
                return Page().FlatStrip->UserClick(position);
        ADD_FAILURE() << "no tab " << key;
    }
    static std::size_t CountOf(const std::string& text, const std::string& part) {
        std::size_t count = 0;
        for (std::size_t at = text.find(part); at != std::string::npos;
             at = text.find(part, at + 1))
            ++count;
        return count;
    }

    EventLog mPageLog;
    Ref<PageData> mData = MakeRef<PageData>(mModel, mPageLog);
    Ref<PageTemplate> mTemplate = MakeRef<PageTemplate>();
};

} // namespace paperkite::test

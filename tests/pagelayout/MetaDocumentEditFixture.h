#pragma once

#include "pagelayout/PageLayoutFixture.h"
#include "pagelayout/frmEditMetaSpan.h"

#include <functional>
#include <string>
#include <vector>

namespace paperkite::test {

inline const std::string kNameTag =
    "<!--KITEMETADATA start type=\"property\" name=\"name\"-->name<!--KITEMETADATA end-->";
inline const std::string kKindTag =
    "<!--KITEMETADATA start type=\"property\" name=\"kind\"-->kind<!--KITEMETADATA end-->";

/// The control without a view: its editor's gestures stand for what happens on the page, and an
/// author who is told what to do sits before the dialog.
class MetaDocumentEditFixture : public PageLayoutFixture, public DockHostObserver {
protected:
    MetaDocumentEditFixture() {
        auto definition = MakeRef<ElementDef>();
        definition->Name = "property";
        definition->Description = "A property of the item.";
        auto attribute = MakeRef<AttributeDef>();
        attribute->Name = "name";
        attribute->Required = true;
        definition->AttributeDefs.Add(attribute, "name");
        mTemplate->Namespaces.front()->ElementDefs.Add(definition, "property");
        mEdit.Initialize();
        mTies.push_back(mEdit.Events.Change.Connect([this] { mLog += "Change;"; }));
        mTies.push_back(mEdit.Events.PropertyChanged.Connect(
            [this](const std::string& name) { mLog += "PropertyChanged " + name + ";"; }));
        mTies.push_back(mEdit.dksUI->Observe(*this));
        Form::SetDefaultRunner([this](Form& form, FormMode mode) {
            EXPECT_EQ(mode, FormMode::Modal);
            ++mDialogs;
            if (mAuthor) mAuthor(dynamic_cast<frmEditMetaSpan&>(form));
        });
    }
    ~MetaDocumentEditFixture() override { Form::SetDefaultRunner({}); }

    void MenuWanted(DockCommand& popup, int x, int y) override {
        mMenus += popup.GetName() + "@" + std::to_string(x) + "," + std::to_string(y) + ";";
    }

    static std::string Page(const std::string& body) {
        return "<html><head><title>T</title></head><body>" + body + "</body></html>";
    }
    void Open(const std::string& body) { mEdit.SetDocumentHTML(Page(body)); }
    /// The body of a layout without the lines and indents that tidying makes.
    static std::string BodyOf(const std::string& html) {
        const std::size_t from = html.find("<body>") + 6;
        std::string joined;
        for (const std::string& line : Split(html.substr(from, html.find("</body>") - from), "\n"))
            joined += TrimWhiteSpace(line);
        return joined;
    }
    std::string Body() { return BodyOf(mEdit.GetDocumentHTML()); }
    /// What the editor holds.
    std::string Shown() const { return mEdit.dedDocument->GetDocumentHTML(); }
    std::string Tab() const { return mEdit.fstView->GetSelectedTab()->Key; }

    Ref<HTMLElement> Element(const std::string& id) const {
        return mEdit.dedDocument->GetDocument()->All(id);
    }
    void Point(const std::string& id) { mEdit.dedDocument->UserPoint(Element(id)); }
    void PointAtSpan(int number) { Point("metaspanstart" + std::to_string(number)); }
    /// What the page reports of an element; true where nothing else is to happen.
    bool Report(int id, const Ref<HTMLElement>& source) {
        auto info = MakeRef<HtmlElementEvent>();
        info->SourceElement = source;
        info->ScreenX = 3;
        info->ScreenY = 4;
        return mEdit.dedDocument->UserElementEvent(id, info);
    }

    static void Confirm(frmEditMetaSpan& form) { form.cmdOK->UserClick(); }
    static void Cancel(frmEditMetaSpan& form) { form.cmdCancel->UserClick(); }
    static void SetRow(frmEditMetaSpan& form, const std::string& row, const std::string& value) {
        form.ctlBuilder->prpProperties->Item(row)->SetValue(value);
    }
    static void Choose(frmEditMetaSpan& form, const std::string& element) {
        const auto& tree = form.ctlBuilder->tvwElements;
        tree->UserClick(tree->Nodes.Item("E:" + element));
    }
    /// Chooses the property "name" and leaves the dialog with OK.
    static void AddName(frmEditMetaSpan& form) {
        Choose(form, "property");
        SetRow(form, "name", "name");
        form.SetText("name");
        Confirm(form);
    }
    static void MakeKind(frmEditMetaSpan& form) {
        SetRow(form, "name", "kind");
        form.SetText("kind");
        Confirm(form);
    }
    std::string TakeLog() { return std::exchange(mLog, {}); }
    std::string TakeMenus() { return std::exchange(mMenus, {}); }
    std::string Reports() { return mServices.TakeReports(); }

    std::function<void(frmEditMetaSpan&)> mAuthor;
    int mDialogs = 0;

private:
    std::string mLog;
    std::string mMenus;
    std::vector<Connection> mTies;
};

} // namespace paperkite::test

#include "designers/dsrExampleSource.h"

#include "commenttexts/PlainText.h"
#include "designers/ItemTree.h"
#include "foundation/Services.h"
#include "foundation/Text.h"

#include <algorithm>

namespace paperkite {

namespace {

bool IsWholePath(const std::string& path) {
    return path.starts_with('/') || (path.size() > 1 && path[1] == ':');
}

std::size_t LineNumber(const std::string& text, std::size_t otherwise) {
    const double number = LeadingNumber(text);
    return number >= 1 && number < 1e9 ? static_cast<std::size_t>(number) : otherwise;
}

/// A path below or beside the folder as seen from there; others stay whole.
std::string SeenFrom(const std::string& folder, const std::string& path) {
    std::string base = folder;
    std::string up;
    for (int step = 0; step < 8 && base.size() > 1; ++step) {
        if (path.starts_with(base + "/")) return up + path.substr(base.size() + 1);
        base.resize(std::min(base.size(), base.rfind('/') == base.npos ? 0 : base.rfind('/')));
        up += "../";
    }
    return path;
}

} // namespace

dsrExampleSource::dsrExampleSource(std::string name)
    : FieldsDesigner(std::move(name), Several::Offered), txtFile(Field<TextBox>("txtFile")),
      cmdBrowse(Field<Button>("cmdBrowse")), optWhole(Field<OptionButton>("optWhole")),
      optLines(Field<OptionButton>("optLines")), txtFrom(Field<TextBox>("txtFrom")),
      txtTo(Field<TextBox>("txtTo")), optRegion(Field<OptionButton>("optRegion")),
      cboRegion(Field<ComboBox>("cboRegion")), txtCaption(Field<TextBox>("txtCaption")),
      txtCode(Field<CodeBox>("txtCode")), lblMessage(Field<Label>("lblMessage")) {
    txtFile->SetPlaceholderText("examples/count.cpp");
    cmdBrowse->SetCaption("&Browse…");
    cmdBrowse->SetToolTipText("Choose a source file");
    optWhole->SetCaption("&Whole file");
    optLines->SetCaption("&Lines");
    txtFrom->SetAccessibleName("First line");
    txtTo->SetAccessibleName("Last line");
    optRegion->SetCaption("&Region");
    cboRegion->SetEditable(true);
    cboRegion->SetAccessibleName("Region");
    txtCaption->SetPlaceholderText("What the example shows");
    txtCode->SetLocked(true);
    txtCode->SetAccessibleName("The example as it stands in the file");
    txtCode->SetPlaceholderText("The example is shown here.");
    lblMessage->SetWordWrap(true);
    MakeLayout();
    Connect();
}

void dsrExampleSource::MakeLayout() {
    const auto label = [&](const char* name, const char* caption) {
        const auto made = Field<Label>(name);
        made->SetCaption(caption);
        return FormLayout::Item(made);
    };
    SetFields(FormLayout::Column(
        {FormLayout::Row({label("lblFile", "&File:"), FormLayout::Item(txtFile, 1),
                          FormLayout::Item(cmdBrowse)}),
         FormLayout::Row({FormLayout::Item(optWhole), FormLayout::Item(optRegion),
                          FormLayout::Item(cboRegion, 3), FormLayout::Item(optLines),
                          FormLayout::Item(txtFrom, 1), label("lblTo", "to"),
                          FormLayout::Item(txtTo, 1)}),
         FormLayout::Row({label("lblCaption", "&Caption:"), FormLayout::Item(txtCaption, 1)}),
         FormLayout::Item(txtCode, 1), FormLayout::Item(lblMessage)},
        1));
}

void dsrExampleSource::Connect() {
    using Part = ExampleReference::Part;
    On(txtFile->Events.Change, "txtFile_Change", [this] { FieldTyped(); });
    On(txtCaption->Events.Change, "txtCaption_Change", [this] { FieldTyped(); });
    On(txtFrom->Events.Change, "txtFrom_Change", [this] { FieldTyped(); });
    On(txtTo->Events.Change, "txtTo_Change", [this] { FieldTyped(); });
    On(cboRegion->Events.Change, "cboRegion_Change", [this] { FieldTyped(); });
    On(cboRegion->Events.Click, "cboRegion_Click", [this] { FieldTyped(); });
    On(optWhole->Events.Click, "optWhole_Click", [this] { PartChosen(Part::Whole); });
    On(optLines->Events.Click, "optLines_Click", [this] { PartChosen(Part::Lines); });
    On(optRegion->Events.Click, "optRegion_Click", [this] { PartChosen(Part::Region); });
    On(cmdBrowse->Events.Click, "cmdBrowse_Click", [this] { cmdBrowse_Click(); });
}

bool dsrExampleSource::ShowFields(const std::optional<std::string>& text) {
    const auto reference = ExampleReference::Read(text.value_or(std::string()));
    if (!reference) return false;
    mReference = *reference;
    txtFile->SetText(mReference.File);
    txtCaption->SetText(mReference.Caption);
    txtFrom->SetText(std::to_string(mReference.From));
    txtTo->SetText(std::to_string(mReference.To));
    ReadSource();
    optWhole->SetValue(mReference.Taken == ExampleReference::Part::Whole);
    optLines->SetValue(mReference.Taken == ExampleReference::Part::Lines);
    optRegion->SetValue(mReference.Taken == ExampleReference::Part::Region);
    ShowExample();
    return true;
}

std::optional<std::string> dsrExampleSource::FieldsText() const {
    const std::string text = mReference.Write();
    return text.empty() ? std::nullopt : std::optional(text);
}

void dsrExampleSource::FieldTyped() {
    if (IsShowing()) return;
    const std::string file = PlainText::OneLine(ReplaceAll(txtFile->GetText(), "\\", "/"));
    const bool isOtherFile = file != mReference.File;
    mReference.File = file;
    mReference.Caption = TrimWhiteSpace(txtCaption->GetText());
    mReference.From = LineNumber(txtFrom->GetText(), 1);
    mReference.To = std::max(mReference.From, LineNumber(txtTo->GetText(), mReference.From));
    mReference.Region = PlainText::OneLine(cboRegion->GetText());
    if (isOtherFile) ReadSource();
    ShowExample();
    FieldsChanged();
}

void dsrExampleSource::PartChosen(ExampleReference::Part part) {
    if (IsShowing()) return;
    mReference.Taken = part;
    ShowExample();
    FieldsChanged();
}

void dsrExampleSource::cmdBrowse_Click() {
    if (!CurrentServices().CreateFolderBrowser) return;
    const auto browser = CurrentServices().CreateFolderBrowser();
    browser->SetFolderMode(false);
    browser->SetTitle("Choose the file of the example");
    browser->SetStartFolder(Folder());
    const std::string chosen = browser->Run();
    if (!chosen.empty()) txtFile->SetText(SeenFrom(Folder(), chosen));
}

void dsrExampleSource::Activated(bool active) {
    if (!active || !pnlFields->GetVisible()) return;
    ReadSource();
    ShowExample();
}

std::string dsrExampleSource::Folder() const {
    return GetElement() ? TextOfItem(GetElement(), "ProjectFolder") : std::string();
}

std::string dsrExampleSource::WholePath() const {
    if (mReference.File.empty() || IsWholePath(mReference.File)) return mReference.File;
    const std::string folder = Folder();
    return folder.empty() ? std::string() : folder + "/" + mReference.File;
}

void dsrExampleSource::ReadSource() {
    const std::string path = WholePath();
    Follow(path);
    mSource.reset();
    if (!path.empty()) mSource = Required(CurrentServices().FileSystem).ReadFile(path);
    // Filling the list must not count as the author's choice.
    Fill([this] {
        cboRegion->Clear();
        if (mSource)
            for (const std::string& name : RegionsIn(*mSource))
                cboRegion->AddItem(name);
        cboRegion->SetText(mReference.Region);
    });
}

void dsrExampleSource::Follow(const std::string& path) {
    if (path == mFollowedPath) return;
    mFollowedPath = path;
    mFollowed.reset();
    if (path.empty() || !CurrentServices().FollowFile) return;
    mFollowed = CurrentServices().FollowFile(path, [this] {
        Procedure(*this, "FileChanged", [this](Frame&) {
            ReadSource();
            ShowExample();
        });
    });
}

void dsrExampleSource::ShowExample() {
    using Part = ExampleReference::Part;
    txtFrom->SetEnabled(mReference.Taken == Part::Lines);
    txtTo->SetEnabled(mReference.Taken == Part::Lines);
    cboRegion->SetEnabled(mReference.Taken == Part::Region);
    ExampleSnippet snippet;
    if (mSource)
        snippet = TakeExample(mReference, *mSource);
    else if (!mReference.File.empty())
        snippet.Problem = WholePath().empty()
                              ? "Save the project first: files are found from its folder."
                              : "There is no file \"" + mReference.File +
                                    "\". Choose another, or put it back; what is stored stays.";
    txtCode->SetFileName(mReference.File);
    txtCode->SetFirstLine(static_cast<int>(snippet.FirstLine));
    std::string code = snippet.Text;
    if (code.ends_with('\n')) code.pop_back();
    txtCode->SetText(code);
    if (!snippet.Problem.empty() || mReference.File.empty())
        return lblMessage->SetCaption(
            mReference.File.empty()
                ? "Choose a source file, relative to the folder of the project. Pages show what "
                  "stands in it when they are made."
                : snippet.Problem);
    const auto lines = std::count(snippet.Text.begin(), snippet.Text.end(), '\n');
    lblMessage->SetCaption(std::to_string(lines) + (lines == 1 ? " line" : " lines") +
                           ", as the file stands now. Pages follow the file.");
}

} // namespace paperkite

#include "designers/dsrXMLIsland.h"

#include "foundation/ScopeExit.h"
#include "foundation/Services.h"
#include "foundation/Text.h"

namespace paperkite {

dsrXMLIsland::dsrXMLIsland(std::string name)
    : TagDesignerControl(std::move(name), Several::Offered), txtXML(MakeRef<CodeBox>("txtXML")),
      lblState(MakeRef<Label>("lblState")), cmdGoTo(MakeRef<Button>("cmdGoTo")) {
    MakeChooser();
    const auto form = MakeRef<Container>("pnlForm");
    form->Controls.Add(txtXML);
    form->Controls.Add(lblState);
    form->Controls.Add(cmdGoTo);
    txtXML->SetFileName(".xml");
    txtXML->SetAccessibleName("XML");
    txtXML->SetPlaceholderText("<note>…</note>");
    lblState->SetWordWrap(true);
    cmdGoTo->SetCaption("&Go There");
    cmdGoTo->SetToolTipText("Put the caret where the XML is wrong");
    form->SetLayout(FormLayout::Padded(
        {FormLayout::Item(txtXML, 1),
         FormLayout::Row({FormLayout::Item(lblState, 1), FormLayout::Item(cmdGoTo)})}));
    Dock->SetClient(form);
    On(txtXML->Events.Change, "txtXML_Change", [this] {
        Check();
        const std::string& text = txtXML->GetText();
        if (!mShowing) Store(text.empty() ? std::nullopt : std::optional(text));
    });
    On(cmdGoTo->Events.Click, "cmdGoTo_Click", [this] { txtXML->GoToMark(); });
    Check();
}

void dsrXMLIsland::ShowComment() {
    const ScopeExit shown([this] { mShowing = false; });
    mShowing = true;
    txtXML->SetText(StoredText().value_or(std::string()));
    Check();
}

void dsrXMLIsland::Check() {
    const std::string& text = txtXML->GetText();
    const bool isEmpty = TrimWhiteSpace(text).empty();
    std::optional<MarkupProblem> problem;
    if (!isEmpty && CurrentServices().CheckXML) problem = CurrentServices().CheckXML(text);
    txtXML->SetMark(problem ? static_cast<int>(problem->Line) : 0,
                    problem ? static_cast<int>(problem->Column) : 0);
    cmdGoTo->SetVisible(problem.has_value());
    if (problem)
        lblState->SetCaption("Line " + std::to_string(problem->Line) + ", column " +
                             std::to_string(problem->Column) + ": " + problem->What);
    else if (isEmpty)
        lblState->SetCaption("Write or paste XML; it is checked while you type.");
    else
        lblState->SetCaption(CurrentServices().CheckXML ? "The XML is well-formed."
                                                        : "Nothing here can check XML.");
}

} // namespace paperkite

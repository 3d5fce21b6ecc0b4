#include "links/HelpLinkDesigner.h"

#include "foundation/Services.h"
#include "foundation/Text.h"
#include "foundation/Utilities.h"

namespace paperkite {

namespace {

constexpr const char* kHideBuildButtons = "HideBuildButtons";
constexpr std::string_view kHelp1Scheme = "ms-its:";
constexpr std::string_view kHelp1Separator = "::/";
constexpr std::string_view kHelp2Scheme = "ms-help://";
constexpr std::string_view kHelp2Separator = "/";
constexpr const char* kIncompleteHelp1 =
    "You must provide a filename and topic name to create a valid link to a HTML Help 1.x topic";
constexpr const char* kIncompleteHelp2 =
    "You must provide a Namespace, Identifier (File ID) and topic name to create a valid link to a "
    "Help 2.0 topic";

bool IsFilled(const TextBox& field) {
    return !TrimBlanks(field.GetText()).empty();
}

} // namespace

HelpLinkDesigner::HelpLinkDesigner(std::string name) : Container(std::move(name)) {
    MakeControls();
    LayOut();
    zConnect();
    optHelpFileType[0]->SetValue(true);
}

void HelpLinkDesigner::DumpVariables(VariableDump& dump) const {
    dump.Add("mHideBuildButtons", mHideBuildButtons).Add("DotNetXMLFormat", DotNetXMLFormat);
}

void HelpLinkDesigner::MakeControls() {
    const auto field = [this](const char* name, const Ref<Label>& label) {
        auto text = Controls.Make<TextBox>(name);
        text->SetAccessibleName(ReplaceAll(ReplaceAll(label->GetCaption(), "&", ""), ":", ""));
        return text;
    };
    const auto label = [this](const char* name, const char* caption) {
        auto made = Controls.Make<Label>(name);
        made->SetCaption(caption);
        return made;
    };
    optHelpFileType[0] = Controls.Make<OptionButton>("optHelpFileType(0)");
    optHelpFileType[0]->SetCaption("HTML Help 1.x file (.chm)");
    optHelpFileType[1] = Controls.Make<OptionButton>("optHelpFileType(1)");
    optHelpFileType[1]->SetCaption("Help &2.0 file (.hxs)");
    lblFileName = label("lblFileName", "&File Name (without path):");
    txtFileName = field("txtFileName", lblFileName);
    lblHHNamespace = label("lblHHNamespace", "&Namespace:");
    txtHHNamespace = field("txtHHNamespace", lblHHNamespace);
    lblHHIdentifier = label("lblHHIdentifier", "Identifier (File &ID):");
    txtHHIdentifier = field("txtHHIdentifier", lblHHIdentifier);
    for (std::size_t index = 0; index < lblTopic.size(); ++index) {
        const std::string number = "(" + std::to_string(index) + ")";
        lblTopic[index] = label(("lblTopic" + number).c_str(), "&Topic Name:");
        txtTopic[index] = field(("txtTopic" + number).c_str(), lblTopic[index]);
        cmdBuild[index] = Controls.Make<Button>("cmdBuild" + number);
        cmdBuild[index]->SetCaption("Build ...");
    }
}

void HelpLinkDesigner::LayOut() {
    const auto topic = [this](std::size_t index) {
        return FormLayout::Row(
            {FormLayout::Column(
                 {FormLayout::Item(lblTopic[index]), FormLayout::Item(txtTopic[index])}, 1),
             FormLayout::Column({FormLayout::Stretch(), FormLayout::Item(cmdBuild[index])})});
    };
    SetLayout(FormLayout::Column({
        FormLayout::Item(optHelpFileType[0]),
        FormLayout::Item(optHelpFileType[1]),
        FormLayout::Item(lblFileName),
        FormLayout::Item(txtFileName),
        FormLayout::Item(lblHHNamespace),
        FormLayout::Item(txtHHNamespace),
        FormLayout::Item(lblHHIdentifier),
        FormLayout::Item(txtHHIdentifier),
        topic(0),
        topic(1),
        FormLayout::Stretch(),
    }));
}

void HelpLinkDesigner::zConnect() {
    for (std::size_t index = 0; index < optHelpFileType.size(); ++index) {
        mConnections.push_back(optHelpFileType[index]->Events.Click.Connect(
            [this, index] { optHelpFileType_Click(index); }));
        mConnections.push_back(
            cmdBuild[index]->Events.Click.Connect([this, index] { cmdBuild_Click(index); }));
    }
}

std::string HelpLinkDesigner::GethRef() const {
    return Procedure<std::string>(*this, "hRef", [&](std::string& result, Frame&) {
        if (optHelpFileType[0]->GetValue())
            result = std::string(kHelp1Scheme) + txtFileName->GetText() +
                     std::string(kHelp1Separator) + txtTopic[0]->GetText();
        else
            result = std::string(kHelp2Scheme) + txtHHNamespace->GetText() +
                     std::string(kHelp2Separator) + txtHHIdentifier->GetText() +
                     std::string(kHelp2Separator) + txtTopic[1]->GetText();
    });
}

void HelpLinkDesigner::SethRef(const std::string& value) {
    Procedure(*this, "hRef", [&](Frame& frame) {
        Watch watchValue(frame, "value", value);
        // The caller may have read it from one of the fields that are about to be emptied.
        const std::string link = value;
        Clear();
        zSplit(link);
    });
}

void HelpLinkDesigner::zSplit(const std::string& value) {
    if (value.starts_with(kHelp1Scheme)) {
        optHelpFileType[0]->SetValue(true);
        const auto pieces =
            Utilities::SplitToCollection(value.substr(kHelp1Scheme.size()), kHelp1Separator);
        if (pieces.Count() != 2) return;
        txtFileName->SetText(pieces.Item(1));
        txtTopic[0]->SetText(pieces.Item(2));
    } else if (value.starts_with(kHelp2Scheme)) {
        optHelpFileType[1]->SetValue(true);
        const auto pieces =
            Utilities::SplitToCollection(value.substr(kHelp2Scheme.size()), kHelp2Separator);
        if (pieces.Count() != 3) return;
        txtHHNamespace->SetText(pieces.Item(1));
        txtHHIdentifier->SetText(pieces.Item(2));
        txtTopic[1]->SetText(pieces.Item(3));
    }
}

bool HelpLinkDesigner::Validate(bool Silent) const {
    return Procedure<bool>(*this, "Validate", [&](bool& result, Frame& frame) {
        Watch watchSilent(frame, "Silent", Silent);
        const bool isHelp1 = optHelpFileType[0]->GetValue();
        result = isHelp1 ? IsFilled(*txtFileName) && IsFilled(*txtTopic[0])
                         : IsFilled(*txtHHNamespace) && IsFilled(*txtHHIdentifier) &&
                               IsFilled(*txtTopic[1]);
        if (result || Silent) return;
        Required(CurrentServices().MessageBox)
            .Show(isHelp1 ? kIncompleteHelp1 : kIncompleteHelp2, {}, MessageIcon::Warning);
    });
}

void HelpLinkDesigner::Clear() {
    Procedure(*this, "Clear", [&](Frame&) {
        txtFileName->SetText({});
        txtHHIdentifier->SetText({});
        txtTopic[0]->SetText({});
        txtTopic[1]->SetText({});
        txtHHNamespace->SetText({});
        optHelpFileType[0]->SetValue(true);
    });
}

void HelpLinkDesigner::SetHideBuildButtons(bool value) {
    Procedure(*this, "HideBuildButtons", [&](Frame& frame) {
        Watch watchValue(frame, "value", value);
        mHideBuildButtons = value;
        for (const auto& button : cmdBuild)
            button->SetVisible(!value);
    });
}

void HelpLinkDesigner::UserControl_ReadProperties(const PropertyBag& PropBag) {
    Procedure(*this, "UserControl_ReadProperties", [&](Frame&) {
        SetHideBuildButtons(PropBag.ReadProperty(kHideBuildButtons, false).ToBoolean());
    });
}

void HelpLinkDesigner::UserControl_WriteProperties(PropertyBag& PropBag) const {
    Procedure(*this, "UserControl_WriteProperties",
              [&](Frame&) { PropBag.WriteProperty(kHideBuildButtons, mHideBuildButtons); });
}

void HelpLinkDesigner::optHelpFileType_Click(std::size_t Index) {
    Procedure(*this, "optHelpFileType_Click", [&](Frame&) {
        const bool isHelp1 = Index == 0;
        lblFileName->SetVisible(isHelp1);
        txtFileName->SetVisible(isHelp1);
        lblHHNamespace->SetVisible(!isHelp1);
        txtHHNamespace->SetVisible(!isHelp1);
        lblHHIdentifier->SetVisible(!isHelp1);
        txtHHIdentifier->SetVisible(!isHelp1);
        for (std::size_t type = 0; type < lblTopic.size(); ++type) {
            lblTopic[type]->SetVisible(type == Index);
            txtTopic[type]->SetVisible(type == Index);
            cmdBuild[type]->SetVisible(type == Index);
        }
    });
}

void HelpLinkDesigner::cmdBuild_Click(std::size_t Index) {
    Procedure(*this, "cmdBuild_Click", [&](Frame&) {
        const std::string topic = Required(CurrentServices().ControlHelper)
                                      .BuildTopic(txtTopic[Index]->GetText(), DotNetXMLFormat, {});
        if (!topic.empty()) txtTopic[Index]->SetText(topic);
    });
}

} // namespace paperkite

#include "links/MemberLinkDesigner.h"

#include "foundation/Services.h"
#include "foundation/Text.h"

namespace paperkite {

namespace {

constexpr const char* kNoTopic =
    "Please specify the Topic filename you wish to link to, or click Cancel";
// An item type is the position here.
constexpr std::string_view kProfiles[] = {"kite.net", "kite.core", "kite.db", "kite.xsd"};

} // namespace

MemberLinkDesigner::MemberLinkDesigner(std::string name) : Container(std::move(name)) {
    lblTopic = Controls.Make<Label>("lblTopic");
    lblTopic->SetCaption("&Topic Name:");
    txtTopic = Controls.Make<TextBox>("txtTopic");
    txtTopic->SetAccessibleName("Topic Name");
    cmdBuild = Controls.Make<Button>("cmdBuild");
    cmdBuild->SetCaption("Build ...");
    mBuild = cmdBuild->Events.Click.Connect([this] { cmdBuild_Click(); });
    SetLayout(FormLayout::Column({
        FormLayout::Row(
            {FormLayout::Column({FormLayout::Item(lblTopic), FormLayout::Item(txtTopic)}, 1),
             FormLayout::Column({FormLayout::Stretch(), FormLayout::Item(cmdBuild)})}),
        FormLayout::Stretch(),
    }));
}

void MemberLinkDesigner::DumpVariables(VariableDump& dump) const {
    dump.Add("NamespaceProfile", NamespaceProfile)
        .Add("TipPrefix", TipPrefix)
        .Add("DotNetXMLFormat", DotNetXMLFormat);
}

bool MemberLinkDesigner::Validate(bool Silent) const {
    return Procedure<bool>(*this, "Validate", [&](bool& result, Frame& frame) {
        Watch watchSilent(frame, "Silent", Silent);
        result = !TrimBlanks(txtTopic->GetText()).empty();
        if (result || Silent) return;
        Required(CurrentServices().MessageBox).Show(kNoTopic, {}, MessageIcon::Warning);
    });
}

int MemberLinkDesigner::ItemTypeOf(std::string_view profile) {
    int type = 0;
    for (const std::string_view known : kProfiles) {
        if (EqualIgnoringCase(profile, known)) return type;
        ++type;
    }
    return 0;
}

void MemberLinkDesigner::cmdBuild_Click() {
    Procedure(*this, "cmdBuild_Click", [&](Frame&) {
        ControlHelper& helper = Required(CurrentServices().ControlHelper);
        const std::string topic =
            NamespaceProfile.empty()
                ? helper.BuildTopic(txtTopic->GetText(), DotNetXMLFormat, TipPrefix)
                : helper.BuildTopicForType(std::to_string(ItemTypeOf(NamespaceProfile)),
                                           txtTopic->GetText(), DotNetXMLFormat, TipPrefix);
        if (!topic.empty()) txtTopic->SetText(topic);
    });
}

} // namespace paperkite

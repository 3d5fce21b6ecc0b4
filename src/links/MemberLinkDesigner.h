#pragma once

#include "foundation/BulwarkSupport.h"
#include "foundation/Procedure.h"
#include "widgets/Button.h"
#include "widgets/Container.h"
#include "widgets/Label.h"
#include "widgets/TextBox.h"

#include <string>
#include <string_view>

namespace paperkite {

/// A panel that names a topic of the same help file: what is typed is the link.
///
///     auto designer = MakeRef<MemberLinkDesigner>("designer");
///     designer->TipPrefix = "Link to";
///     if (designer->Validate(false)) use(designer->GethRef());
class MemberLinkDesigner : public Container, public Shielded {
public:
    explicit MemberLinkDesigner(std::string name = {});

    const char* ModuleName() const override { return "MemberLinkDesigner"; }
    void DumpVariables(VariableDump& dump) const override;

    /// Chooses the kind of items that the topic picker offers, letter case ignored; empty for all.
    std::string NamespaceProfile;
    /// Passed on to the topic picker.
    std::string TipPrefix;
    bool DotNetXMLFormat = false;

    /// The topic as it was typed.
    const std::string& GethRef() const { return txtTopic->GetText(); }
    /// Whether there is a topic. Tells the author that it is missing, unless Silent.
    bool Validate(bool Silent) const;

    /// The number under which topic pickers know the items of a profile, from 0; an unknown profile
    /// has that of "kite.net", 0.
    static int ItemTypeOf(std::string_view profile);

    // The controls.

    Ref<Label> lblTopic;
    Ref<TextBox> txtTopic;
    Ref<Button> cmdBuild;

private:
    void cmdBuild_Click();

    InstanceCount mInstanceCount{"MemberLinkDesigner", ComponentType::Control};
    Connection mBuild;
};

} // namespace paperkite

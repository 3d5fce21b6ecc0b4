#pragma once

#include "foundation/BulwarkSupport.h"
#include "foundation/Procedure.h"
#include "foundation/PropertyBag.h"
#include "widgets/Button.h"
#include "widgets/Container.h"
#include "widgets/Label.h"
#include "widgets/OptionButton.h"
#include "widgets/TextBox.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace paperkite {

/// A panel that composes a link to a topic of another help file, in one of two forms:
/// "ms-its:FILE::/TOPIC" and "ms-help://NAMESPACE/IDENTIFIER/TOPIC". Nothing is escaped.
///
///     auto designer = MakeRef<HelpLinkDesigner>("designer");
///     designer->SethRef("ms-its:tools.chm::/pages/start.htm");
///     if (designer->Validate(false)) use(designer->GethRef());
class HelpLinkDesigner : public Container, public Shielded {
public:
    explicit HelpLinkDesigner(std::string name = {});

    const char* ModuleName() const override { return "HelpLinkDesigner"; }
    void DumpVariables(VariableDump& dump) const override;

    /// The link as the fields have it, of whatever they lack: empty fields give "ms-its:::/".
    std::string GethRef() const;
    /// Takes a link apart. What is no link of these forms leaves empty fields of the first form; a
    /// known beginning with too few or too many pieces empty fields of that form.
    void SethRef(const std::string& value);
    /// Whether the fields of the chosen form are filled. Tells the author what is missing, unless
    /// Silent.
    bool Validate(bool Silent) const;
    /// Empties all fields and chooses the first form.
    void Clear();

    bool GetHideBuildButtons() const { return mHideBuildButtons; }
    /// Hides or shows both buttons now; choosing a form shows that form's button again.
    void SetHideBuildButtons(bool value);

    /// Passed on to the topic picker.
    bool DotNetXMLFormat = false;

    /// Design properties from and to the host's bag.
    void UserControl_ReadProperties(const PropertyBag& PropBag);
    void UserControl_WriteProperties(PropertyBag& PropBag) const;

    /// For hosts that bind it; the panel asks the topic picker itself and never raises it.
    struct {
        /// HTMLHelpVersion, FileName, H2Namespace, H2Identifier, CurrentTopic, Topic
        Event<std::int32_t, const std::string&, const std::string&, const std::string&,
              const std::string&, std::string&>
            BuildTopicName;
    } Events;

    // The controls; those of the first form have index 0.

    std::array<Ref<OptionButton>, 2> optHelpFileType;
    Ref<Label> lblFileName;
    Ref<TextBox> txtFileName;
    Ref<Label> lblHHNamespace;
    Ref<TextBox> txtHHNamespace;
    Ref<Label> lblHHIdentifier;
    Ref<TextBox> txtHHIdentifier;
    std::array<Ref<Label>, 2> lblTopic;
    std::array<Ref<TextBox>, 2> txtTopic;
    std::array<Ref<Button>, 2> cmdBuild;

private:
    void MakeControls();
    void LayOut();
    void zConnect();
    void optHelpFileType_Click(std::size_t Index);
    void cmdBuild_Click(std::size_t Index);
    void zSplit(const std::string& value);

    InstanceCount mInstanceCount{"HelpLinkDesigner", ComponentType::Control};
    bool mHideBuildButtons = false;
    std::vector<Connection> mConnections;
};

} // namespace paperkite

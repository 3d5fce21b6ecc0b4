#pragma once

#include "commenttexts/ExampleReference.h"
#include "designers/FieldsDesigner.h"
#include "widgets/CodeBox.h"
#include "widgets/ComboBox.h"
#include "widgets/OptionButton.h"

#include <memory>

namespace paperkite {

/// The designer of examples that stand in a source file: which file, which part of it, and what the
/// part holds at present. It follows the file. A file or part that is gone is told in a sentence;
/// what is stored stays.
class dsrExampleSource : public FieldsDesigner {
public:
    explicit dsrExampleSource(std::string name = {});
    const char* ModuleName() const override { return "dsrExampleSource"; }

    const Ref<TextBox> txtFile;
    const Ref<Button> cmdBrowse;
    const Ref<OptionButton> optWhole;
    const Ref<OptionButton> optLines;
    const Ref<TextBox> txtFrom;
    const Ref<TextBox> txtTo;
    const Ref<OptionButton> optRegion;
    const Ref<ComboBox> cboRegion;
    const Ref<TextBox> txtCaption;
    const Ref<CodeBox> txtCode;
    const Ref<Label> lblMessage;

protected:
    bool ShowFields(const std::optional<std::string>& text) override;
    std::optional<std::string> FieldsText() const override;
    Control& FirstField() override { return *txtFile; }
    void Activated(bool active) override;
    void Ended() override { mFollowed.reset(); }

private:
    void MakeLayout();
    void Connect();
    void FieldTyped();
    void PartChosen(ExampleReference::Part part);
    void cmdBrowse_Click();
    void ReadSource();
    void ShowExample();
    void Follow(const std::string& path);
    /// What relative paths begin at; empty where the item does not say it.
    std::string Folder() const;
    std::string WholePath() const;

    ExampleReference mReference;
    std::optional<std::string> mSource;
    std::string mFollowedPath;
    std::shared_ptr<void> mFollowed;
};

} // namespace paperkite

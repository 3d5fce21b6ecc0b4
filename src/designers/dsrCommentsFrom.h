#pragma once

#include "designers/FieldsDesigner.h"
#include "designers/ItemTree.h"
#include "widgets/SplitPanel.h"

namespace paperkite {

/// The designer of the reference to another item whose comments count for this one too, where it
/// has none of its own. The item is typed or chosen in a tree; its comments are shown as they come
/// out. An item cannot be chosen that leads back here.
class dsrCommentsFrom : public FieldsDesigner {
public:
    explicit dsrCommentsFrom(std::string name = {});
    const char* ModuleName() const override { return "dsrCommentsFrom"; }

    const Ref<TextBox> txtItem;
    const Ref<Label> lblMessage;
    const Ref<SplitPanel> split;
    const Ref<TreeControl> tvwItems;
    const Ref<Button> cmdTake;
    const Ref<Label> lblComments;
    const Ref<HtmlEdit> edComments;

protected:
    bool ShowFields(const std::optional<std::string>& text) override;
    std::optional<std::string> FieldsText() const override;
    Control& FirstField() override { return *txtItem; }
    void CommitFields() override;
    void HostCame(ICommentDesignerHost& host) override;
    void Ended() override { edComments->Terminate(); }

private:
    void MakeLayout();
    void Connect();
    void TakeChosen();
    /// Why an item cannot be taken; empty when it can.
    std::string ObjectionTo(const std::string& name) const;
    std::string Referred(const std::string& name) const;
    Ref<Object> Find(const std::string& name) const;
    /// The items that are asked for comments, the first one being `name`.
    std::vector<Ref<Object>> Sources(const std::string& name) const;
    void ShowCommentsOf(const std::string& name);
    void Judge();

    ItemTree mTree;
    /// What counts, while the field may hold something that does not.
    std::string mName;
    std::string mShownComments;
};

} // namespace paperkite

#pragma once

#include "designers/CommentText.h"
#include "designers/TagDesignerControl.h"

#include <string>

namespace paperkite {

/// The designer of comments that are text: a tool bar above a page with one place, which holds the
/// comment. What is typed reaches the model while it is typed.
class dsrHTMLEdit : public TagDesignerControl {
public:
    explicit dsrHTMLEdit(std::string name = {});
    const char* ModuleName() const override { return "dsrHTMLEdit"; }

    Ref<HtmlEdit> GetEditor() const override { return ed; }

    const Ref<HtmlEdit> ed;

protected:
    void Dock_CommandClick(const DockCommand& command) override;
    void ShowComment() override;
    void CommitFields() override;
    void FocusFields() override;
    void HostCame(ICommentDesignerHost& host) override;
    void Ended() override;

private:
    void MakeToolbar();
    void ConnectEditor();
    void ShowTools();
    void FillPlace();
    void ed_GetURL(std::string& url, std::string& caption, bool showCaption, bool& cancelDefault);

    CommentText mText;
    bool mLoading = false;
};

} // namespace paperkite

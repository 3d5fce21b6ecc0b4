#pragma once

#include "designers/CommentText.h"
#include "widgets/DesignerControl.h"
#include "widgets/DockHost.h"
#include "widgets/Label.h"

#include <memory>
#include <vector>

namespace paperkite {

class HTMLEditDesigner;

/// The designer of comments that are text: a tool bar above a page with one place, which holds the
/// comment. What is typed reaches the model while it is typed. Where an element has several
/// comments of the tag, a second bar leads through them.
class dsrHTMLEdit : public DesignerControl {
public:
    explicit dsrHTMLEdit(std::string name = {});
    ~dsrHTMLEdit() override;

    Ref<CommentDesigner> GetObject() override;
    Ref<HtmlEdit> GetEditor() const override { return ed; }

    /// The child controls.
    const Ref<DockHost> Dock;
    const Ref<HtmlEdit> ed;
    const Ref<Label> lblPosition;

private:
    friend class HTMLEditDesigner;

    void MakeToolbar();
    void MakeChooser();
    void ConnectEditor();
    /// Shows the comments of a tag on an element, from the first.
    void Show(const Ref<Object>& element, const Ref<TaggedCommentCollection>& comments,
              const std::string& tag);
    void ShowComment(std::size_t position);
    void ShowChooser();
    void ShowTools();
    void FillPlace();
    void Store(const std::string& html);
    void Forget();

    void Dock_CommandClick(const DockCommand& command);
    void ChooseComment(const std::string& command);
    void DeleteComment();
    void ed_GetURL(std::string& url, std::string& caption, bool showCaption, bool& cancelDefault);

    Ref<HTMLEditDesigner> mDesigner;
    ICommentDesignerHost* mHost = nullptr;
    Ref<Object> mElement;
    std::string mTag;
    /// Those of the tag; the last may be nothing, for one that is not written yet.
    std::vector<Ref<TaggedComment>> mComments;
    std::size_t mPosition = 0;
    CommentText mText;
    bool mLoading = false;
    std::vector<Connection> mConnections;
};

} // namespace paperkite

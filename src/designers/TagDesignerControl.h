#pragma once

#include "foundation/CommentDesignerHost.h"
#include "foundation/Procedure.h"
#include "widgets/DesignerControl.h"
#include "widgets/DockHost.h"
#include "widgets/Label.h"

#include <optional>
#include <string>
#include <vector>

namespace paperkite {

class TagDesigner;

/// What the designers of this folder share: the comments of one tag on one item, of which one is
/// shown. What an author does reaches the model at once, through the host: a first content adds a
/// comment, another content changes it, no content deletes it. Showing and leaving change nothing.
///
/// Where an item has several comments of the tag, a tool bar leads through them.
class TagDesignerControl : public DesignerControl, public Shielded {
public:
    ~TagDesignerControl() override;

    Ref<CommentDesigner> GetObject() override;

    /// Holds the tool bars, and what is edited below them.
    const Ref<DockHost> Dock;
    const Ref<Label> lblPosition;

protected:
    /// Whether an author may add further comments of the tag here.
    enum class Several { Offered, OnlyShown };

    TagDesignerControl(std::string name, Several several);

    /// Adds the bar "Comments", below those that are there.
    void MakeChooser();
    /// A command of a bar that is not about choosing a comment.
    virtual void Dock_CommandClick(const DockCommand& /*command*/) {}

    /// Shows what is stored of the present comment.
    virtual void ShowComment() = 0;
    /// Stores what is not stored yet.
    virtual void CommitFields() {}
    virtual void FocusFields() = 0;
    virtual void HostCame(ICommentDesignerHost& /*host*/) {}
    /// The tab is shown again, or hidden.
    virtual void Activated(bool /*active*/) {}
    /// The end of life.
    virtual void Ended() {}

    /// What is stored of the present comment; nothing where there is none.
    std::optional<std::string> StoredText() const;
    /// Stores the content of the present comment; nothing deletes it. The same content does
    /// nothing.
    void Store(const std::optional<std::string>& text);

    /// Nothing before Initialize and behind Detach.
    ICommentDesignerHost* GetHost() const { return mHost; }
    const Ref<Object>& GetElement() const { return mElement; }
    const std::string& GetTag() const { return mTag; }
    /// The definition of the tag, or nothing.
    Ref<TaggedCommentDef> GetDefinition() const;
    /// Runs the handler as a procedure of this control whenever the event is raised.
    template <class... Arguments, class Handler>
    void On(Event<Arguments...>& event, const char* procedure, Handler handler) {
        mConnections.push_back(event.Connect([this, procedure, handler](Arguments... arguments) {
            Procedure(*this, procedure, [&](Frame&) { handler(arguments...); });
        }));
    }

private:
    friend class TagDesigner;

    void Show(const Ref<Object>& element, const Ref<TaggedCommentCollection>& comments,
              const std::string& tag);
    void ShowAt(std::size_t position);
    void ShowChooser();
    void ChooseComment(const std::string& command);
    void DeleteComment();
    void Forget();

    Ref<TagDesigner> mDesigner;
    Several mSeveral;
    ICommentDesignerHost* mHost = nullptr;
    Ref<Object> mElement;
    std::string mTag;
    /// Those of the tag; one may be nothing, for one that is not written yet. Never empty while an
    /// element is shown.
    std::vector<Ref<TaggedComment>> mComments;
    std::size_t mPosition = 0;
    /// The command that adds a comment stands in a bar of the derived control.
    bool mAddsElsewhere = false;
    std::vector<Connection> mConnections;
};

} // namespace paperkite

#pragma once

#include "foundation/Event.h"
#include "host/Workspace.h"
#include "host/window/LinkForm.h"
#include "model/ModelControlHelper.h"
#include "platform/qt/ViewFactory.h"

#include <memory>
#include <string>
#include <vector>

namespace paperkite {

/// Answers what the surfaces of an open project ask of their host about links, and the questions
/// for topics, with dialogs over the window. While it lives it is the topic picker of the program.
class LinkDialogs {
public:
    /// All three must outlive it.
    LinkDialogs(Workspace& workspace, ViewFactory& factory, QWidget& window);
    ~LinkDialogs();
    LinkDialogs(const LinkDialogs&) = delete;
    LinkDialogs& operator=(const LinkDialogs&) = delete;

    /// Composes a link at the selection of the surface that is being written on; false where nobody
    /// writes.
    bool InsertLink();

private:
    /// The link, or nothing when the author cancelled; the request's caption becomes the author's.
    std::string Compose(LinkRequest& request);
    std::string ChooseTopic(const ModelControlHelper::TopicRequest& request);
    /// Shows a form until it is left; `first` has the focus when it opens.
    void Run(Form& form, Control& first);
    std::string OpenItem() const;

    Workspace& mWorkspace;
    ViewFactory& mFactory;
    QWidget& mWindow;
    std::shared_ptr<ModelControlHelper> mHelper;
    bool mComposing = false;
    std::vector<Connection> mConnections;
};

} // namespace paperkite

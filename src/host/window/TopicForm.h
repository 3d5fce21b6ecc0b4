#pragma once

#include "host/window/MemberChooser.h"
#include "model/ModelControlHelper.h"
#include "widgets/Button.h"
#include "widgets/Form.h"

#include <string>
#include <vector>

namespace paperkite {

/// The dialog that asks for a topic: one of the project's items.
class TopicForm : public Form {
public:
    /// The session must outlive the form.
    TopicForm(ProjectSession& session, const ModelControlHelper::TopicRequest& request);

    /// The topic of the last OK; empty when the author left the dialog in another way.
    const std::string& GetTopic() const { return mTopic; }

    Ref<Label> lblTopic;
    Ref<MemberChooser> Members;
    Ref<Button> cmdOK;
    Ref<Button> cmdCancel;

private:
    void cmdOK_Click();

    std::string mTopic;
    std::vector<Connection> mConnections;
};

} // namespace paperkite

#pragma once

#include "foundation/Services.h"
#include "support/ScriptedServices.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace paperkite::test {

/// A topic picker that chooses what the test says, and remembers what it was asked.
class ScriptedTopicPicker : public ControlHelper {
public:
    std::string GetTreePath(TreeControl&) override { return {}; }
    void SetTreePath(TreeControl&, const std::string&) override {}
    void CopyComments(const Ref<Object>&) override {}
    void PasteComments(const Ref<Object>&) override {}
    bool GetClipboardHasComments() const override { return false; }
    std::string GetClipboardItemType() const override { return {}; }
    std::string GetClipboardQualifiedName() const override { return {}; }
    void SyncGeneralComment(const Ref<Object>&, bool) override {}
    Ref<TaggedComment> FindTaggedComment(const Ref<TaggedCommentCollection>&,
                                         const std::string&) override {
        return {};
    }
    std::string MergeDescription(const std::string& value, const std::string&,
                                 const std::string&) override {
        return value;
    }
    void ResetParser() override {}
    void ApplyToolbarStyle(DockHost&, int) override {}

    std::string BuildTopic(const std::string& topic, bool dotNetXMLFormat,
                           const std::string& tipPrefix) override {
        return Asked("any", topic, dotNetXMLFormat, tipPrefix);
    }
    std::string BuildTopicForType(const std::string& itemType, const std::string& topic,
                                  bool dotNetXMLFormat, const std::string& tipPrefix) override {
        return Asked("type " + itemType, topic, dotNetXMLFormat, tipPrefix);
    }

    std::string Take() { return std::exchange(Requests, {}); }

    std::string Requests;
    std::string Topic;
    std::function<void()> WhileAsking;

private:
    std::string Asked(const std::string& kind, const std::string& topic, bool dotNetXMLFormat,
                      const std::string& tipPrefix) {
        Requests +=
            kind + "," + topic + "," + (dotNetXMLFormat ? "xml" : "plain") + "," + tipPrefix + ";";
        if (WhileAsking) WhileAsking();
        return Topic;
    }
};

class LinksFixture : public testing::Test {
protected:
    LinksFixture() { CurrentServices().ControlHelper = mPicker; }

    /// What was shown since the last call, a line each.
    std::string TakeMessages() {
        std::string texts;
        for (const std::string& text : std::exchange(mServices.Messages->Shown, {}))
            texts += text + "\n";
        return texts;
    }

    ScriptedServices mServices;
    std::shared_ptr<ScriptedTopicPicker> mPicker = std::make_shared<ScriptedTopicPicker>();
};

} // namespace paperkite::test

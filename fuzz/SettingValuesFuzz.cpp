#include "authoring/ProjectEditor.h"
#include "foundation/Services.h"
#include "fuzz/FuzzTarget.h"
#include "model/CommentPipeModel.h"
#include "model/ModelControlHelper.h"

#include <map>

namespace paperkite::fuzz {
namespace {

/// Settings with the same text under every name, or with one text for each.
class GivenRegistry : public RegistryHelper {
public:
    explicit GivenRegistry(std::string_view input) {
        while (!input.empty()) {
            const std::size_t end = std::min(input.find('\n'), input.size());
            const std::string line(input.substr(0, end));
            const std::size_t equals = line.find('=');
            if (equals == std::string::npos)
                mOthers = line;
            else
                mValues[line.substr(0, equals)] = line.substr(equals + 1);
            input.remove_prefix(std::min(end + 1, input.size()));
        }
    }
    void CreateKey(RegistryHive, const std::string&) override {}
    void WriteValue(RegistryHive, const std::string&, const std::string&, int,
                    const std::string&) override {}
    Value ReadValue(RegistryHive, const std::string&, const std::string& name) override {
        const auto found = mValues.find(name);
        return Value(found == mValues.end() ? mOthers : found->second);
    }

private:
    std::map<std::string, std::string> mValues;
    std::string mOthers;
};

class CountingMessages : public MessageBox {
public:
    MessageAnswer Show(const std::string& text, const std::string&, MessageIcon,
                       MessageButtons) override {
        Text += text + "\n";
        return MessageAnswer::Ok;
    }

    std::string Text;
};

void RequireSane(const ProjectEditor& editor) {
    const auto share = [](const SplitPanel& panel) {
        Require(panel.GetPercentage() >= 0 && panel.GetPercentage() <= 100,
                "a share of " + std::to_string(panel.GetPercentage()) + " per cent");
    };
    share(*editor.splitMain);
    share(*editor.cEditor.splitMain);
    const int height = editor.cEditor.prpTags->GetDescriptionHeight();
    Require(height >= 0 && height <= 2000, "a pane of height " + std::to_string(height));
}

const FuzzTarget target("settingvalues", [](std::string_view input) {
    const auto messages = std::make_shared<CountingMessages>();
    Services& services = CurrentServices();
    const Services before = services;
    services.Registry = std::make_shared<GivenRegistry>(input);
    services.MessageBox = messages;
    services.ControlHelper = std::make_shared<ModelControlHelper>();
    services.CreateCommentPipe = [] { return MakeRef<CommentPipeModel>(); };
    {
        ProjectEditor editor;
        editor.SetAppName("Fuzz");
        editor.cEditor.Initialize();
        RequireSane(editor);
        editor.ReloadSettings();
        RequireSane(editor);
    }
    services = before;
    Require(messages->Text.empty(), "a stored value is reported as a failure: " + messages->Text);
});

} // namespace
} // namespace paperkite::fuzz

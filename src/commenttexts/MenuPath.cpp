#include "commenttexts/MenuPath.h"

#include "commenttexts/PlainText.h"
#include "foundation/Text.h"

namespace paperkite {

namespace {

constexpr std::string_view kKeys = "keys: ";

} // namespace

std::optional<MenuPath> MenuPath::Read(std::string_view text) {
    if (!PlainText::IsPlain(text)) return {};
    MenuPath path;
    bool hasPath = false;
    for (const std::string& line : PlainText::FilledLines(text)) {
        if (path.Keys.empty() && line.starts_with(kKeys)) {
            path.Keys = TrimWhiteSpace(line.substr(kKeys.size()));
            continue;
        }
        if (hasPath || !path.Keys.empty()) return {};
        path.Steps = StepsOf(line);
        hasPath = true;
    }
    return path;
}

std::string MenuPath::Write() const {
    std::string text = PathText();
    if (!Keys.empty()) text += (text.empty() ? "" : "\n") + std::string(kKeys) + Keys;
    return text;
}

std::vector<std::string> MenuPath::StepsOf(std::string_view typed) {
    std::string line = PlainText::OneLine(typed);
    for (const std::string_view sign : {"->", "→", "|"})
        line = ReplaceAll(line, sign, ">");
    std::vector<std::string> steps;
    for (const std::string& part : Split(line, ">"))
        if (std::string step = TrimWhiteSpace(part); !step.empty())
            steps.push_back(std::move(step));
    return steps;
}

std::string MenuPath::PathText() const {
    return Join(Steps, " > ");
}

} // namespace paperkite

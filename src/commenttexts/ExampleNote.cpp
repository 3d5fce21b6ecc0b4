#include "commenttexts/ExampleNote.h"

#include "commenttexts/PlainText.h"
#include "foundation/Text.h"

#include <algorithm>

namespace paperkite {

namespace {

constexpr std::string_view kOf = "of: ";

} // namespace

std::optional<ExampleNote> ExampleNote::Read(std::string_view text) {
    if (!PlainText::IsPlain(text)) return {};
    ExampleNote note;
    for (const std::string& line : PlainText::FilledLines(text)) {
        if (line.starts_with(kOf)) {
            const std::string name = TrimWhiteSpace(line.substr(kOf.size()));
            if (std::find(note.Items.begin(), note.Items.end(), name) == note.Items.end())
                note.Items.push_back(name);
        } else if (note.Title.empty() && note.Items.empty()) {
            note.Title = line;
        } else {
            return {};
        }
    }
    return note;
}

std::string ExampleNote::Write() const {
    std::vector<std::string> lines;
    if (!Title.empty()) lines.push_back(Title);
    for (const std::string& item : Items)
        lines.push_back(std::string(kOf) + item);
    return Join(lines, "\n");
}

} // namespace paperkite

#include "widgets/CodeBox.h"

#include <algorithm>

namespace paperkite {

namespace {

bool BeginsCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
}

} // namespace

CodeBox::CodeBox(std::string name) : TextBox(std::move(name)) {
    SetMultiLine(true);
}

void CodeBox::SetMark(int line, int column) {
    if (line == mMarkedLine && column == mMarkedColumn) return;
    mMarkedLine = line;
    mMarkedColumn = column;
    TellChanged();
}

void CodeBox::GoToMark() {
    const std::string& text = GetText();
    std::size_t at = 0;
    for (int line = 1; line < mMarkedLine && at != std::string::npos; ++line)
        at = text.find('\n', at) == std::string::npos ? text.size() : text.find('\n', at) + 1;
    for (int column = 1; column < mMarkedColumn && at < text.size() && text[at] != '\n'; ++column)
        do
            ++at;
        while (at < text.size() && !BeginsCharacter(text[at]));
    SetFocus();
    SetSelStart(std::min(at, text.size()));
    SetSelLength(0);
    TellChanged();
}

} // namespace paperkite

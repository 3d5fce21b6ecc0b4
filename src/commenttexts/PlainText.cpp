#include "commenttexts/PlainText.h"

#include "foundation/HtmlEntities.h"
#include "foundation/HtmlTokens.h"
#include "foundation/Text.h"

#include <algorithm>

namespace paperkite::PlainText {

namespace {

void AppendUtf8(std::string& text, char32_t character) {
    const auto add = [&](char32_t byte) { text += static_cast<char>(byte); };
    if (character < 0x80) {
        add(character);
    } else if (character < 0x800) {
        add(0xC0 | character >> 6);
        add(0x80 | (character & 0x3F));
    } else if (character < 0x10000) {
        add(0xE0 | character >> 12);
        add(0x80 | (character >> 6 & 0x3F));
        add(0x80 | (character & 0x3F));
    } else {
        add(0xF0 | character >> 18);
        add(0x80 | (character >> 12 & 0x3F));
        add(0x80 | (character >> 6 & 0x3F));
        add(0x80 | (character & 0x3F));
    }
}

} // namespace

bool IsPlain(std::string_view text) {
    HtmlTokens tokens(text);
    for (HtmlToken token; tokens.Next(token);)
        if (token.What != HtmlToken::Kind::Text) return false;
    return true;
}

std::vector<std::string> Lines(std::string_view text) {
    std::vector<std::string> lines;
    for (std::string& line : Split(text, "\n"))
        lines.push_back(TrimWhiteSpace(line));
    while (!lines.empty() && lines.back().empty())
        lines.pop_back();
    return lines;
}

std::vector<std::string> FilledLines(std::string_view text) {
    std::vector<std::string> lines = Lines(text);
    std::erase_if(lines, [](const std::string& line) { return line.empty(); });
    return lines;
}

std::string Escaped(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (const char character : text) {
        if (character == '&')
            out += "&amp;";
        else if (character == '<')
            out += "&lt;";
        else if (character == '>')
            out += "&gt;";
        else if (character == '"')
            out += "&quot;";
        else
            out += character;
    }
    return out;
}

std::string Decoded(std::string_view html) {
    std::string out;
    for (std::size_t at = 0; at < html.size();) {
        const auto entity = html[at] == '&' ? ReadEntity(html, at) : std::nullopt;
        if (entity) {
            AppendUtf8(out, entity->Character);
            at += entity->Length;
        } else {
            out += html[at++];
        }
    }
    return out;
}

std::string OneLine(std::string_view text) {
    std::string line(text);
    std::replace_if(
        line.begin(), line.end(), [](char letter) { return letter == '\n' || letter == '\r'; },
        ' ');
    return TrimWhiteSpace(line);
}

} // namespace paperkite::PlainText

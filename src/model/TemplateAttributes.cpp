#include "model/TemplateAttributes.h"

#include <array>
#include <charconv>

namespace paperkite::TemplateAttributes {

namespace {

constexpr std::string_view kWhiteSpace = " \t\r\n\f";
constexpr std::string_view kEndsName = " \t\r\n\f=\"'<>";
constexpr std::size_t kLongestEntity = 10;

bool IsWhite(char character) {
    return kWhiteSpace.find(character) != std::string_view::npos;
}

void AppendUtf8(std::string& out, unsigned code) {
    const auto byte = [&](unsigned value) { out += static_cast<char>(value); };
    if (code < 0x80) {
        byte(code);
    } else if (code < 0x800) {
        byte(0xC0 | code >> 6);
        byte(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        byte(0xE0 | code >> 12);
        byte(0x80 | (code >> 6 & 0x3F));
        byte(0x80 | (code & 0x3F));
    } else {
        byte(0xF0 | code >> 18);
        byte(0x80 | (code >> 12 & 0x3F));
        byte(0x80 | (code >> 6 & 0x3F));
        byte(0x80 | (code & 0x3F));
    }
}

/// Appends what an entity's name stands for; false when it is none.
bool AppendEntity(std::string& out, std::string_view name) {
    constexpr std::array<std::pair<std::string_view, char>, 5> named = {
        {{"quot", '"'}, {"apos", '\''}, {"lt", '<'}, {"gt", '>'}, {"amp", '&'}}};
    for (const auto& [entity, character] : named)
        if (entity == name) {
            out += character;
            return true;
        }
    if (!name.starts_with('#')) return false;
    name.remove_prefix(1);
    const bool isHexadecimal = name.starts_with('x') || name.starts_with('X');
    if (isHexadecimal) name.remove_prefix(1);
    unsigned code = 0;
    const auto end = name.data() + name.size();
    const auto read = std::from_chars(name.data(), end, code, isHexadecimal ? 16 : 10);
    const bool isCharacter = code > 0 && code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
    if (read.ec != std::errc() || read.ptr != end || !isCharacter) return false;
    AppendUtf8(out, code);
    return true;
}

std::string Decoded(std::string_view value) {
    std::string out;
    for (std::size_t at = 0; at < value.size(); ++at) {
        if (value[at] == '&') {
            const std::size_t end = value.substr(at, kLongestEntity).find(';');
            if (end != std::string_view::npos && AppendEntity(out, value.substr(at + 1, end - 1))) {
                at += end;
                continue;
            }
        }
        out += value[at];
    }
    return out;
}

/// Reads one attribute after the other.
class Reading {
public:
    Reading(std::string_view text, List& list) : mText(text), mList(list) {}

    std::optional<Mistake> Run() {
        for (SkipWhite(); mAt < mText.size(); SkipWhite())
            if (auto mistake = ReadOne()) return mistake;
        return {};
    }

private:
    void SkipWhite() {
        while (mAt < mText.size() && IsWhite(mText[mAt]))
            ++mAt;
    }

    std::optional<Mistake> ReadOne() {
        const std::size_t from = mAt;
        mAt = std::min(mText.find_first_of(kEndsName, from), mText.size());
        const std::string name(mText.substr(from, mAt - from));
        if (name.empty())
            return Mistake{from, std::string("An attribute's name is missing before ") +
                                     mText[from] + ". Write name=\"value\"."};
        const std::size_t behindName = mAt;
        SkipWhite();
        if (mAt == mText.size() || mText[mAt] != '=') {
            // A name alone; what follows without a blank is judged in its turn.
            mAt = behindName;
            mList.emplace_back(name, std::string("true"));
            return {};
        }
        ++mAt;
        SkipWhite();
        return ReadValue(name);
    }

    std::optional<Mistake> ReadValue(const std::string& name) {
        if (mAt == mText.size())
            return Mistake{mAt, "The attribute " + name + " has no value. Write " + name +
                                    "=\"value\", or " + name + "=\"\" for an empty one."};
        const char quote = mText[mAt];
        if (quote != '"' && quote != '\'') {
            const std::size_t end = std::min(mText.find_first_of(kWhiteSpace, mAt), mText.size());
            mList.emplace_back(name, Decoded(mText.substr(mAt, end - mAt)));
            mAt = end;
            return {};
        }
        const std::size_t end = mText.find(quote, mAt + 1);
        if (end == std::string_view::npos)
            return Mistake{mAt, "The value of " + name + " is not ended. Put a " + quote +
                                    " behind it; a quotation mark in it is written &quot;."};
        mList.emplace_back(name, Decoded(mText.substr(mAt + 1, end - mAt - 1)));
        mAt = end + 1;
        return {};
    }

    std::string_view mText;
    List& mList;
    std::size_t mAt = 0;
};

void AppendEncoded(std::string& out, std::string_view value) {
    for (std::size_t at = 0; at < value.size(); ++at) {
        const bool isSecondHyphen = value[at] == '-' && at > 0 && value[at - 1] == '-';
        if (value[at] == '&')
            out += "&amp;";
        else if (value[at] == '"')
            out += "&quot;";
        else if (isSecondHyphen)
            out += "&#45;";
        else
            out += value[at];
    }
}

} // namespace

std::optional<Mistake> Read(std::string_view text, List& list) {
    return Reading(text, list).Run();
}

std::string Write(const List& list) {
    std::string out;
    for (const auto& [name, value] : list) {
        out += (out.empty() ? "" : " ") + name + "=\"";
        AppendEncoded(out, value);
        out += '"';
    }
    return out;
}

} // namespace paperkite::TemplateAttributes

#include "doctypes/source/ParameterList.h"

#include "doctypes/source/NameCharacter.h"

#include <algorithm>
#include <array>

#include <utility>

namespace paperkite {

namespace {

constexpr std::size_t none = std::string_view::npos;

bool IsOneOf(std::string_view word, std::initializer_list<std::string_view> words) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

/// Words that are a whole type by themselves or with others of their kind, never a name.
bool IsTypeWord(std::string_view word) {
    return IsOneOf(word, {"void", "bool", "char", "short", "int", "long", "float", "double",
                          "signed", "unsigned", "auto", "wchar_t", "char8_t", "char16_t",
                          "char32_t", "_Bool", "size_t"});
}

/// Words that need a type behind them.
bool IsTypeLead(std::string_view word) {
    return IsOneOf(word, {"const", "volatile", "struct", "class", "enum", "union", "typename",
                          "register", "restrict", "mutable", "constexpr"});
}

/// Words of C# and Java before a parameter that are not part of its type.
bool IsParameterModifier(std::string_view word) {
    return IsOneOf(word, {"final", "this", "params", "register", "scoped"});
}

std::size_t CloseOf(std::string_view text, std::size_t open) {
    int depth = 0;
    for (std::size_t i = open; i < text.size(); ++i) {
        depth += std::string_view("([{<").find(text[i]) != none;
        const bool isArrow = text[i] == '>' && i > 0 && (text[i - 1] == '-' || text[i - 1] == '=');
        if (!isArrow && std::string_view(")]}>").find(text[i]) != none && --depth == 0) {
            return i;
        }
    }
    return none;
}

std::vector<std::string_view> Words(std::string_view text) {
    std::vector<std::string_view> words;
    for (std::size_t i = 0; i < text.size();) {
        if (text[i] == ' ' || text[i] == '\t' || text[i] == '\n' || text[i] == '\r') {
            ++i;
            continue;
        }
        const std::size_t start = i;
        if (IsNameCharacter(text[i])) {
            while (i < text.size() && (IsNameCharacter(text[i]) || text.substr(i, 2) == "::" ||
                                       (text[i] == ':' && text[i - 1] == ':') ||
                                       (text[i] == '.' && text.substr(i, 3) != "..."))) {
                ++i;
            }
        } else if (text.substr(i, 2) == "::") {
            i += 2;
            while (i < text.size() && (IsNameCharacter(text[i]) || text[i] == ':')) {
                ++i;
            }
        } else if (text.substr(i, 3) == "...") {
            i += 3;
        } else if (std::string_view("([{<").find(text[i]) != none) {
            const std::size_t close = CloseOf(text, i);
            i = close == none ? text.size() : close + 1;
        } else {
            ++i;
        }
        words.push_back(text.substr(start, i - start));
    }
    return words;
}

std::string WithoutQualifiers(const std::string& type) {
    std::string result;
    for (std::size_t i = 0; i < type.size(); ++i) {
        if (type.compare(i, 2, "::") == 0) {
            while (!result.empty() && IsNameCharacter(result.back())) {
                result.pop_back();
            }
            ++i;
        } else {
            result += type[i];
        }
    }
    return result;
}

} // namespace

std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t\r\n\f\v");
    return first == none ? std::string_view()
                         : text.substr(first, text.find_last_not_of(" \t\r\n\f\v") - first + 1);
}

std::vector<std::string_view> SplitTopLevel(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    int depth = 0;
    std::size_t start = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '"' || c == '\'' || c == '`') {
            const std::size_t end = text.find(c, i + 1);
            i = end == none ? i : end;
        } else if (c == separator && depth == 0) {
            parts.push_back(text.substr(start, i - start));
            start = i + 1;
        } else if (std::string_view("([{<").find(c) != none) {
            ++depth;
        } else if (std::string_view(")]}>").find(c) != none &&
                   !(c == '>' && i > 0 && (text[i - 1] == '-' || text[i - 1] == '='))) {
            depth = std::max(0, depth - 1);
        }
    }
    parts.push_back(text.substr(start));
    return parts;
}

std::string NormalisedType(std::string_view type) {
    std::string result;
    bool hadBlank = false;
    for (const char c : type) {
        if (std::string_view(" \t\r\n\f\v").find(c) != none) {
            hadBlank = true;
            continue;
        }
        if (hadBlank && !result.empty() && IsNameCharacter(result.back()) && IsNameCharacter(c)) {
            result += ' ';
        }
        hadBlank = false;
        result += c;
    }
    return result;
}

ParameterList::ParameterList(std::string_view signature, SourceLanguage language)
    : mLanguage(language) {
    std::size_t open = signature.find('(');
    if (signature.starts_with("<") || signature.starts_with("[")) {
        const std::size_t close = CloseOf(signature, 0);
        open = close == none ? none : signature.find('(', close);
    }
    const std::size_t close = open == none ? none : CloseOf(signature, open);
    if (close == none) {
        return;
    }
    const std::string_view inside = Trimmed(signature.substr(open + 1, close - open - 1));
    if (!inside.empty() && !(inside == "void" && language <= SourceLanguage::Cpp)) {
        for (const std::string_view part : SplitTopLevel(inside, ',')) {
            Add(Trimmed(part));
        }
    }
    if (language == SourceLanguage::Go) {
        SplitGo();
    }
    if (language == SourceLanguage::Cpp) {
        for (const std::string_view word : Words(signature.substr(close + 1))) {
            if (word == "const" || word == "volatile" || word == "&") {
                mQualifiers += (word == "&" && mQualifiers.ends_with("&") ? "" : " ");
                mQualifiers += word;
            }
        }
    }
}

void ParameterList::Add(std::string_view text) {
    if (text.empty()) {
        return;
    }
    SourceParameter parameter;
    for (std::size_t i = 0, depth = 0; i < text.size(); ++i) {
        depth += std::string_view("([{<").find(text[i]) != none;
        depth -= depth > 0 && std::string_view(")]}>").find(text[i]) != none;
        if (text[i] == '=' && depth == 0 && text.substr(i, 2) != "=>") {
            parameter.Default = Trimmed(text.substr(i + 1));
            text = Trimmed(text.substr(0, i));
            break;
        }
    }
    switch (mLanguage) {
    case SourceLanguage::Python:
    case SourceLanguage::JavaScript:
    case SourceLanguage::TypeScript:
    case SourceLanguage::Rust:
    case SourceLanguage::Ruby:
        SplitNameFirst(parameter, text);
        break;
    case SourceLanguage::Go:
        parameter.Name = text;
        break;
    default:
        SplitTypeFirst(parameter, text);
    }
    mParameters.push_back(std::move(parameter));
}

void ParameterList::SplitNameFirst(SourceParameter& parameter, std::string_view text) const {
    const auto parts = SplitTopLevel(text, ':');
    parameter.Name = Trimmed(parts[0]);
    if (parts.size() > 1 && mLanguage != SourceLanguage::Ruby) {
        parameter.Type = Trimmed(text.substr(parts[0].size() + 1));
    } else if (parts.size() > 1) {
        parameter.Default = Trimmed(parts[1]);
    }
    for (const std::string_view word : {"private ", "public ", "protected ", "readonly "}) {
        if (mLanguage == SourceLanguage::TypeScript && parameter.Name.starts_with(word)) {
            parameter.Name.erase(0, word.size());
        }
    }
    if (mLanguage == SourceLanguage::Rust && parameter.Name.starts_with("mut ")) {
        parameter.Name.erase(0, 4);
    }
}

void ParameterList::SplitTypeFirst(SourceParameter& parameter, std::string_view text) const {
    // int (*name)(int): the name stands inside
    const std::size_t inner = text.find("(*");
    if (inner != none && mLanguage <= SourceLanguage::Cpp) {
        std::size_t end = inner + 2;
        while (end < text.size() && IsNameCharacter(text[end])) {
            ++end;
        }
        parameter.Name = text.substr(inner + 2, end - inner - 2);
        parameter.Type =
            std::string(Trimmed(text.substr(0, inner + 2))) + std::string(text.substr(end));
        return;
    }
    std::string arrays;
    while (text.ends_with("]") && text.rfind('[') != none) {
        const std::size_t open = text.rfind('[');
        if (mLanguage > SourceLanguage::Cpp) {
            break;
        }
        arrays.insert(0, text.substr(open));
        text = Trimmed(text.substr(0, open));
    }
    std::vector<std::string_view> words = Words(text);
    while (!words.empty() && mLanguage != SourceLanguage::C &&
           (IsParameterModifier(words[0]) || words[0].starts_with("[[") ||
            (mLanguage == SourceLanguage::CSharp && words[0].starts_with("[")) ||
            words[0] == "@")) {
        words.erase(words.begin(),
                    words.begin() +
                        (words[0] == "@" ? std::min<std::ptrdiff_t>(2, std::ssize(words)) : 1));
    }
    if (words.empty()) {
        parameter.Type = text;
        return;
    }
    const std::string_view last = words.back();
    if (mLanguage == SourceLanguage::Php && last.starts_with("$")) {
        parameter.Name = last;
        words.pop_back();
    } else if (words.size() > 1 && IsNameCharacter(last[0]) && !IsTypeWord(last) &&
               !IsTypeLead(last) && last.find("::") == none &&
               std::any_of(words.begin(), words.end() - 1,
                           [](std::string_view w) { return !IsTypeLead(w); }) &&
               words[words.size() - 2] != "::") {
        parameter.Name = last;
        words.pop_back();
    }
    std::string type;
    for (const std::string_view word : words) {
        if (!type.empty() && IsNameCharacter(type.back()) && IsNameCharacter(word[0])) {
            type += ' ';
        } else if (type.ends_with(">") && IsNameCharacter(word[0])) {
            type += ' ';
        }
        type += word;
    }
    parameter.Type = type + arrays;
}

// a, b int: a name alone takes the type that follows, unless no parameter has a name
void ParameterList::SplitGo() {
    bool hasNames = false;
    for (const SourceParameter& parameter : mParameters) {
        const auto words = Words(parameter.Name);
        hasNames |= words.size() > 1 && IsNameCharacter(words[0][0]) &&
                    !IsOneOf(words[0], {"func", "chan", "map", "struct", "interface"}) &&
                    !words[1].starts_with("{");
    }
    std::string type;
    for (auto at = mParameters.rbegin(); at != mParameters.rend(); ++at) {
        std::size_t end = 0;
        while (end < at->Name.size() && IsNameCharacter(at->Name[end])) {
            ++end;
        }
        if (!hasNames) {
            at->Type = std::exchange(at->Name, "");
        } else if (end < at->Name.size()) {
            type = at->Type = Trimmed(std::string_view(at->Name).substr(end));
            at->Name.resize(end);
        } else {
            at->Type = type;
        }
    }
}

std::string ParameterList::TypesText() const {
    std::string result = "(";
    for (const SourceParameter& parameter : mParameters) {
        if (result.size() > 1) {
            result += ',';
        }
        result += NormalisedType(parameter.Type.empty() ? parameter.Name : parameter.Type);
    }
    return result + ")" + mQualifiers;
}

std::string ParameterList::BareTypesText() const {
    return WithoutQualifiers(TypesText());
}

} // namespace paperkite

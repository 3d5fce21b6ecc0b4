#include "doctypes/source/TypeScriptReader.h"

#include "doctypes/source/CodeMask.h"
#include "doctypes/source/NameCharacter.h"
#include "doctypes/source/ParameterList.h"

#include <algorithm>
#include <utility>

namespace paperkite {

namespace {

constexpr std::size_t none = std::string_view::npos;

std::string JoinScope(const std::string& scope, std::string_view name) {
    return scope.empty() ? std::string(name) : scope + "." + std::string(name);
}

} // namespace

std::vector<CtagsTag> TypeScriptReader::Read() {
    Block("");
    // lines are counted once, in the order of the places
    std::uint32_t line = 1;
    std::size_t at = 0;
    for (std::size_t i = 0; i < mTags.size(); ++i) {
        for (; at < mPlaces[i]; ++at) {
            line += mCode[at] == '\n';
        }
        mTags[i].Line = line;
    }
    return std::move(mTags);
}

CtagsTag& TypeScriptReader::AddTag(std::string_view name, std::string_view kind, std::size_t place,
                                   const std::string& scope, std::string_view scopeKind) {
    CtagsTag tag;
    tag.Name = name;
    tag.Kind = kind;
    tag.Language = "TypeScript";
    tag.Scope = scope;
    tag.ScopeKind = scope.empty() ? std::string_view() : scopeKind;
    mTags.push_back(std::move(tag));
    mPlaces.push_back(place);
    return mTags.back();
}

void TypeScriptReader::SkipBlanks() {
    while (mAt < mCode.size() && std::isspace(static_cast<unsigned char>(mCode[mAt]))) {
        ++mAt;
    }
}

std::string_view TypeScriptReader::Word() {
    SkipBlanks();
    const std::size_t start = mAt;
    while (mAt < mCode.size() && IsNameCharacter(mCode[mAt])) {
        ++mAt;
    }
    return mCode.substr(start, mAt - start);
}

bool TypeScriptReader::Take(std::string_view text) {
    SkipBlanks();
    const bool isThere = mCode.substr(mAt, text.size()) == text;
    mAt += isThere ? text.size() : 0;
    return isThere;
}

void TypeScriptReader::SkipBracket() {
    const std::size_t close = ClosingBracket(mCode, mAt);
    mAt = close == none ? mCode.size() : close + 1;
}

void TypeScriptReader::Block(const std::string& scope) {
    while (mAt < mCode.size()) {
        SkipBlanks();
        if (mAt >= mCode.size() || mCode[mAt] == '}') {
            return;
        }
        const char c = mCode[mAt];
        if (c == '{' || c == '(' || c == '[') {
            SkipBracket();
        } else if (!IsNameCharacter(c)) {
            ++mAt;
        } else {
            const bool isAccessed = mAt > 0 && mCode[mAt - 1] == '.';
            const std::string_view word = Word();
            const std::size_t behind = mAt;
            if (isAccessed) {
                continue;
            }
            if (word == "class") {
                Class(scope);
            } else if (word == "function") {
                Function(scope);
            } else if (word == "namespace" || word == "module") {
                SkipBlanks();
                std::string_view name = Word();
                while (Take(".")) {
                    name = {name.data(), name.size() + 1 + Word().size()};
                }
                SkipBlanks();
                if (!name.empty() && mAt < mCode.size() && mCode[mAt] == '{') {
                    ++mAt;
                    Block(JoinScope(scope, name));
                    mAt = std::min(mAt + 1, mCode.size());
                } else {
                    mAt = behind;
                }
            }
        }
    }
}

void TypeScriptReader::Class(const std::string& scope) {
    const std::string_view name = Word();
    const std::size_t place = mAt - name.size();
    if (name.empty() || name == "extends" || name == "implements") {
        return;
    }
    SkipToBody();
    if (mAt >= mCode.size() || mCode[mAt] != '{') {
        return;
    }
    CtagsTag& tag = AddTag(name, "class", place, scope, "namespace");
    std::string_view head = mCode.substr(place + name.size(), mAt - place - name.size());
    if (Trimmed(head).starts_with("<")) {
        head = Trimmed(head);
        head.remove_prefix(std::min(ClosingBracket(head, 0), head.size() - 1) + 1);
    }
    std::string bases;
    for (const std::string_view word : {"extends", "implements"}) {
        const std::size_t at = head.find(word);
        if (at != none) {
            std::string_view list = head.substr(at + word.size());
            list = list.substr(0, list.find("implements"));
            bases.append(bases.empty() ? "" : ",").append(NormalisedType(list));
        }
    }
    tag.Inherits = bases;
    const std::size_t close = ClosingBracket(mCode, mAt);
    const std::size_t end = close == none ? mCode.size() : close;
    ++mAt;
    const std::string inside = JoinScope(scope, name);
    while (mAt < end) {
        const std::size_t before = mAt;
        Member(inside);
        mAt = mAt == before ? mAt + 1 : mAt;
    }
    mAt = std::min(end + 1, mCode.size());
}

/// Stands in front of a member, a separator, or blanks.
void TypeScriptReader::Member(const std::string& scope) {
    if (Take(";") || Take(",")) {
        return;
    }
    if (Take("@")) {
        do {
            Word();
        } while (Take("."));
        SkipBlanks();
        if (mAt < mCode.size() && mCode[mAt] == '(') {
            SkipBracket();
        }
        return;
    }
    std::string_view kind = "property", access = "public", name;
    for (;;) {
        const bool isGenerator = Take("*");
        const bool isHidden = Take("#");
        name = Word();
        access = isHidden ? "private" : access;
        kind = isGenerator ? "method" : kind;
        const std::size_t behind = mAt;
        SkipBlanks();
        const char next = mAt < mCode.size() ? mCode[mAt] : '}';
        const bool goesOn = IsNameCharacter(next) || next == '#' || next == '[' || next == '*' ||
                            next == '"' || next == '\'';
        mAt = behind;
        if (!goesOn || name.empty()) {
            break;
        }
        if (name == "private" || name == "protected" || name == "public") {
            access = name;
        } else if (name == "get" || name == "set") {
            kind = name == "get" ? "getter" : "setter";
        } else if (name != "static" && name != "readonly" && name != "abstract" &&
                   name != "async" && name != "declare" && name != "override" &&
                   name != "accessor") {
            break;
        }
    }
    const std::size_t place = mAt - name.size();
    if (name.empty()) { // an index signature, a computed or a quoted name, a closing brace
        if (mAt < mCode.size() && mCode[mAt] != '}') {
            SkipStatement();
        }
        return;
    }
    if (name == "static" && Take("{")) {
        --mAt;
        SkipBracket();
        return;
    }
    if (!Take("?")) {
        Take("!");
    }
    SkipBlanks();
    const bool hasParameters = mAt < mCode.size() && (mCode[mAt] == '(' || mCode[mAt] == '<');
    if (hasParameters && kind == "property") {
        kind = "method";
    }
    AddTag(name, kind, place, scope, "class").Access = access;
    SkipStatement();
}

void TypeScriptReader::Function(const std::string& scope) {
    Take("*");
    const std::string_view name = Word();
    if (!name.empty()) {
        AddTag(name, "function", mAt - name.size(), scope, "namespace");
        SkipStatement();
    }
}

void TypeScriptReader::SkipToBody() {
    while (mAt < mCode.size() && mCode[mAt] != '{' && mCode[mAt] != ';' && mCode[mAt] != '}') {
        if (mCode[mAt] == '<' || mCode[mAt] == '(') {
            const std::size_t close = ClosingBracket(mCode, mAt);
            mAt = close == none ? mAt : close;
        }
        ++mAt;
    }
}

// To behind the ';' or the body that ends it, or to the line end where it is complete.
void TypeScriptReader::SkipStatement() {
    bool hasValue = false, hasParameters = false;
    char last = ' ';
    char beforeLast = ' ';
    while (mAt < mCode.size()) {
        const char c = mCode[mAt];
        const bool isArrow = last == '>' && beforeLast == '=';
        if (c == ';') {
            ++mAt;
            return;
        }
        if (c == '}') {
            return;
        }
        if (c == '(' || c == '[' || c == '{') {
            const bool isBody = c == '{' && hasParameters && !hasValue && !isArrow &&
                                std::string_view(":|&").find(last) == none;
            hasParameters |= c == '(';
            SkipBracket();
            if (isBody) {
                return;
            }
            last = ')';
            continue;
        }
        if (c == '\n') {
            const std::size_t next = mCode.find_first_not_of(" \t\r\n", mAt);
            const bool continues = std::string_view(":=|&?,<+-*/.").find(last) != none || isArrow ||
                                   next == none ||
                                   std::string_view("|&.?:={+").find(mCode[next]) != none;
            if (!continues) {
                return;
            }
        }
        hasValue |= c == '=' && mCode.substr(mAt, 2) != "=>";
        if (!std::isspace(static_cast<unsigned char>(c))) {
            beforeLast = std::exchange(last, c);
        }
        ++mAt;
    }
}

} // namespace paperkite

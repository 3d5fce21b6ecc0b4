#include "doctypes/source/CtagsTagReader.h"

#include <array>
#include <simdjson.h>
#include <utility>

namespace paperkite {

namespace {

constexpr std::array<std::pair<std::string_view, std::string CtagsTag::*>, 15> textFields = {{
    {"name", &CtagsTag::Name},
    {"path", &CtagsTag::Path},
    {"language", &CtagsTag::Language},
    {"kind", &CtagsTag::Kind},
    {"scope", &CtagsTag::Scope},
    {"scopeKind", &CtagsTag::ScopeKind},
    {"access", &CtagsTag::Access},
    {"signature", &CtagsTag::Signature},
    {"typeref", &CtagsTag::TypeRef},
    {"inherits", &CtagsTag::Inherits},
    {"implementation", &CtagsTag::Implementation},
    {"template", &CtagsTag::Template},
    {"specialization", &CtagsTag::Specialization},
    {"properties", &CtagsTag::Properties},
    {"decorators", &CtagsTag::Decorators},
}};

void TakeField(std::string_view key, simdjson::dom::element value, CtagsTag& tag) {
    std::string_view text;
    if (value.get(text) == simdjson::SUCCESS) {
        for (const auto& [name, member] : textFields) {
            if (name == key) {
                (tag.*member).assign(text);
                return;
            }
        }
    }
    std::uint64_t number = 0;
    if (value.get(number) == simdjson::SUCCESS && number < 0x7FFFFFFF) {
        if (key == "line") {
            tag.Line = static_cast<std::uint32_t>(number);
        } else if (key == "end") {
            tag.End = static_cast<std::uint32_t>(number);
        }
    }
}

} // namespace

struct CtagsTagReader::Parser {
    simdjson::dom::parser json;
};

CtagsTagReader::CtagsTagReader() : mParser(std::make_unique<Parser>()) {}

CtagsTagReader::~CtagsTagReader() = default;

CtagsTagReader::Result CtagsTagReader::Read(std::string_view line, CtagsTag& tag) {
    if (line.empty()) {
        return Result::Nothing;
    }
    simdjson::dom::element document;
    simdjson::dom::object fields;
    if (mParser->json.parse(line.data(), line.size(), true).get(document) != simdjson::SUCCESS ||
        document.get(fields) != simdjson::SUCCESS) {
        return Result::Bad;
    }
    std::string_view type;
    if (fields["_type"].get(type) != simdjson::SUCCESS || type != "tag") {
        return Result::Nothing;
    }
    tag = CtagsTag();
    for (const auto field : fields) {
        TakeField(field.key, field.value, tag);
    }
    if (tag.Path.starts_with("./")) {
        tag.Path.erase(0, 2);
    }
    const bool isUsable = !tag.Name.empty() && tag.Line > 0;
    return isUsable ? Result::Tag : Result::Nothing;
}

} // namespace paperkite

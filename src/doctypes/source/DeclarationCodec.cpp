#include "doctypes/source/DeclarationCodec.h"

#include "doctypes/source/ByteReader.h"
#include "doctypes/source/ByteWriter.h"

#include <array>

namespace paperkite {

namespace {

constexpr std::array texts = {
    &SourceDeclaration::Name,         &SourceDeclaration::OtherKind, &SourceDeclaration::Signature,
    &SourceDeclaration::LanguageName, &SourceDeclaration::Type,      &SourceDeclaration::Inherits,
    &SourceDeclaration::Template,     &SourceDeclaration::Trait,     &SourceDeclaration::Types};

constexpr std::array flags = {&SourceDeclaration::IsForward, &SourceDeclaration::IsFileLocal,
                              &SourceDeclaration::IsMember, &SourceDeclaration::HasAccess};

constexpr std::uint64_t lastKind = static_cast<std::uint64_t>(SourceKind::Other);
constexpr std::uint64_t lastLanguage = static_cast<std::uint64_t>(SourceLanguage::Other);
constexpr std::uint64_t lastAccess = static_cast<std::uint64_t>(SourceAccess::Private);
constexpr std::uint64_t lastLine = 0x7FFFFFFF;

// texts and scopes mostly are those of the declaration before: one bit says so
void Encode(ByteWriter& writer, const SourceDeclaration& now, const SourceDeclaration& before) {
    std::uint64_t bits = now.Scope == before.Scope;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        bits |= static_cast<std::uint64_t>(now.*texts[i] == before.*texts[i]) << (i + 1);
    }
    for (std::size_t i = 0; i < flags.size(); ++i) {
        bits |= static_cast<std::uint64_t>(now.*flags[i]) << (i + 1 + texts.size());
    }
    writer.Number(bits);
    if ((bits & 1) == 0) {
        writer.Number(now.Scope.size());
        for (const ScopeStep& step : now.Scope) {
            writer.Number(static_cast<std::uint64_t>(step.Kind));
            writer.Text(step.Name);
        }
    }
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if ((bits >> (i + 1) & 1) == 0) {
            writer.Text(now.*texts[i]);
        }
    }
    writer.Number(static_cast<std::uint64_t>(now.Kind));
    writer.Number(static_cast<std::uint64_t>(now.Language));
    writer.Number(static_cast<std::uint64_t>(now.Access));
    writer.Number(now.Line);
    writer.Number(now.EndLine);
}

bool Decode(ByteReader& reader, SourceDeclaration& declaration) {
    const std::uint64_t bits = reader.NumberUpTo((1u << (1 + texts.size() + flags.size())) - 1);
    if ((bits & 1) == 0) {
        declaration.Scope.clear();
        for (std::uint64_t left = reader.Number(); left > 0 && reader.IsGood(); --left) {
            const auto kind = static_cast<SourceKind>(reader.NumberUpTo(lastKind));
            declaration.Scope.push_back({std::string(reader.Text()), kind});
        }
    }
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if ((bits >> (i + 1) & 1) == 0) {
            (declaration.*texts[i]).assign(reader.Text());
        }
    }
    for (std::size_t i = 0; i < flags.size(); ++i) {
        declaration.*flags[i] = (bits >> (i + 1 + texts.size()) & 1) != 0;
    }
    declaration.Kind = static_cast<SourceKind>(reader.NumberUpTo(lastKind));
    declaration.Language = static_cast<SourceLanguage>(reader.NumberUpTo(lastLanguage));
    declaration.Access = static_cast<SourceAccess>(reader.NumberUpTo(lastAccess));
    declaration.Line = static_cast<std::uint32_t>(reader.NumberUpTo(lastLine));
    declaration.EndLine = static_cast<std::uint32_t>(reader.NumberUpTo(lastLine));
    return reader.IsGood() && !declaration.Name.empty() && declaration.Line > 0;
}

} // namespace

std::string EncodeDeclarations(const std::vector<SourceDeclaration>& declarations) {
    ByteWriter writer;
    const SourceDeclaration none;
    const SourceDeclaration* before = &none;
    for (const SourceDeclaration& declaration : declarations) {
        Encode(writer, declaration, *before);
        before = &declaration;
    }
    return writer.Take();
}

bool DecodeDeclarations(std::string_view bytes, std::uint32_t file,
                        const std::function<void(const SourceDeclaration&)>& visit) {
    ByteReader reader(bytes);
    SourceDeclaration declaration;
    declaration.File = file;
    while (!reader.IsAtEnd()) {
        if (!Decode(reader, declaration)) {
            return false;
        }
        visit(declaration);
    }
    return true;
}

} // namespace paperkite

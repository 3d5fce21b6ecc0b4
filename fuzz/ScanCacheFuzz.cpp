#include "doctypes/source/ContentHash.h"
#include "doctypes/source/DeclarationCodec.h"
#include "doctypes/source/ScanCacheFile.h"
#include "doctypes/source/SourceIndexBuilder.h"
#include "doctypes/source/SourceIndexStorage.h"
#include "fuzz/FuzzTarget.h"
#include "fuzz/ScratchFolder.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <sstream>

namespace paperkite::fuzz {
namespace {

constexpr const char* kPlace = "place";

/// The places of checksums, as a cache has them at its beginning: of three parts, each with its
/// offset and size before it, and of all before.
constexpr std::size_t kFirstPart = 16;
constexpr std::size_t kPartSize = 24;
constexpr std::size_t kOwnHash = kFirstPart + 3 * kPartSize;
constexpr std::size_t kHeaderSize = kOwnHash + 8;

SourceDeclaration Declaration(const char* name, SourceKind kind, std::uint32_t line) {
    SourceDeclaration declaration;
    declaration.Name = name;
    declaration.Kind = kind;
    declaration.Language = SourceLanguage::Cpp;
    declaration.LanguageName = "C++";
    declaration.Signature = "(int a)";
    declaration.Types = "(int)";
    declaration.Line = declaration.EndLine = line;
    return declaration;
}

/// The bytes of a cache as a scan writes it.
std::string SoundCache() {
    const std::string path = Scratch("sound");
    SourceIndexBuilder builder("root");
    auto method = Declaration("f", SourceKind::Method, 2);
    method.Scope = {{"A", SourceKind::Class}};
    const std::vector<SourceDeclaration> declarations{Declaration("A", SourceKind::Class, 1),
                                                      method};
    const std::uint32_t file = builder.AddFile("a.cpp");
    for (SourceDeclaration declaration : declarations) {
        declaration.File = file;
        builder.Add(declaration);
    }
    CachedScan scan;
    scan.Place = kPlace;
    scan.Reader = "reader";
    scan.Definitions = {"D"};
    scan.Warnings = {"w"};
    CachedFile cached;
    cached.Path = "a.cpp";
    ScanCacheWriter writer(path);
    writer.AddDeclarations(EncodeDeclarations(declarations), cached);
    writer.AddIndex(*builder.Finish());
    scan.Files.push_back(cached);
    writer.Commit(scan);
    std::ostringstream bytes;
    bytes << std::ifstream(path, std::ios::binary).rdbuf();
    return bytes.str();
}

std::uint64_t NumberAt(const std::string& bytes, std::size_t at) {
    std::uint64_t number = 0;
    std::memcpy(&number, bytes.data() + at, sizeof number);
    return number;
}

/// Gives a cache right checksums, as somebody would who means harm.
void Seal(std::string& bytes) {
    if (bytes.size() < kHeaderSize) return;
    for (std::size_t part = kFirstPart; part < kOwnHash; part += kPartSize) {
        const std::uint64_t offset = NumberAt(bytes, part);
        const std::uint64_t size = NumberAt(bytes, part + 8);
        if (size > bytes.size() || offset > bytes.size() - size) continue;
        const std::uint64_t hash = ContentHash::Of(std::string_view(bytes).substr(offset, size));
        std::memcpy(bytes.data() + part + 16, &hash, sizeof hash);
    }
    const std::uint64_t hash = ContentHash::Of(std::string_view(bytes).substr(0, kOwnHash));
    std::memcpy(bytes.data() + kOwnHash, &hash, sizeof hash);
}

/// The input's groups of four bytes, each a place in the sound cache, what to do there, and a byte.
std::string Edited(std::string bytes, std::string_view edits) {
    for (; edits.size() >= 4 && !bytes.empty(); edits.remove_prefix(4)) {
        const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(edits[at]); };
        const std::size_t at = (byte(0) * 256u + byte(1)) % bytes.size();
        switch (byte(2) % 4) {
        case 0:
            bytes[at] = edits[3];
            break;
        case 1:
            bytes.insert(at, 1, edits[3]);
            break;
        case 2:
            bytes.erase(at, byte(3));
            break;
        default:
            bytes.resize(at + 1);
        }
    }
    return bytes;
}

/// Uses all that an index gives: it was found sound.
void UseIndex(const SourceIndex& index) {
    std::size_t children = 0;
    for (SourceIndex::Id entity = 0; entity < index.Size(); ++entity) {
        Require((entity == SourceIndex::Root) == (index.Parent(entity) == SourceIndex::Nothing),
                "an entity beside the tree");
        for (const SourceIndex::Id child : index.Children(entity))
            Require(index.Parent(child) == entity, "a child of another");
        children += index.Children(entity).size();
        const auto found = index.Find(index.QualifiedName(entity));
        Require(!found || *found < index.Size(), "found beyond the end");
        for (const SourcePlace& place : index.Places(entity))
            Require(place.File.size() < 1u << 20, "a name of a file beyond all measure");
        index.Parameters(entity);
        index.KindText(entity);
    }
    Require(children + 1 == index.Size(), "an entity is in no place of the tree, or in two");
    index.Find("root~nothing");
}

void Use(const ScanCacheReader& reader) {
    Require(reader.Scan().Place == kPlace, "a cache of another place");
    for (const CachedFile& file : reader.Scan().Files)
        if (const auto declarations = reader.Declarations(file))
            DecodeDeclarations(*declarations, 0, [](const SourceDeclaration& declaration) {
                Require(declaration.Kind <= SourceKind::Other, "a kind that there is not");
            });
    if (const auto index = reader.Index()) {
        UseIndex(*index);
        Require(SourceIndexStorage::DigestOf(*index) == reader.Digest(),
                "an index is not what the cache says it is");
    }
}

// The first byte of the input says whether the rest is a cache or changes to one, and whether the
// checksums are put right.
const FuzzTarget target("scancache", [](std::string_view input) {
    static const std::string sound = SoundCache();
    const unsigned char mode = input.empty() ? 0 : static_cast<unsigned char>(input[0]);
    if (!input.empty()) input.remove_prefix(1);
    const bool isSealed = mode & 1;
    std::string bytes = mode & 2 ? std::string(input) : Edited(sound, input);
    if (isSealed) Seal(bytes);
    const std::string path = Scratch("cache");
    std::ofstream(path, std::ios::binary) << bytes;
    const auto reader = ScanCacheReader::Open(path, kPlace);
    Require(reader || bytes != sound, "a sound cache is refused");
    Require(!ScanCacheReader::Open(path, "elsewhere") || isSealed, "the place does not matter");
    if (reader) Use(*reader);
    // Whatever it holds as declarations: they are refused, or they are some.
    DecodeDeclarations(
        input, 0, [](const SourceDeclaration& declaration) { EncodeDeclarations({declaration}); });
});

} // namespace
} // namespace paperkite::fuzz

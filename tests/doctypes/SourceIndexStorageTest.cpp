#include "doctypes/source/SourceIndexStorage.h"
#include "doctypes/SourceTree.h"
#include "doctypes/source/DeclarationCodec.h"

#include <cstring>
#include <gtest/gtest.h>
#include <random>

namespace paperkite::test {

namespace {

std::string Stored(const SourceIndex& index) {
    std::string bytes;
    SourceIndexStorage::Store(index, [&](const void* piece, std::size_t size) {
        bytes.append(static_cast<const char*>(piece), size);
    });
    return bytes;
}

std::optional<SourceIndex> Loaded(std::string_view bytes) {
    return SourceIndexStorage::Load(bytes.size(), [&](void* to, std::size_t size) {
        if (size > bytes.size()) {
            return false;
        }
        std::memcpy(to, bytes.data(), size);
        bytes.remove_prefix(size);
        return true;
    });
}

SourceIndex Sample() {
    SourceTree tree;
    tree.Write("a.cpp", "namespace n {\nclass A {\n  void f(int);\n  void f(long);\n};\n"
                        "void A::f(int) {}\nextern int v;\nint v;\n}\n");
    tree.Write("b/c.py", "class C:\n  def m(self):\n    pass\n");
    return tree.Scan();
}

/// Uses all that an index gives.
std::size_t Use(const SourceIndex& index) {
    DumpOptions options;
    options.Places = true;
    std::size_t count = Dump(index, options).size();
    for (SourceIndex::Id id = 0; id < index.Size(); ++id) {
        count += index.Find(index.QualifiedName(id)).has_value();
        count += index.Parameters(id).size() + index.Places(id).size() + index.Template(id).size() +
                 index.Trait(id).size() + index.LanguageName(id).size();
    }
    return count + index.Find("p~nothing").has_value();
}

std::vector<SourceDeclaration> Declarations() {
    SourceDeclaration a;
    a.Name = "get";
    a.Kind = SourceKind::Method;
    a.Language = SourceLanguage::Cpp;
    a.LanguageName = "C++";
    a.Scope = {{"ns", SourceKind::Namespace}, {"A", SourceKind::Class}};
    a.Signature = "(int a)";
    a.Type = "int";
    a.Types = "(int)";
    a.Line = 3;
    a.EndLine = 9;
    SourceDeclaration b = a;
    b.Name = "set\xFF\n";
    b.IsForward = b.IsFileLocal = b.IsMember = b.HasAccess = true;
    b.Access = SourceAccess::Private;
    SourceDeclaration c;
    c.Name = "x";
    c.OtherKind = "odd";
    c.Inherits = "B";
    c.Template = "<T>";
    c.Trait = "Show";
    c.Line = 0x7FFFFFFF;
    return {a, b, c};
}

bool AreEqual(const SourceDeclaration& a, const SourceDeclaration& b) {
    return EncodeDeclarations({a}) == EncodeDeclarations({b}) && a.Name == b.Name &&
           a.Scope == b.Scope && a.Line == b.Line && a.Type == b.Type && a.Trait == b.Trait &&
           a.IsMember == b.IsMember && a.Access == b.Access && a.OtherKind == b.OtherKind;
}

} // namespace

TEST(SourceIndexStorage, GivesBackWhatItWasGiven) {
    const SourceIndex index = Sample();
    const auto loaded = Loaded(Stored(index));
    ASSERT_TRUE(loaded.has_value());
    EXPECT_EQ(Use(*loaded), Use(index));
    EXPECT_EQ(Stored(*loaded), Stored(index));
    EXPECT_EQ(SourceIndexStorage::DigestOf(*loaded), SourceIndexStorage::DigestOf(index));
}

TEST(SourceIndexStorage, BytesOfWrongLengthGiveNothing) {
    const std::string bytes = Stored(Sample());
    for (std::size_t length = 0; length < bytes.size(); length += 7) {
        EXPECT_FALSE(Loaded(std::string_view(bytes).substr(0, length)).has_value()) << length;
    }
    EXPECT_FALSE(Loaded(bytes + "x").has_value());
}

TEST(SourceIndexStorage, BytesThatWereMadeUpGiveNothingOrAnIndexThatCanBeUsed) {
    const std::string bytes = Stored(Sample());
    std::mt19937 random(3);
    std::size_t refused = 0;
    for (int round = 0; round < 20'000; ++round) {
        std::string other = bytes;
        for (unsigned count = 1 + random() % 3; count > 0; --count) {
            const std::size_t at = random() % other.size();
            constexpr char odd[] = {'\x00', '\x01', '\x7F', '\xFF', '\x10'};
            other[at] = odd[random() % std::size(odd)];
        }
        const auto index = Loaded(other);
        refused += !index;
        if (index) {
            Use(*index);
        }
    }
    EXPECT_GT(refused, 1000u);
}

TEST(DeclarationCodec, GivesBackWhatItWasGiven) {
    const auto declarations = Declarations();
    std::vector<SourceDeclaration> decoded;
    ASSERT_TRUE(DecodeDeclarations(EncodeDeclarations(declarations), 5,
                                   [&](const SourceDeclaration& d) { decoded.push_back(d); }));
    ASSERT_EQ(decoded.size(), declarations.size());
    for (std::size_t i = 0; i < decoded.size(); ++i) {
        EXPECT_TRUE(AreEqual(decoded[i], declarations[i])) << i;
        EXPECT_EQ(decoded[i].File, 5u);
    }
}

TEST(DeclarationCodec, BytesThatWereMadeUpNeverLeadAstray) {
    const std::string bytes = EncodeDeclarations(Declarations());
    std::mt19937 random(5);
    std::size_t refused = 0;
    for (int round = 0; round < 20'000; ++round) {
        std::string other = bytes.substr(0, 1 + random() % bytes.size());
        other[random() % other.size()] = static_cast<char>(random());
        refused += !DecodeDeclarations(other, 0, [](const SourceDeclaration& d) {
            ASSERT_FALSE(d.Name.empty());
            ASSERT_LE(d.Kind, SourceKind::Other);
        });
    }
    EXPECT_GT(refused, 1000u);
}

} // namespace paperkite::test

#include "BenchmarkCode.h"

#include "doctypes/source/SourceIndexBuilder.h"
#include "doctypes/source/SourceNamespaceDefs.h"

#include <string>

#include <malloc.h>

namespace paperkite::bench {

namespace {

constexpr std::int64_t kClassesOfNamespace = 100;
constexpr std::int64_t kMembersOfKind = 49;

/// Tells a builder of declarations, one after the other in a file for each namespace.
class Author {
public:
    explicit Author(std::string_view project) : mBuilder(project) {}

    void BeginFile(const std::string& path) {
        mFile = mBuilder.AddFile(path);
        mLine = 0;
    }
    void Declare(std::vector<ScopeStep> scope, std::string name, SourceKind kind) {
        SourceDeclaration declaration;
        declaration.Scope = std::move(scope);
        declaration.Name = std::move(name);
        declaration.Kind = kind;
        declaration.Language = SourceLanguage::Cpp;
        declaration.LanguageName = "C++";
        declaration.File = mFile;
        declaration.Line = declaration.EndLine = ++mLine;
        if (kind == SourceKind::Method) declaration.Signature = "(const Slice& key, int flags)";
        mBuilder.Add(declaration);
    }
    SourceIndex Finish() { return *mBuilder.Finish(); }

private:
    SourceIndexBuilder mBuilder;
    std::uint32_t mFile = 0;
    std::uint32_t mLine = 0;
};

void DeclareClass(Author& author, const ScopeStep& space, const std::string& name) {
    author.Declare({space}, name, SourceKind::Class);
    const ScopeStep type{name, SourceKind::Class};
    for (std::int64_t member = 0; member < kMembersOfKind; ++member)
        author.Declare({space, type}, "fetchRecord" + std::to_string(member), SourceKind::Method);
    for (std::int64_t member = 0; member < kMembersOfKind; ++member)
        author.Declare({space, type}, "recordCount" + std::to_string(member), SourceKind::Field);
}

} // namespace

SourceIndex IndexOfClasses(std::int64_t items) {
    Author author("engine");
    const std::int64_t classes = items / (2 * kMembersOfKind + 1);
    for (std::int64_t number = 0; number < classes; ++number) {
        const std::string space = "storage" + std::to_string(number / kClassesOfNamespace);
        if (number % kClassesOfNamespace == 0) {
            author.BeginFile(space + ".h");
            author.Declare({}, space, SourceKind::Namespace);
        }
        DeclareClass(author, {space, SourceKind::Namespace},
                     "TableReader" + std::to_string(number % kClassesOfNamespace));
    }
    return author.Finish();
}

SourceIndex IndexOfOneClass(std::int64_t fields) {
    Author author("engine");
    author.BeginFile("registers.h");
    author.Declare({}, "Registers", SourceKind::Class);
    const ScopeStep type{"Registers", SourceKind::Class};
    for (std::int64_t field = 0; field < fields; ++field)
        author.Declare({type}, "registerValue" + std::to_string(field), SourceKind::Field);
    return author.Finish();
}

BenchmarkCode::BenchmarkCode(SourceIndex index)
    : Provider(MakeRef<SourceNamespaceProvider>(Project->GetComments())) {
    Provider->AddRoot(std::move(index), "/nowhere");
    Definitions = MakeSourceNamespaceDefs({&Index()});
    Project->RegisterProvider(kSourceMoniker, Provider);
}

BenchmarkCode::~BenchmarkCode() {
    Definitions->Release();
}

double AllocatedBytes() {
    const auto info = mallinfo2();
    return static_cast<double>(info.uordblks) + static_cast<double>(info.hblkhd);
}

void ForgetFreeMemory() {
    ::malloc_trim(0);
}

} // namespace paperkite::bench

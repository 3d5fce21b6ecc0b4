#include "doctypes/source/CtagsOptions.h"

#include <algorithm>
#include <iterator>

namespace paperkite {

namespace {

constexpr std::string_view languages =
    "--languages=C,C++,C#,Java,Python,JavaScript,TypeScript,Go,Rust,PHP,Ruby,QtMoc,D,Kotlin,Lua,"
    "ObjectiveC,Perl,Haskell,Ada,Pascal,Fortran,Elixir,Julia,R,Sh,Tcl";

constexpr std::string_view extensions[] = {
    ".c",     ".h",    ".cpp",  ".cc",  ".cxx",  ".c++",  ".C",    ".H",   ".hpp", ".hh",  ".hxx",
    ".h++",   ".inl",  ".ipp",  ".tcc", ".tpp",  ".cs",   ".java", ".py",  ".pyi", ".pyx", ".pyw",
    ".js",    ".mjs",  ".cjs",  ".jsx", ".ts",   ".tsx",  ".mts",  ".cts", ".go",  ".rs",  ".php",
    ".phtml", ".php5", ".php7", ".rb",  ".ruby", ".rake", ".d",    ".di",  ".kt",  ".kts", ".lua",
    ".m",     ".mm",   ".pl",   ".pm",  ".hs",   ".ada",  ".adb",  ".ads", ".pas", ".p",   ".f",
    ".f90",   ".f95",  ".f03",  ".f08", ".f77",  ".for",  ".ftn",  ".F",   ".F90", ".F95", ".ex",
    ".exs",   ".jl",   ".r",    ".R",   ".sh",   ".bash", ".ksh",  ".zsh", ".tcl", ".cp"};

} // namespace

bool IsSourceFileName(std::string_view path) {
    const std::string_view name = path.substr(path.rfind('/') + 1);
    if (name.ends_with(".min.js")) { // made from a source, not written
        return false;
    }
    const std::size_t dot = name.rfind('.');
    return dot != std::string_view::npos && std::find(std::begin(extensions), std::end(extensions),
                                                      name.substr(dot)) != std::end(extensions);
}

bool MayUseMacros(std::string_view path) {
    constexpr std::string_view without[] = {
        ".py",  ".pyi", ".pyx", ".pyw", ".js", ".mjs",   ".cjs",  ".jsx",  ".ts",   ".tsx", ".mts",
        ".cts", ".go",  ".rs",  ".php", ".rb", ".phtml", ".php5", ".php7", ".ruby", ".rake"};
    return std::none_of(std::begin(without), std::end(without),
                        [&](std::string_view extension) { return path.ends_with(extension); });
}

std::vector<std::string> CtagsOptions(const CodeSurvey& survey) {
    std::vector<std::string> options = {
        "--options=NONE",
        "--quiet",
        "--output-format=json",
        "--sort=no",
        "--extras=-q-r-f-p",
        "--fields=NFSaeilmnpstz",
        "--fields-C={properties}",
        "--fields-C++={properties}{specialization}{template}",
        "--fields-Python=+{decorators}",
        std::string(languages),
        "--kinds-C=+px-h",
        "--kinds-C++=+px-h",
        // what the parsers do not know yet
        R"(--kinddef-Rust=k,constant,constants)",
        R"(--regex-Rust=/^(pub(\([^)]*\))?[ \t]+)?const[ \t]+([A-Za-z_][A-Za-z_0-9]*)[ \t]*:/\3/k/)",
        R"(--kinddef-PHP=e,enum,enumerations)",
        R"(--kinddef-PHP=C,case,cases of enumerations)",
        R"(--regex-PHP=/^[ \t]*enum[ \t]+([A-Za-z_][A-Za-z_0-9]*)/\1/e/)",
        R"(--regex-PHP=/^[ \t]*case[ \t]+([A-Za-z_][A-Za-z_0-9]*)[ \t]*(=[^:]*)?;/\1/C/)",
        "--map-TypeScript=+.tsx",
        "--map-TypeScript=+.mts",
        "--map-TypeScript=+.cts",
        "--map-JavaScript=+.cjs",
        "--map-Python=+.pyi",
        "--map-C++=+.tpp",
        "--map-C++=+.ipp",
    };
    // ".h" is mapped to three languages; only without the others C gets it
    if (!survey.HeadersAreCpp()) {
        options.insert(options.end(), {"--map-C++=-.h", "--map-ObjectiveC=-.h", "--map-C=+.h"});
    }
    for (const std::string& definition : survey.Definitions()) {
        options.push_back("-D");
        options.push_back(definition);
    }
    return options;
}

} // namespace paperkite

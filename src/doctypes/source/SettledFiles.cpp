#include "doctypes/source/SettledFiles.h"

#include "doctypes/source/LanguageRefiner.h"

#include <array>

namespace paperkite {

namespace {

struct Ending {
    std::string_view Text;
    SourceLanguage Language;
};

// Endings that mean one language only. Where several lay claim to one (".m", ".h"), ctags looks
// into the file.
constexpr std::array<Ending, 41> endings = {{
    {".py", SourceLanguage::Python},      {".pyi", SourceLanguage::Python},
    {".pyx", SourceLanguage::Python},     {".js", SourceLanguage::JavaScript},
    {".mjs", SourceLanguage::JavaScript}, {".cjs", SourceLanguage::JavaScript},
    {".jsx", SourceLanguage::JavaScript}, {".ts", SourceLanguage::TypeScript},
    {".tsx", SourceLanguage::TypeScript}, {".mts", SourceLanguage::TypeScript},
    {".cts", SourceLanguage::TypeScript}, {".rs", SourceLanguage::Rust},
    {".kt", SourceLanguage::Other},       {".kts", SourceLanguage::Other},
    {".lua", SourceLanguage::Other},      {".pl", SourceLanguage::Other},
    {".pm", SourceLanguage::Other},       {".hs", SourceLanguage::Other},
    {".adb", SourceLanguage::Other},      {".ads", SourceLanguage::Other},
    {".pas", SourceLanguage::Other},      {".f", SourceLanguage::Other},
    {".f90", SourceLanguage::Other},      {".f95", SourceLanguage::Other},
    {".f03", SourceLanguage::Other},      {".f08", SourceLanguage::Other},
    {".f77", SourceLanguage::Other},      {".for", SourceLanguage::Other},
    {".ftn", SourceLanguage::Other},      {".F", SourceLanguage::Other},
    {".F90", SourceLanguage::Other},      {".F95", SourceLanguage::Other},
    {".ex", SourceLanguage::Other},       {".exs", SourceLanguage::Other},
    {".jl", SourceLanguage::Other},       {".r", SourceLanguage::Other},
    {".R", SourceLanguage::Other},        {".sh", SourceLanguage::Other},
    {".bash", SourceLanguage::Other},     {".ksh", SourceLanguage::Other},
    {".tcl", SourceLanguage::Other},
}};

} // namespace

std::optional<std::vector<ScopeStep>> GroupOfFile(std::string_view path) {
    const std::size_t dot = path.rfind('.');
    const std::string_view text = dot == std::string_view::npos ? "" : path.substr(dot);
    for (const Ending& ending : endings) {
        if (ending.Text == text) {
            return LanguageRefiner::For(ending.Language).GroupOfPath(path);
        }
    }
    return std::nullopt;
}

std::vector<OpenGroups::Place> OpenGroups::WayTo(const std::vector<ScopeStep>& group) {
    std::vector<Place> way = {Root};
    for (const ScopeStep& step : group) {
        const Place next = static_cast<Place>(mNodes.size());
        const auto [at, isNew] = mPlaces.try_emplace({way.back(), step.Name}, next);
        if (isNew) {
            mNodes.emplace_back();
        }
        way.push_back(at->second);
    }
    return way;
}

bool OpenGroups::Open(std::string_view path) {
    const auto group = GroupOfFile(path);
    if (!group) {
        return false;
    }
    const std::vector<Place> way = WayTo(*group);
    for (const Place place : way) {
        ++mNodes[place].FilesBelow;
    }
    ++mNodes[way.back()].Files;
    return true;
}

void OpenGroups::Close(std::string_view path) {
    const std::vector<Place> way = WayTo(GroupOfFile(path).value());
    for (const Place place : way) {
        --mNodes[place].FilesBelow;
    }
    --mNodes[way.back()].Files;
}

OpenGroups::Place OpenGroups::Find(Place above, std::string_view name) const {
    const auto at = mPlaces.find(std::pair<Place, std::string>(above, name));
    return at == mPlaces.end() ? Nothing : at->second;
}

} // namespace paperkite

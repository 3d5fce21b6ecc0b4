#include "commenttexts/ExampleReference.h"

#include "commenttexts/PlainText.h"
#include "foundation/Text.h"

#include <algorithm>
#include <charconv>

namespace paperkite {

namespace {

constexpr std::string_view kSource = "source: ";
constexpr std::string_view kCommentSigns = "/*#-<!;%\"' \t";

std::string EncodedFile(const std::string& file) {
    return ReplaceAll(ReplaceAll(ReplaceAll(file, "%", "%25"), "#", "%23"), ":", "%3A");
}

std::string DecodedFile(const std::string& file) {
    return ReplaceAll(ReplaceAllIgnoringCase(ReplaceAll(file, "%23", "#"), "%3a", ":"), "%25", "%");
}

std::optional<std::size_t> Number(std::string_view digits) {
    std::size_t number = 0;
    const auto end = digits.data() + digits.size();
    const auto read = std::from_chars(digits.data(), end, number);
    if (read.ec != std::errc() || read.ptr != end || number == 0) return {};
    return number;
}

/// False when the range is none.
bool ReadLines(std::string_view range, ExampleReference& reference) {
    const std::size_t dash = range.find('-');
    const auto from = Number(range.substr(0, dash));
    const auto to = dash == range.npos ? from : Number(range.substr(dash + 1));
    if (!from || !to || *to < *from) return false;
    reference.Taken = ExampleReference::Part::Lines;
    reference.From = *from;
    reference.To = *to;
    return true;
}

/// What a line of a source has to do with regions.
struct Mark {
    enum class Kind { None, Toggle, Begin, End };
    Kind What = Kind::None;
    std::string Name;
};

/// What stands between comment signs, if the line holds nothing else.
std::string_view InComment(std::string_view line) {
    while (!line.empty() && (line.back() == '\r' || line.back() == ' ' || line.back() == '\t'))
        line.remove_suffix(1);
    for (const std::string_view end : {"*/", "-->"})
        if (line.ends_with(end)) line.remove_suffix(end.size());
    const std::size_t from = line.find_first_not_of(kCommentSigns);
    return from == line.npos ? std::string_view() : line.substr(from);
}

Mark MarkOf(std::string_view line) {
    // Most lines mark nothing: a quick look first.
    const bool mayName = line.find('[') != line.npos;
    if (!mayName && FindIgnoringCase(line, "region") == line.npos) return {};
    const std::string text = TrimWhiteSpace(InComment(line));
    const std::size_t start = line.find_first_not_of(" \t");
    const bool isComment =
        start != line.npos && kCommentSigns.find(line[start]) != kCommentSigns.npos;
    if (isComment && text.size() > 2 && text.starts_with('[') && text.ends_with(']') &&
        text.find(']') == text.size() - 1)
        return {Mark::Kind::Toggle, TrimWhiteSpace(text.substr(1, text.size() - 2))};
    std::string word = text;
    if (word.starts_with("pragma ")) word = TrimWhiteSpace(word.substr(7));
    if (!isComment) return {};
    if (EqualIgnoringCase(Token(word, " ", 1), "endregion")) return {Mark::Kind::End, {}};
    if (!EqualIgnoringCase(Token(word, " ", 1), "region") || word.size() < 8) return {};
    const std::string name = TrimWhiteSpace(word.substr(7));
    const bool isQuoted = name.size() > 2 && name.front() == '"' && name.back() == '"';
    return {Mark::Kind::Begin, isQuoted ? name.substr(1, name.size() - 2) : name};
}

/// Lines with their ends; the last may have none.
std::vector<std::string_view> SourceLines(std::string_view source) {
    std::vector<std::string_view> lines;
    while (!source.empty()) {
        const std::size_t end = source.find('\n');
        lines.push_back(source.substr(0, end));
        if (end == source.npos) break;
        source.remove_prefix(end + 1);
    }
    for (std::string_view& line : lines)
        if (line.ends_with('\r')) line.remove_suffix(1);
    return lines;
}

class RegionWalk {
public:
    explicit RegionWalk(const std::string& wanted) : mWanted(wanted) {}
    /// Whether the line belongs to the region.
    bool Take(const Mark& mark) {
        switch (mark.What) {
        case Mark::Kind::None:
            return mInToggle || mDepthInside > 0;
        case Mark::Kind::Toggle:
            if (mark.Name == mWanted) {
                mInToggle = !mInToggle;
                mFound = true;
            }
            return false;
        case Mark::Kind::Begin:
            if (mDepthInside > 0)
                ++mDepthInside;
            else if (mark.Name == mWanted)
                mDepthInside = 1;
            mFound = mFound || mDepthInside > 0;
            return false;
        case Mark::Kind::End:
            if (mDepthInside > 0) --mDepthInside;
            return false;
        }
        return false;
    }
    bool WasFound() const { return mFound; }
    bool IsOpen() const { return mInToggle || mDepthInside > 0; }

private:
    const std::string& mWanted;
    bool mInToggle = false;
    bool mFound = false;
    std::size_t mDepthInside = 0;
};

void AddLine(ExampleSnippet& snippet, std::string_view line, std::size_t number) {
    if (snippet.Text.empty()) snippet.FirstLine = number;
    snippet.Text.append(line).append("\n");
}

void TakeRegion(const ExampleReference& reference, std::string_view source,
                ExampleSnippet& snippet) {
    RegionWalk walk(reference.Region);
    std::size_t number = 0;
    for (const std::string_view line : SourceLines(source)) {
        ++number;
        if (walk.Take(MarkOf(line))) AddLine(snippet, line, number);
    }
    const std::string named = "\"" + reference.File + "\" ";
    if (!walk.WasFound()) {
        const auto others = RegionsIn(source);
        snippet.Problem =
            named + "has no region \"" + reference.Region + "\". " +
            (others.empty() ? "It marks none; choose lines, or mark the region in the source."
                            : "It has " + Join(others, ", ") + "; choose one of these.");
    } else if (walk.IsOpen()) {
        snippet.Problem = "The region \"" + reference.Region + "\" of " + named +
                          "does not end; mark its end in the source.";
    }
}

void TakeLines(const ExampleReference& reference, std::string_view source,
               ExampleSnippet& snippet) {
    const auto lines = SourceLines(source);
    const bool isWhole = reference.Taken == ExampleReference::Part::Whole;
    const std::size_t to = isWhole ? lines.size() : reference.To;
    for (std::size_t line = isWhole ? 1 : reference.From; line <= std::min(to, lines.size());
         ++line)
        if (MarkOf(lines[line - 1]).What == Mark::Kind::None)
            AddLine(snippet, lines[line - 1], line);
    if (to > lines.size())
        snippet.Problem = "\"" + reference.File + "\" has only " + std::to_string(lines.size()) +
                          (lines.size() == 1 ? " line" : " lines") +
                          "; choose the lines of the example again.";
}

std::size_t IndentationOf(std::string_view line) {
    return std::min(line.find_first_not_of(" \t"), line.size());
}

} // namespace

std::optional<ExampleReference> ExampleReference::Read(std::string_view text) {
    ExampleReference reference;
    if (TrimWhiteSpace(text).empty()) return reference;
    const std::size_t end = text.find('\n');
    const std::string line = TrimWhiteSpace(text.substr(0, end));
    if (!line.starts_with(kSource)) return {};
    std::string place = TrimWhiteSpace(line.substr(kSource.size()));
    const std::size_t cut = place.find_first_of("#:");
    if (cut != place.npos && place[cut] == '#') {
        reference.Taken = Part::Region;
        reference.Region = place.substr(cut + 1);
    } else if (cut != place.npos &&
               !ReadLines(std::string_view(place).substr(cut + 1), reference)) {
        return {};
    }
    reference.File = DecodedFile(place.substr(0, cut));
    if (reference.File.empty()) return {};
    if (end != text.npos) reference.Caption = TrimWhiteSpace(text.substr(end + 1));
    return reference;
}

std::string ExampleReference::Write() const {
    if (File.empty()) return {};
    std::string text = std::string(kSource) + EncodedFile(File);
    if (Taken == Part::Region) text += "#" + PlainText::OneLine(Region);
    if (Taken == Part::Lines) {
        text += ":" + std::to_string(From);
        if (To != From) text += "-" + std::to_string(To);
    }
    return Caption.empty() ? text : text + "\n" + Caption;
}

std::string ExampleSnippet::WithoutIndentation() const {
    std::size_t shared = std::string::npos;
    const auto lines = SourceLines(Text);
    for (const std::string_view line : lines)
        if (IndentationOf(line) < line.size()) shared = std::min(shared, IndentationOf(line));
    std::string out;
    for (const std::string_view line : lines)
        out.append(line.substr(std::min(shared, line.size()))).append("\n");
    return out;
}

ExampleSnippet TakeExample(const ExampleReference& reference, std::string_view source) {
    ExampleSnippet snippet;
    if (reference.Taken == ExampleReference::Part::Region)
        TakeRegion(reference, source, snippet);
    else
        TakeLines(reference, source, snippet);
    return snippet;
}

std::vector<std::string> RegionsIn(std::string_view source) {
    std::vector<std::string> names;
    for (const std::string_view line : SourceLines(source)) {
        const Mark mark = MarkOf(line);
        if (mark.Name.empty()) continue;
        if (std::find(names.begin(), names.end(), mark.Name) == names.end())
            names.push_back(mark.Name);
    }
    return names;
}

} // namespace paperkite

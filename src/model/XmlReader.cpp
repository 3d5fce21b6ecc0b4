#include "model/XmlReader.h"

#include "foundation/Text.h"
#include "model/XmlWords.h"

#include <algorithm>
#include <sstream>

#include <pugixml.hpp>

namespace paperkite {

namespace {

constexpr int kDeepest = 200;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string MarkupOf(const pugi::xml_node& node) {
    std::ostringstream stream;
    node.print(stream, "", pugi::format_raw);
    return stream.str();
}

std::size_t OffsetOf(const pugi::xml_node& node) {
    const std::ptrdiff_t offset = node.offset_debug();
    return offset < 0 ? 0 : static_cast<std::size_t>(offset);
}

// Line breaks and indentation between elements say nothing; blanks between text and elements do.
void DropBlankText(XmlElement& element) {
    if (element.HasText()) return;
    std::erase_if(element.Children,
                  [](const XmlElement& child) { return child.Kind == XmlElement::NodeKind::Text; });
}

// Around markup that is passed over, such as a second declaration, stands one text, as it will when
// it is read again.
void AddChild(XmlElement& element, XmlElement child) {
    const bool isText = child.Kind == XmlElement::NodeKind::Text;
    if (isText && !element.Children.empty() &&
        element.Children.back().Kind == XmlElement::NodeKind::Text)
        element.Children.back().Text += child.Text;
    else
        element.Children.push_back(std::move(child));
}

bool Convert(const pugi::xml_node& node, XmlElement& result, int depth);

bool ConvertChildren(const pugi::xml_node& node, XmlElement& result, int depth) {
    for (const pugi::xml_node& child : node.children()) {
        XmlElement converted;
        if (!Convert(child, converted, depth + 1)) {
            result = std::move(converted);
            return false;
        }
        AddChild(result, std::move(converted));
    }
    DropBlankText(result);
    return true;
}

/// False when it is nested too deeply; then `result` is the element that is too deep.
bool Convert(const pugi::xml_node& node, XmlElement& result, int depth) {
    result.Offset = OffsetOf(node);
    if (node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata) {
        result.Kind = node.type() == pugi::node_pcdata ? XmlElement::NodeKind::Text
                                                       : XmlElement::NodeKind::CData;
        result.Text = node.value();
        return true;
    }
    if (node.type() != pugi::node_element) {
        result.Kind = XmlElement::NodeKind::Markup;
        result.Text = MarkupOf(node);
        return true;
    }
    result.Name = node.name();
    for (const pugi::xml_attribute& attribute : node.attributes())
        result.Attributes.emplace_back(attribute.name(), attribute.value());
    return depth < kDeepest && ConvertChildren(node, result, depth);
}

bool HasMergeMarks(const std::string& bytes) {
    return bytes.starts_with("<<<<<<<") || bytes.find("\n<<<<<<<") != std::string::npos;
}

} // namespace

FileProblem XmlReader::ProblemAt(std::size_t offset) const {
    FileProblem problem;
    problem.File = mFile;
    const std::string_view before =
        std::string_view(mBytes).substr(0, std::min(offset, mBytes.size()));
    problem.Line = 1 + static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n'));
    const std::size_t lineStart = before.rfind('\n') + 1; // npos + 1 is 0
    const std::string_view line = before.substr(lineStart);
    problem.Column =
        1 + static_cast<std::size_t>(std::count_if(line.begin(), line.end(), [](char character) {
            return (static_cast<unsigned char>(character) & 0xC0) != 0x80;
        }));
    return problem;
}

FileProblem XmlReader::BrokenMarkup(std::size_t offset, const std::string& what) const {
    FileProblem problem = ProblemAt(offset);
    problem.Reason = FileProblem::ReasonCode::NotXml;
    problem.What = "This is not well-formed XML: " + what + ".";
    if (HasMergeMarks(mBytes))
        problem.Remedy =
            "The file holds the marks of an unfinished merge (\"<<<<<<<\"): finish the "
            "merge, then open it again.";
    else
        problem.Remedy = "Mend that place in a text editor, or take the file from a backup.";
    return problem;
}

std::optional<FileProblem> XmlReader::Read(XmlFile& result) const {
    std::string_view bytes = mBytes;
    if (bytes.starts_with(kByteOrderMark)) bytes.remove_prefix(kByteOrderMark.size());
    const std::size_t skipped = mBytes.size() - bytes.size();

    pugi::xml_document document;
    const unsigned int flags = (pugi::parse_default | pugi::parse_comments | pugi::parse_pi |
                                pugi::parse_doctype | pugi::parse_ws_pcdata) &
                               ~pugi::parse_wconv_attribute;
    const pugi::xml_parse_result parsed = document.load_buffer(bytes.data(), bytes.size(), flags);
    if (!parsed) {
        // An empty file and one of bare text have no place that is more at fault than the first.
        const bool hasPlace = parsed.status != pugi::status_no_document_element;
        return BrokenMarkup(hasPlace ? skipped + static_cast<std::size_t>(parsed.offset) : 0,
                            WordsFor(parsed));
    }
    bool foundRoot = false;
    for (const pugi::xml_node& node : document.children()) {
        XmlElement converted;
        if (!Convert(node, converted, 0))
            return BrokenMarkup(skipped + converted.Offset, "elements are nested too deeply");
        if (node.type() != pugi::node_element) {
            if (converted.Kind == XmlElement::NodeKind::Markup)
                (foundRoot ? result.Epilog : result.Prolog).push_back(std::move(converted));
            continue;
        }
        if (foundRoot)
            return BrokenMarkup(skipped + converted.Offset, "a second root element begins here");
        foundRoot = true;
        result.Root = std::move(converted);
    }
    return {};
}

std::optional<FileProblem> XmlReader::CheckRoot(const XmlElement& root, const std::string& name,
                                                int newest, const std::string& what) const {
    if (root.Name != name) {
        FileProblem problem = ProblemAt(root,
                                        "This is not " + what + ": its root element is <" +
                                            root.Name + "> and not <" + name + ">.",
                                        "Choose another file.");
        problem.Reason = FileProblem::ReasonCode::WrongRoot;
        return problem;
    }
    const std::string* version = root.FindAttribute("version");
    const bool isNumber = version && !version->empty() && version->size() < 9 &&
                          version->find_first_not_of("0123456789") == std::string::npos;
    const int number = isNumber ? std::stoi(*version) : 0;
    if (number < 1)
        return ProblemAt(root, "The version of the file format is missing or no number.",
                         "Write version=\"" + std::to_string(newest) + "\" into <" + name + ">.");
    if (number <= newest) return {};
    FileProblem problem =
        ProblemAt(root,
                  "The file was made by a newer version of the program (file format " + *version +
                      ", this one reads up to " + std::to_string(newest) + ").",
                  "Update the program and open the file again; it was not touched.");
    problem.Reason = FileProblem::ReasonCode::NewerVersion;
    return problem;
}

FileProblem XmlReader::ProblemAt(const XmlElement& element, std::string what,
                                 std::string remedy) const {
    const std::size_t skipped = mBytes.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0;
    FileProblem problem = ProblemAt(skipped + element.Offset);
    // Elements are known by where their name begins.
    if (element.IsElement() && problem.Column > 1) --problem.Column;
    problem.Reason = FileProblem::ReasonCode::BadContent;
    problem.What = std::move(what);
    problem.Remedy = std::move(remedy);
    return problem;
}

} // namespace paperkite

#include "commenttexts/LinkTarget.h"

#include "foundation/Text.h"

#include <algorithm>
#include <array>

namespace paperkite {

namespace {

using Kind = LinkTarget::Kind;

constexpr std::string_view kHelp1 = "ms-its:";
constexpr std::string_view kHelp2 = "ms-help://";
/// Those that are addresses whatever stands behind them.
constexpr std::array<std::string_view, 7> kSchemes = {"file",   "ftp",     "http",  "https",
                                                      "mailto", "ms-help", "ms-its"};
constexpr std::array<std::string_view, 3> kScriptSchemes = {"javascript:", "vbscript:", "data:"};
constexpr std::size_t kLongestScriptScheme = 11;
constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyz";

bool IsControl(char byte) {
    const auto number = static_cast<unsigned char>(byte);
    return number < 0x20 || number == 0x7F;
}

bool IsBlankOrControl(char byte) {
    return byte == ' ' || IsControl(byte);
}

std::string_view WithoutEnds(std::string_view text) {
    while (!text.empty() && IsBlankOrControl(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlankOrControl(text.back()))
        text.remove_suffix(1);
    return text;
}

bool HoldsControls(std::string_view text) {
    return std::any_of(text.begin(), text.end(), IsControl);
}

bool IsBlank(std::string_view text) {
    return text.find_first_not_of(' ') == std::string_view::npos;
}

int HexDigit(char digit) {
    if (digit >= '0' && digit <= '9') return digit - '0';
    if (digit >= 'a' && digit <= 'f') return digit - 'a' + 10;
    if (digit >= 'A' && digit <= 'F') return digit - 'A' + 10;
    return -1;
}

/// The scheme in small letters; empty where the address has none. "std::map" has none: whoever
/// writes that means a name.
std::string SchemeOf(std::string_view address) {
    const std::size_t colon = address.find_first_of(":/?#");
    if (colon == std::string_view::npos || address[colon] != ':' || colon == 0) return {};
    std::string scheme = LowerCase(address.substr(0, colon));
    if (address.substr(colon).starts_with("::") &&
        std::find(kSchemes.begin(), kSchemes.end(), scheme) == kSchemes.end())
        return {};
    if (kLetters.find(scheme[0]) == std::string_view::npos ||
        scheme.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789+-.") != std::string::npos)
        return {};
    return scheme;
}

LinkTarget Malformed(LinkTarget target, std::string problem) {
    target.What = Kind::Malformed;
    target.Problem = std::move(problem);
    return target;
}

/// The pieces between separators, also empty ones.
template <std::size_t Count>
bool HasPieces(std::string_view text, std::string_view separator) {
    for (std::size_t piece = 1; piece <= Count; ++piece) {
        const std::size_t end = text.find(separator);
        if ((end == std::string_view::npos) != (piece == Count)) return false;
        if (IsBlank(text.substr(0, end))) return false;
        text.remove_prefix(piece == Count ? text.size() : end + separator.size());
    }
    return true;
}

LinkTarget HelpTopic1(LinkTarget target) {
    if (!target.Address.starts_with(kHelp1))
        return Malformed(std::move(target), "Help files are only found by \"ms-its:\" in small "
                                            "letters. Write the beginning so.");
    if (!HasPieces<2>(std::string_view(target.Address).substr(kHelp1.size()), "::/"))
        return Malformed(std::move(target),
                         "A topic of a help file is written \"ms-its:file.chm::/topic.htm\", with "
                         "one file and one topic. Write the missing one, or take away what is too "
                         "much.");
    target.What = Kind::HelpTopic;
    return target;
}

LinkTarget HelpTopic2(LinkTarget target) {
    if (!target.Address.starts_with(kHelp2))
        return Malformed(std::move(target), "Help collections are only found by \"ms-help://\" in "
                                            "small letters. Write the beginning so.");
    if (!HasPieces<3>(std::string_view(target.Address).substr(kHelp2.size()), "/"))
        return Malformed(std::move(target),
                         "A topic of a help collection is written "
                         "\"ms-help://namespace/identifier/topic.htm\", with these three pieces "
                         "and no other \"/\". Write the missing one, or take away what is too "
                         "much.");
    target.What = Kind::HelpTopic;
    return target;
}

LinkTarget FileOf(LinkTarget target, Kind what, std::string_view path) {
    target.File = path.substr(0, path.find_first_of("?#"));
    if (IsBlank(target.File))
        return Malformed(std::move(target),
                         "The address names no file. Write its path, or take the link away.");
    target.What = what;
    return target;
}

/// The path in a "file:" address; "file:///C:/a" names a drive.
std::string_view LocalPath(std::string_view rest) {
    if (rest.starts_with("//")) {
        rest.remove_prefix(2);
        if (rest.starts_with("localhost/")) rest.remove_prefix(9);
    }
    const bool isDrive = rest.size() > 3 && rest[0] == '/' && rest[2] == ':';
    return isDrive ? rest.substr(1) : rest;
}

LinkTarget Outside(LinkTarget target, const std::string& scheme) {
    std::string_view rest = std::string_view(target.Address).substr(scheme.size() + 1);
    const std::array<std::string_view, 3> hosts = {"http", "https", "ftp"};
    const bool needsHost = std::find(hosts.begin(), hosts.end(), scheme) != hosts.end();
    if (needsHost && !rest.starts_with("//"))
        return Malformed(std::move(target),
                         "The address lacks \"//\" behind \"" + scheme + ":\". Write it there.");
    if (needsHost) rest.remove_prefix(2);
    const std::string_view place = needsHost ? rest.substr(0, rest.find_first_of("/?#")) : rest;
    if (IsBlank(place))
        return Malformed(std::move(target), "Nothing stands behind \"" + scheme +
                                                (needsHost ? "://" : ":") +
                                                "\". Write the rest of the address.");
    if (needsHost && place.find_first_of(" \"<>") != std::string_view::npos)
        return Malformed(std::move(target),
                         "The name of the place behind \"" + scheme +
                             "://\" holds a blank, a quote, \"<\" or \">\", which no such name "
                             "has. Write it without them.");
    target.What = Kind::Outside;
    return target;
}

} // namespace

LinkTarget LinkTarget::Of(std::string_view given) {
    LinkTarget target;
    target.Address = WithoutEnds(given);
    if (target.Address.empty())
        return Malformed(std::move(target),
                         "The link has no address. Write where it leads, or take the link away.");
    if (HoldsControls(target.Address))
        return Malformed(std::move(target), "The address holds a line break, a tab or another "
                                            "control character. Write it anew in one line.");
    if (!ScriptSchemeOf(target.Address).empty())
        return Malformed(std::move(target), "The address is a script or a text of its own, which "
                                            "no page runs or shows. Link to a page instead.");
    const std::string scheme = SchemeOf(target.Address);
    if (scheme == "ms-its") return HelpTopic1(std::move(target));
    if (scheme == "ms-help") return HelpTopic2(std::move(target));
    const std::string address = target.Address;
    if (scheme == "file")
        return FileOf(std::move(target), Kind::LocalFile,
                      LocalPath(std::string_view(address).substr(5)));
    if (scheme.size() == 1) return FileOf(std::move(target), Kind::LocalFile, address);
    if (!scheme.empty()) return Outside(std::move(target), scheme);
    if (address.front() == '#') {
        target.What = Kind::Bookmark;
        return target;
    }
    return FileOf(std::move(target), address.front() == '/' ? Kind::LocalFile : Kind::File,
                  address);
}

std::string ScriptSchemeOf(std::string_view address) {
    std::string visible;
    for (const char byte : address) {
        if (visible.size() > kLongestScriptScheme) break;
        if (!IsControl(byte) && (byte != ' ' || !visible.empty())) visible += byte;
    }
    for (const std::string_view scheme : kScriptSchemes)
        if (EqualIgnoringCase(std::string_view(visible).substr(0, scheme.size()), scheme))
            return std::string(scheme);
    return {};
}

std::string PercentDecoded(std::string_view text) {
    std::string decoded;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const int high = text[at] == '%' && at + 2 < text.size() ? HexDigit(text[at + 1]) : -1;
        const int low = high >= 0 ? HexDigit(text[at + 2]) : -1;
        decoded += low >= 0 ? static_cast<char>(high * 16 + low) : text[at];
        if (low >= 0) at += 2;
    }
    return decoded;
}

} // namespace paperkite

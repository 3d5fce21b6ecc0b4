#include "commenttexts/CommentLinks.h"
#include "commenttexts/LinkTarget.h"
#include "foundation/HtmlText.h"
#include "foundation/Text.h"
#include "fuzz/FuzzTarget.h"
#include "links/HelpLinkDesigner.h"

namespace paperkite::fuzz {
namespace {

void CheckTarget(const std::string& address) {
    using Kind = LinkTarget::Kind;
    const LinkTarget target = LinkTarget::Of(address);
    const bool isMalformed = target.What == Kind::Malformed;
    Require(isMalformed != target.Problem.empty(), "a problem without a reason, or for nothing");
    const bool isFile = target.What == Kind::File || target.What == Kind::LocalFile;
    Require(isMalformed || isFile != target.File.empty(), "a file without a path");
    Require(isMalformed ||
                target.Address.find_first_of(std::string_view("\n\t\r\0", 4)) == std::string::npos,
            "a control character leads somewhere");
    Require(isMalformed || !ContainsIgnoringCase(target.Address.substr(0, 11), "javascript:"),
            "a script leads somewhere");
    const LinkTarget again = LinkTarget::Of(target.Address);
    Require(again.What == target.What && again.File == target.File,
            "an address is read in two ways");
    const std::string decoded = PercentDecoded(address);
    Require(decoded.size() <= address.size(), "decoding makes more of a text");
}

/// The panel that composes topics and the check agree on what one is.
void CheckDesigner(const std::string& address) {
    HelpLinkDesigner designer("designer");
    designer.SethRef(address);
    const std::string written = designer.GethRef();
    designer.SethRef(written);
    Require(designer.GethRef() == written, "a link reads back as another one: " + written);
    const LinkTarget target = LinkTarget::Of(address);
    if (target.What != LinkTarget::Kind::HelpTopic) return;
    designer.SethRef(target.Address);
    Require(designer.GethRef() == target.Address, "a topic is not taken apart: " + target.Address);
    Require(designer.Validate(true), "a topic lacks something: " + target.Address);
}

std::string AsAttribute(const std::string& text) {
    return ReplaceAll(HtmlText::Escaped(text), "\"", "&quot;");
}

const FuzzTarget target("link", [](std::string_view input) {
    const std::string text(input);
    CheckTarget(text);
    CheckDesigner(text);
    for (const CommentLinks::Link& link : CommentLinks::Find(text))
        CheckTarget(link.Address);
    const auto links = CommentLinks::Find("<p><a href=\"" + AsAttribute(text) + "\">b</a></p>");
    Require(links.size() == 1 && links[0].Caption == "b", "a link is not found");
    Require(links[0].Address == text, "the address of a link is another one: " + links[0].Address);
});

} // namespace
} // namespace paperkite::fuzz

#include "platform/html/NestingDepth.h"

#include "foundation/HtmlTokens.h"
#include "foundation/Text.h"
#include "platform/html/HtmlNames.h"

#include <array>
#include <string>
#include <unordered_map>
#include <vector>

namespace paperkite {

namespace {

/// Elements that close an open one of their kind by themselves, kind by kind.
enum Kind : std::size_t {
    Paragraph,
    Item,
    Term,
    Cell,
    Row,
    RowGroup,
    Choice,
    Heading,
    Link,
    kKinds
};

Kind KindOf(std::string_view name) {
    if (name == "p") return Paragraph;
    if (name == "li") return Item;
    if (name == "dt" || name == "dd") return Term;
    if (name == "td" || name == "th") return Cell;
    if (name == "tr") return Row;
    if (name == "tbody" || name == "thead" || name == "tfoot") return RowGroup;
    if (name == "option" || name == "optgroup") return Choice;
    if (name.size() == 2 && name[0] == 'h' && name[1] >= '1' && name[1] <= '6') return Heading;
    if (name == "a") return Link;
    return kKinds;
}

/// Behind these nothing outside is closed by what begins inside.
bool IsBoundary(std::string_view name) {
    return name == "table" || name == "td" || name == "th" || name == "caption" ||
           name == "button" || name == "template" || name == "object" || name == "svg" ||
           name == "math";
}

/// The elements that are open at a place.
class OpenElements {
public:
    std::size_t Depth() const { return mOpen.size(); }

    void Begin(const std::string& name) {
        const Kind kind = KindOf(name);
        if (kind != kKinds)
            CloseKind(kind);
        else if (IsBlockElement(name))
            CloseKind(Paragraph);
        ++mCounts[name];
        Open open{name, mOpen.empty() ? Nearest() : mOpen.back().Near};
        if (IsBoundary(name)) Forget(open, name);
        if (name == "ul" || name == "ol" || name == "dl") open.Near[Item] = open.Near[Term] = 0;
        if (kind != kKinds) open.Near[kind] = mOpen.size() + 1;
        mOpen.push_back(std::move(open));
    }

    void End(const std::string& name) {
        const auto count = mCounts.find(name);
        if (count == mCounts.end() || count->second == 0) return;
        while (mOpen.back().Name != name)
            Pop();
        Pop();
    }

private:
    /// Counted from 1; 0 for none.
    using NearestOfKinds = std::array<std::size_t, kKinds>;

    struct Open {
        std::string Name;
        NearestOfKinds Near;
    };

    static NearestOfKinds Nearest() { return {}; }

    static void Forget(Open& open, std::string_view name) {
        const NearestOfKinds before = open.Near;
        open.Near = {};
        // A cell lies in its row, a row in its table.
        if (name != "td" && name != "th") return;
        open.Near[Row] = before[Row];
        open.Near[RowGroup] = before[RowGroup];
    }

    void CloseKind(Kind kind) {
        if (mOpen.empty()) return;
        const std::size_t place = mOpen.back().Near[kind];
        if (place == 0) return;
        while (mOpen.size() >= place)
            Pop();
    }

    void Pop() {
        --mCounts[mOpen.back().Name];
        mOpen.pop_back();
    }

    std::vector<Open> mOpen;
    std::unordered_map<std::string, std::size_t> mCounts;
};

} // namespace

std::size_t FindTooDeep(std::string_view html, std::size_t deepest) {
    // The shortest tag has three bytes.
    if (html.size() / 3 <= deepest) return std::string_view::npos;
    OpenElements open;
    HtmlTokens tokens(html);
    for (HtmlToken token; tokens.Next(token);) {
        if (token.What == HtmlToken::Kind::EndTag) open.End(LowerCase(token.Name));
        if (token.What != HtmlToken::Kind::StartTag) continue;
        const std::string name = LowerCase(token.Name);
        if (IsVoidElement(name)) continue;
        open.Begin(name);
        if (token.IsSelfClosing && open.Depth() > 0 && !IsBlockElement(name)) open.End(name);
        if (open.Depth() > deepest) return token.From;
    }
    return std::string_view::npos;
}

} // namespace paperkite

#include "BenchmarkTable.h"
#include "MadeOnce.h"

#include "foundation/Services.h"
#include "pagelayout/MetaDocumentEdit.h"
#include "pagelayout/frmEditMetaSpan.h"
#include "platform/qt/PagePoint.h"

#include <memory>
#include <string>

#include <benchmark/benchmark.h>
#include <gumbo.h>
#include <tidy/tidy.h>
#include <tidy/tidybuffio.h>

namespace paperkite::bench {

namespace {

const std::vector<std::int64_t> kSizes{10'000, 316'000, 10'000'000};

/// A layout of about that many bytes, with an element in each section.
const std::string& LayoutOf(std::int64_t size) {
    return MadeOnce(size, [](std::int64_t bytes) {
        auto layout =
            std::make_unique<std::string>("<html><head><title>Page</title></head><body>\n");
        for (int number = 0; layout->size() < static_cast<std::size_t>(bytes); ++number)
            *layout += "<div class=\"section\"><h2>Section " + std::to_string(number) +
                       "</h2>\n<p>Some <b>text</b> that stands around &amp; says what follows, in "
                       "as many words as people use.</p>\n<!--KITEMETADATA start type=\"member\" "
                       "name=\"part" +
                       std::to_string(number) +
                       "\"-->Part<!--KITEMETADATA end-->\n<ul><li>One</li><li>Two "
                       "<a href=\"next.html\">three</a></li></ul></div>\n";
        *layout += "</body></html>\n";
        return layout;
    });
}

void RoundTrip(benchmark::State& state, std::int64_t size) {
    const std::string& layout = LayoutOf(size);
    auto owner = MakeRef<PageTemplate>();
    auto space = MakeRef<TemplateNamespace>();
    space->Moniker = "kite.source";
    owner->Namespaces.push_back(space);
    for (auto _ : state) {
        MetaDocumentEdit edit;
        edit.SetTemplate(owner);
        const std::string spans = edit.ConvertMetaDocumentToSpanDocument(layout);
        const std::string meta = edit.ConvertSpanDocumentToMetaDocument(spans);
        if (meta.size() < layout.size() / 2) return state.SkipWithError("the layout was lost");
    }
}

void Write(const GumboNode& node, std::string& text) {
    if (node.type == GUMBO_NODE_ELEMENT || node.type == GUMBO_NODE_TEMPLATE) {
        const GumboElement& element = node.v.element;
        const std::string name = gumbo_normalized_tagname(element.tag);
        text += "<" + name;
        for (unsigned at = 0; at < element.attributes.length; ++at) {
            const auto* attribute = static_cast<const GumboAttribute*>(element.attributes.data[at]);
            text += " ";
            text += attribute->name;
            text += "=\"";
            text += attribute->value;
            text += "\"";
        }
        text += ">";
        for (unsigned at = 0; at < element.children.length; ++at)
            Write(*static_cast<const GumboNode*>(element.children.data[at]), text);
        text += "</" + name + ">";
    } else if (node.type == GUMBO_NODE_COMMENT) {
        text += "<!--";
        text += node.v.text.text;
        text += "-->";
    } else {
        for (const char* at = node.v.text.text; *at; ++at) {
            if (*at == '&')
                text += "&amp;";
            else if (*at == '<')
                text += "&lt;";
            else
                text += *at;
        }
    }
}

/// Parses, writes and tidies, without looking whether anything got lost.
void Libraries(benchmark::State& state, std::int64_t size) {
    const std::string& layout = LayoutOf(size);
    for (auto _ : state) {
        GumboOutput* parsed =
            gumbo_parse_with_options(&kGumboDefaultOptions, layout.data(), layout.size());
        std::string text;
        Write(*parsed->root, text);
        gumbo_destroy_output(&kGumboDefaultOptions, parsed);
        TidyDoc tidy = tidyCreate();
        TidyBuffer output{};
        TidyBuffer messages{};
        tidyBufInit(&output);
        tidyBufInit(&messages);
        tidySetErrorBuffer(tidy, &messages);
        for (const auto& [name, value] : {std::pair("indent", "auto"),
                                          {"wrap", "0"},
                                          {"char-encoding", "utf8"},
                                          {"tidy-mark", "no"},
                                          {"quiet", "yes"},
                                          {"show-warnings", "no"}})
            tidyOptParseValue(tidy, name, value);
        tidyParseString(tidy, text.c_str());
        tidyCleanAndRepair(tidy);
        tidySaveBuffer(tidy, &output);
        benchmark::DoNotOptimize(output.size);
        tidyRelease(tidy);
        tidyBufFree(&output);
        tidyBufFree(&messages);
    }
}

const std::vector<std::int64_t> kElementCounts{500, 5'000, 50'000};

/// A layout with that many elements under edit, with a page that takes commands and does nothing:
/// what is measured is what is done to an element on the way to the engine, and not the engine.
class LayoutUnderEdit : private HtmlEditObserver {
public:
    explicit LayoutUnderEdit(std::int64_t count) {
        const auto space = MakeRef<TemplateNamespace>();
        space->Moniker = "kite.source";
        const auto definition = MakeRef<ElementDef>();
        definition->Name = "member";
        const auto attribute = MakeRef<AttributeDef>();
        attribute->Name = "name";
        definition->AttributeDefs.Add(attribute, attribute->Name);
        space->ElementDefs.Add(definition, definition->Name);
        mTemplate->Namespaces = {space};
        std::string layout = "<html><body>";
        for (std::int64_t number = 0; number < count; ++number)
            layout += "<p>Text <!--KITEMETADATA start type=\"member\" name=\"part\"-->Part"
                      "<!--KITEMETADATA end--></p>";
        mEdit.SetTemplate(mTemplate);
        mEdit.Initialize();
        mEdit.SetDocumentHTML(layout + "</body></html>");
        mTie = mEdit.dedDocument->Observe(*this);
    }

    std::size_t Commands() const { return mCommands; }
    void InsertEditDelete() {
        Form::SetDefaultRunner([](Form& shown, FormMode) {
            auto& form = dynamic_cast<frmEditMetaSpan&>(shown);
            const auto& tree = form.ctlBuilder->tvwElements;
            if (form.GetIsAdd()) tree->UserClick(tree->Nodes.GetFirst()->GetChild());
            form.SetText("Part");
            form.cmdOK->UserClick();
        });
        mEdit.InsertMetaData();
        const QString id =
            QStringLiteral("metaspanstart%1").arg(mEdit.GetSpanProvider()->Elements.Count());
        const auto replace = [this](const std::string& html) { mCommands += 1 + html.size(); };
        const auto point = PagePoint::Of({{"SPAN", id}, {"P", ""}, {"BODY", ""}}, replace);
        mEdit.dedDocument->UserPoint(point);
        mEdit.EditMetaData();
        mEdit.dedDocument->UserPoint(point);
        mEdit.DeleteMetaData();
        Form::SetDefaultRunner({});
    }

private:
    bool IsShowingPage() const override { return true; }
    void CommandWanted(const std::string&, const std::vector<std::string>& arguments) override {
        mCommands += arguments.size();
    }

    Ref<PageTemplate> mTemplate = MakeRef<PageTemplate>();
    MetaDocumentEdit mEdit;
    std::size_t mCommands = 0;
    Connection mTie;
};

void OneElement(benchmark::State& state, std::int64_t count) {
    auto& layout = const_cast<LayoutUnderEdit&>(
        MadeOnce(count, [](std::int64_t size) { return std::make_unique<LayoutUnderEdit>(size); }));
    for (auto _ : state)
        layout.InsertEditDelete();
    if (layout.Commands() == 0) state.SkipWithError("nothing was written");
}

} // namespace

void AddLayoutRows(std::vector<Row>& rows) {
    constexpr const char* kWork = "meta to span to meta, a layout of 10 MB";
    rows.push_back({"layout.trip", kWork, RoundTrip,
                    "gumbo parsing, writing and Tidy tidying the same bytes", Libraries, kSizes,
                    Judged::TimeRatio, 1.25, 3});
    rows.push_back({"layout.growth",
                    "meta to span to meta, 10 KB to 10 MB",
                    RoundTrip,
                    "",
                    {},
                    kSizes,
                    Judged::Growth,
                    1.1,
                    3});
    rows.push_back({"layout.element",
                    "insert, edit, delete an element among 500 to 50,000, without the engine",
                    OneElement,
                    "",
                    {},
                    kElementCounts,
                    Judged::Growth,
                    0.1,
                    5});
}

} // namespace paperkite::bench

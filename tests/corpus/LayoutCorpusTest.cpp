#include "foundation/Text.h"
#include "foundation/Unicode.h"
#include "fuzz/LayoutTrip.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

// Layouts of many kinds, with elements at every kind of place, that are opened and saved.

namespace paperkite::test {
namespace {

namespace fs = std::filesystem;
using fuzz::LayoutTrip;

constexpr std::size_t kMostOfKind = 3;
constexpr std::size_t kMostPages = 24;
constexpr std::size_t kLargestPage = 60'000;

std::string BytesOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream bytes;
    bytes << stream.rdbuf();
    return bytes.str();
}

std::vector<fs::path> FilesIn(const fs::path& folder, std::string_view ending, std::size_t most) {
    std::vector<fs::path> files;
    std::error_code ignored;
    for (const auto& entry : fs::recursive_directory_iterator(folder, ignored))
        if (entry.path().string().ends_with(ending) && entry.file_size() < kLargestPage)
            files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    files.resize(std::min(files.size(), most));
    return files;
}

/// Puts elements into a page, each with a number of its own.
class Tagged {
public:
    explicit Tagged(std::string page) : mPage(std::move(page)) {}

    /// Behind a text, at the first places where it stands.
    void Behind(const std::string& text, const std::string& kind) {
        std::size_t at = FindIgnoringCase(mPage, text);
        for (std::size_t count = 0; count < kMostOfKind && at != std::string::npos; ++count) {
            const std::string element = Element(kind);
            mPage.insert(at + text.size(), element);
            at = FindIgnoringCase(mPage, text, at + text.size() + element.size());
        }
    }
    /// As the value of an attribute of the first tags that begin with a text.
    void AsAttributeOf(const std::string& tag) {
        std::size_t at = FindIgnoringCase(mPage, tag);
        while (at != std::string::npos && mPage[at + tag.size()] != ' ' &&
               mPage[at + tag.size()] != '>')
            at = FindIgnoringCase(mPage, tag, at + 1);
        if (at == std::string::npos) return;
        mPage.insert(at + tag.size(), " title=\"" + Element("attribute") + "\"");
    }
    void InFront() { mPage.insert(0, Element("front") + "\n<!-- note -->\n"); }

    const std::string& Page() const { return mPage; }

private:
    std::string Element(const std::string& kind) {
        const std::string number = std::to_string(++mCount);
        // Some with unknown attributes, a text with markup, quotation marks, or nothing in them.
        const std::string texts[] = {"", "Text " + number, "<b>bold</b> &amp; more", "a\n  b"};
        return "<!--KITEMETADATA start type=\"" + kind + number + "\" unknown='a &quot;b&quot; " +
               number + "'-->" + texts[mCount % 4] + "<!--KITEMETADATA end-->";
    }

    std::string mPage;
    std::size_t mCount = 0;
};

std::string WithTags(const std::string& page) {
    Tagged tagged(page);
    for (const auto& [text, kind] :
         {std::pair("<head>", "head"), std::pair("<title>", "title"), std::pair("<body>", "body"),
          std::pair("<p>", "paragraph"), std::pair("<ul>", "list"), std::pair("<li>", "item"),
          std::pair("<td>", "cell"), std::pair("</td>", "between"), std::pair("<tr>", "row"),
          std::pair("<pre>", "pre"), std::pair("</h1>", "heading"), std::pair("</a>", "link")})
        tagged.Behind(text, kind);
    tagged.AsAttributeOf("<p");
    tagged.AsAttributeOf("<a");
    tagged.InFront();
    return tagged.Page();
}

struct NamedLayout {
    std::string Name;
    std::string Html;
};

bool HoldsZero(const std::string& text) {
    return text.find('\0') != std::string::npos;
}

std::vector<NamedLayout> Corpus() {
    std::vector<NamedLayout> layouts;
    const fs::path root = PAPERKITE_SOURCE_DIR;
    const auto add = [&](const std::vector<fs::path>& files) {
        for (const fs::path& file : files)
            if (const std::string html = BytesOf(file); HoldsOnlyUtf8(html) && !HoldsZero(html))
                layouts.push_back({file.string(), WithTags(html)});
    };
    add(FilesIn(root / "templates", ".html", 100));
    add(FilesIn("/usr/share/doc/libjs-codemirror", ".html", kMostPages));
    // Pieces of pages, each in a page.
    for (const fs::path& file : FilesIn(root / "tests/corpus/html", ".source.html", 100)) {
        if (!HoldsOnlyUtf8(BytesOf(file)) || HoldsZero(BytesOf(file))) continue;
        layouts.push_back(
            {file.string(), WithTags("<!DOCTYPE html>\n<html>\n<head>\n<title>t</title>\n</head>\n"
                                     "<body>\n<p>x</p><ul><li>a<ul><li>b</li></ul></li></ul><table>"
                                     "<tr><td>1</td><td>2</td></tr></table><pre>\n c</pre>\n" +
                                     BytesOf(file) + "\n</body>\n</html>\n")});
    }
    return layouts;
}

TEST(LayoutCorpusTest, EveryElementComesThroughAndSavingTwiceIsSavingOnce) {
    const auto layouts = Corpus();
    EXPECT_GE(layouts.size(), 40u);
    std::size_t elements = 0, excluded = 0;
    for (const NamedLayout& layout : layouts) {
        const auto sources = LayoutTrip::Sources(layout.Html);
        ASSERT_GE(sources.size(), 3u) << layout.Name;
        const LayoutTrip once(layout.Html);
        EXPECT_EQ(once.Messages(), "") << layout.Name;
        auto kept = LayoutTrip::Sources(once.Saved());
        // Tidying may write a link once for each block that it reaches into.
        const auto inText = [](const std::string& source) {
            return source.find("type=\"attribute") == std::string::npos;
        };
        EXPECT_EQ(std::count_if(kept.begin(), kept.end(), inText),
                  std::count_if(sources.begin(), sources.end(), inText))
            << layout.Name;
        for (const std::string& source : sources)
            EXPECT_TRUE(std::find(kept.begin(), kept.end(), source) != kept.end())
                << layout.Name << ": " << source;
        const LayoutTrip twice(once.Saved());
        EXPECT_EQ(twice.Saved(), once.Saved()) << layout.Name;
        elements += sources.size();
        excluded += LayoutTrip::Sources(once.Spans()).size();
    }
    EXPECT_GE(elements, 400u);
    EXPECT_GE(excluded, 100u) << "some of the elements are such as may not be edited";
}

TEST(LayoutCorpusTest, ExcludedElementsStayBetweenTheirNeighbours) {
    const std::string meta = "<!--KITEMETADATA start type=\"x\"-->X<!--KITEMETADATA end-->";
    for (const std::string& place :
         {"<title>a " + meta + " b</title>", "<tr>" + meta + "<td>a</td></tr>",
          "<td>a</td>" + meta + "<td>b</td>", "<link rel=\"a\">\n  " + meta + "\n</head>"}) {
        const bool isHead = place.find("<t") != 0 || place.find("<title") == 0;
        const std::string html =
            isHead ? "<html>\n<head>\n" + place + (place.ends_with("</head>") ? "" : "</head>") +
                         "<body></body></html>"
                   : "<html><body><table>" +
                         (place.find("<tr") == 0 ? place : "<tr>" + place + "</tr>") +
                         "</table></body></html>";
        const LayoutTrip trip(html);
        EXPECT_EQ(trip.Spans(), html) << "it is excluded";
        EXPECT_EQ(LayoutTrip::Sources(trip.Saved()), std::vector<std::string>{meta}) << place;
        const auto neighbour = [&](const std::string& text) {
            const std::size_t at = text.find(meta);
            return text.substr(0, at).rfind('<') == std::string::npos
                       ? std::string()
                       : text.substr(text.substr(0, at).rfind('<'), 4);
        };
        EXPECT_TRUE(EqualIgnoringCase(neighbour(trip.Saved()), neighbour(html)))
            << trip.Saved() << "\n"
            << html;
    }
}

TEST(LayoutCorpusTest, WhatStandsInFrontOfTheRootIsPutBackByteForByte) {
    const Services before = CurrentServices();
    CurrentServices().CreateParserTemplate = [] { return MakeRef<TemplateParser>(); };
    const std::string meta = "<!--KITEMETADATA start type=\"x\"-->X<!--KITEMETADATA end-->";
    const std::string root = "<html>\n<head>\n</head>\n<body>\n  <p>a</p>\n</body>\n</html>\n";
    for (const std::string& front :
         {std::string(), std::string("<!DOCTYPE html>\n"),
          std::string("\xEF\xBB\xBF<!doctype HTML>"),
          "\r\n<!-- a -->" + meta + "\n<!DOCTYPE  html >" + meta + meta + "  \n",
          std::string("<?xml version=\"1.0\"?>\n<!-- --- -->\n"),
          std::string("<!--KITEMETADATA start type=\"open\"-->\n")}) {
        const LayoutEnvelope envelope(front + root);
        EXPECT_EQ(envelope.GetPrologue(), front);
        EXPECT_EQ(envelope.GetRoot(), root);
        EXPECT_EQ(envelope.Around(envelope.GetRoot()), front + root);
        EXPECT_EQ(envelope.Around(""), "") << "a failed conversion is no layout";
    }
    const std::string around =
        "<!--KITEMETADATA start type=\"x\"--><html>a</html><!--KITEMETADATA end-->";
    EXPECT_EQ(LayoutEnvelope(around).GetPrologue(), around);
    EXPECT_EQ(LayoutEnvelope("text <html>").GetPrologue(), "");
    EXPECT_EQ(LayoutEnvelope("<!-- a --><!-- open> <html>").GetPrologue(), "<!-- a -->");
    CurrentServices() = before;
}

TEST(LayoutCorpusTest, WhatStandsBehindTheRootIsPutBackByteForByte) {
    const Services before = CurrentServices();
    CurrentServices().CreateParserTemplate = [] { return MakeRef<TemplateParser>(); };
    const std::string meta = "<!--KITEMETADATA start type=\"x\"-->X<!--KITEMETADATA end-->";
    const std::string root = "<html>\n<head>\n</head>\n<body>\n  <p>a</p>\n</body>\n</html>\n";
    for (const std::string& behind :
         {std::string("<!-- built by hand -->"), std::string("\n\n<!-- a -->\r\n<!-- b -->\n"),
          meta + "\n", "<!-- a -->" + meta + " "}) {
        const LayoutEnvelope envelope("<!DOCTYPE html>\n" + root + behind);
        EXPECT_EQ(envelope.GetRoot(), root);
        EXPECT_EQ(envelope.GetEpilogue(), behind);
        EXPECT_EQ(envelope.Around(root), "<!DOCTYPE html>\n" + root + behind);
    }
    for (const std::string& text :
         {root + "words", root + "\n \n", root + "<!-- open", std::string("<p>a</p><!-- a -->"),
          root + "<!-- a --></p>", std::string("<script>\"</html>\"</script><!-- a -->")})
        EXPECT_EQ(LayoutEnvelope(text).GetEpilogue(), "") << text;
    CurrentServices() = before;
    const LayoutTrip once("<html><body>a</body></html><!-- a -->" + meta);
    EXPECT_EQ(once.Messages(), "");
    EXPECT_TRUE(once.Saved().ends_with("</html>\n<!-- a -->" + meta)) << once.Saved();
    EXPECT_EQ(LayoutTrip(once.Saved()).Saved(), once.Saved());
}

TEST(LayoutCorpusTest, EmptyAndBareTextsBecomePages) {
    const std::string page = "<html>\n<head>\n</head>\n<body>\n</body>\n</html>\n";
    EXPECT_EQ(LayoutTrip("").Saved(), page);
    EXPECT_EQ(LayoutTrip(" \n").Saved(), " \n" + page);
    const LayoutTrip bare("only words");
    EXPECT_NE(bare.Saved().find("only words"), std::string::npos);
    EXPECT_EQ(LayoutTrip(bare.Saved()).Saved(), bare.Saved());
    EXPECT_EQ(bare.Messages(), "");
}

TEST(LayoutCorpusTest, TagsThatAreRefusedAreToldAndKept) {
    for (const std::string tag :
         {"<!--KITEMETADATA start type=\"x-->a<!--KITEMETADATA end-->",
          "<!--KITEMETADATA start type=\"x\"-->never ended", "a<!--KITEMETADATA end-->",
          "<!--KITEMETADATA start =\"x\"-->a<!--KITEMETADATA end-->",
          "<!--KITEMETADATA start a=\"1\" a=\"2\"-->a<!--KITEMETADATA end-->"}) {
        const LayoutTrip trip("<html><body><p>x</p>" + tag + "<p>y</p></body></html>");
        EXPECT_EQ(trip.Messages().find("This page layout file contained"), 0u) << tag;
        EXPECT_NE(trip.Messages().find("Line 1, column "), std::string::npos) << tag;
        EXPECT_NE(trip.Saved().find(tag), std::string::npos) << trip.Saved();
    }
}

TEST(LayoutCorpusTest, AHugeLayoutComesThrough) {
    std::string body;
    for (int number = 0; number < 5000; ++number)
        body += "<p>a <!--KITEMETADATA start type=\"x" + std::to_string(number) +
                "\"-->Text<!--KITEMETADATA end--></p>\n";
    const std::string html = "<!DOCTYPE html>\n<html><body>\n" + body + "<p>" +
                             std::string(1'000'000, 'z') + "</p></body></html>\n";
    const LayoutTrip once(html);
    EXPECT_EQ(LayoutTrip::Sources(once.Saved()), LayoutTrip::Sources(html));
    EXPECT_EQ(LayoutTrip(once.Saved()).Saved(), once.Saved());
}

} // namespace
} // namespace paperkite::test

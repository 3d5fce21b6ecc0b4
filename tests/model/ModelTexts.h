#pragma once

#include <string>
#include <vector>

namespace paperkite::test {

/// Texts that a store must give back byte by byte.
inline const std::vector<std::string>& DifficultTexts() {
    using namespace std::string_literals;
    static const std::vector<std::string> texts{
        "",
        " ",
        "\t",
        "\n",
        "\r\n",
        "plain",
        " blank in front",
        "blank behind ",
        "two behind  ",
        "tab behind\t",
        "\nline in front",
        "line behind\n",
        "\n\n\n",
        "  \n  \n",
        "first\nsecond",
        "first\r\nsecond\r\n",
        "old\rMac",
        "blanks at a line's end  \nnext",
        "<p>One.</p><p>Two.</p>",
        "<ul><li>a</li><li>b</li></ul>",
        "a < b && c > d",
        "&amp; &#65; &lt;",
        "]]>",
        "]]]]>>",
        "x]]>y]]>z",
        "<![CDATA[inner]]>",
        "<!-- comment -->",
        "back\\slash",
        "\\",
        "\\\\",
        "ends with a backslash\\\nand goes on",
        "\\n is no line",
        "\\x41\\s\\t\\>",
        "quotes \" and '",
        "nul \0 inside"s,
        "bell \a escape \x1b delete \x7f",
        "\xEF\xBB\xBF mark in front",
        "umlauts äöü, 漢字, עברית",
        "emoji 🪁 and family 👨‍👩‍👧",
        "not a character \xEF\xBF\xBE \xEF\xBF\xBF",
        "broken \xC3 sequence \xFF \xED\xA0\x80",
        "next line \xC2\x85 separators \xE2\x80\xA8 \xE2\x80\xA9",
        "A first sentence that is long enough to be broken. A second one! A third? And  two  "
        "blanks. ",
        "<p>A long paragraph of <b>several</b> sentences, for the lines of the file. It goes on "
        "and "
        "on. There is <br> in it, too.</p>\n<p>Another.</p> ",
        std::string(5000, 'x'),
        std::string(300, '\n'),
        std::string(100, '>') + std::string(100, ']'),
    };
    return texts;
}

} // namespace paperkite::test

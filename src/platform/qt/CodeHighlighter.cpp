#include "platform/qt/CodeHighlighter.h"

#include "platform/qt/Conversions.h"

namespace paperkite {

namespace {

struct Shades {
    CodePart Part;
    QRgb Light;
    QRgb Dark;
};

// Each at least 4.5 to 1 on the base colour.
constexpr Shades kShades[] = {
    {CodePart::Keyword, 0x0b5cad, 0x63b4f5},   {CodePart::Text, 0x8a4b08, 0xe0a86e},
    {CodePart::Comment, 0x5c6a70, 0x95a1a7},   {CodePart::Number, 0x0f6e56, 0x6fd0b0},
    {CodePart::Directive, 0x7a3ea8, 0xcaa0f0}, {CodePart::Tag, 0x0b5cad, 0x63b4f5},
    {CodePart::Attribute, 0x7a3ea8, 0xcaa0f0},
};

int Units(std::string_view bytes) {
    return static_cast<int>(QString::fromUtf8(bytes.data(), qsizetype(bytes.size())).size());
}

} // namespace

CodeHighlighter::CodeHighlighter(QTextDocument* document, bool isDark)
    : QSyntaxHighlighter(document), mColouring({}), mDark(isDark) {}

void CodeHighlighter::SetFileName(const std::string& fileName) {
    if (mFileName == fileName) return;
    mFileName = fileName;
    mColouring = CodeColouring(fileName);
    rehighlight();
}

void CodeHighlighter::SetDark(bool isDark) {
    if (mDark == isDark) return;
    mDark = isDark;
    rehighlight();
}

QColor CodeHighlighter::ColourOf(CodePart part) const {
    for (const Shades& shades : kShades)
        if (shades.Part == part) return QColor::fromRgb(mDark ? shades.Dark : shades.Light);
    return {};
}

void CodeHighlighter::highlightBlock(const QString& text) {
    int state = std::max(0, previousBlockState());
    const std::string line = FromQString(text);
    for (const CodeStretch& stretch : mColouring.Line(line, state)) {
        QTextCharFormat format;
        format.setForeground(ColourOf(stretch.Part));
        if (stretch.Part == CodePart::Keyword || stretch.Part == CodePart::Tag)
            format.setFontWeight(QFont::DemiBold);
        if (stretch.Part == CodePart::Comment) format.setFontItalic(true);
        const std::string_view bytes = line;
        setFormat(Units(bytes.substr(0, stretch.Start)),
                  Units(bytes.substr(stretch.Start, stretch.Length)), format);
    }
    setCurrentBlockState(state);
}

} // namespace paperkite

#pragma once

#include "widgets/CodeColouring.h"

#include <QSyntaxHighlighter>

namespace paperkite {

/// Colours a document as source code, in colours that can be read on its ground.
class CodeHighlighter : public QSyntaxHighlighter {
public:
    CodeHighlighter(QTextDocument* document, bool isDark);

    /// By the ending of the name; the same language again does nothing.
    void SetFileName(const std::string& fileName);
    void SetDark(bool isDark);

protected:
    void highlightBlock(const QString& text) override;

private:
    QColor ColourOf(CodePart part) const;

    std::string mFileName;
    CodeColouring mColouring;
    bool mDark;
};

} // namespace paperkite

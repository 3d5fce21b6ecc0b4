#pragma once

#include "widgets/HtmlEdit.h"

#include <QString>

class QWidget;

namespace paperkite {

class CodeArea;
class CodeHighlighter;

/// The text of an HtmlEdit whose source may be written on: lines with numbers, coloured as HTML,
/// and the place that is marked as wrong. Whoever shows the HtmlEdit owns it and passes things on.
class HtmlSourceView {
public:
    HtmlSourceView(const Ref<HtmlEdit>& edit, QWidget* parent);

    CodeArea* GetArea() const { return mArea; }
    /// Shows the present text, with a history of its own.
    void Load();
    void ShowMark();
    /// The same colours as the palette.
    void ApplyLook();
    /// False for a command that means nothing in a text.
    bool Run(const std::string& command);

private:
    void Report();
    /// What undo, redo, cut and copy can do now.
    void ReportCommands();

    Ref<HtmlEdit> mEdit;
    CodeArea* mArea;
    CodeHighlighter* mHighlighter;
    QString mShown;
    bool mLoading = false;
};

} // namespace paperkite

#pragma once

#include "platform/qt/WebSurface.h"
#include "widgets/HtmlEdit.h"

#include <QMenu>

namespace paperkite {

/// The context menu of an HtmlEdit: what can be done where the author points. Its entries go
/// through the widget's commands, like the buttons of tool bars.
class HtmlEditMenu : public QMenu {
public:
    /// `defaultOnly`: nothing that changes the text, for pages that are only looked at.
    HtmlEditMenu(const Ref<HtmlEdit>& edit, WebSurface& surface, const WebMenuRequest& request,
                 bool defaultOnly, QWidget* parent);

private:
    void AddSpelling(const std::string& word);
    void AddClipboard();
    void AddLinks(const WebMenuRequest& request);
    void AddTable(bool isInTable);
    QAction* AddTool(QMenu& menu, const QString& text, const char* icon, const char* tool,
                     const QKeySequence& key = {});

    Ref<HtmlEdit> mEdit;
    WebSurface& mSurface;
    bool mCanEdit;
};

} // namespace paperkite

#include "platform/qt/HtmlEditMenu.h"

#include "foundation/Services.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/Icons.h"

namespace paperkite {

namespace {

constexpr std::size_t kMostSuggestions = 6;

Ref<SpellEngine> EngineOf(const HtmlEdit& edit) {
    return edit.GetSpellObject() ? edit.GetSpellObject() : CurrentServices().Spelling;
}

} // namespace

HtmlEditMenu::HtmlEditMenu(const Ref<HtmlEdit>& edit, WebSurface& surface,
                           const WebMenuRequest& request, bool defaultOnly, QWidget* parent)
    : QMenu(parent), mEdit(edit), mSurface(surface),
      mCanEdit(!defaultOnly && request.Place >= 0 && edit->GetView() == HtmlView::Normal) {
    setAttribute(Qt::WA_DeleteOnClose);
    if (mCanEdit && !request.Word.isEmpty()) AddSpelling(FromQString(request.Word));
    AddClipboard();
    AddLinks(request);
    if (mCanEdit) AddTable(request.InTable);
    if (defaultOnly) return;
    addSeparator();
    AddTool(*this, tr("Look at the &HTML"), "text-html", "ViewSource");
}

QAction* HtmlEditMenu::AddTool(QMenu& menu, const QString& text, const char* icon, const char* tool,
                               const QKeySequence& key) {
    QAction* action = menu.addAction(Icons::ByName(icon), text);
    action->setShortcut(key);
    action->setObjectName(QLatin1String(tool));
    connect(action, &QAction::triggered, this,
            [edit = mEdit, tool] { Ignoring([&] { edit->ClickEditTool(tool); }); });
    return action;
}

void HtmlEditMenu::AddSpelling(const std::string& word) {
    const auto engine = EngineOf(*mEdit);
    if (!engine) return;
    auto suggestions = engine->Suggest(word);
    if (suggestions.size() > kMostSuggestions) suggestions.resize(kMostSuggestions);
    if (suggestions.empty()) addAction(tr("No suggestions"))->setEnabled(false);
    for (const std::string& suggestion : suggestions) {
        QAction* action = addAction(ToQString(suggestion));
        QFont bold = action->font();
        bold.setBold(true);
        action->setFont(bold);
        connect(action, &QAction::triggered, this,
                [&surface = mSurface, suggestion] { surface.ReplaceWord(ToQString(suggestion)); });
    }
    addSeparator();
    connect(addAction(tr("&Ignore all")), &QAction::triggered, this,
            [edit = mEdit, word] { edit->UserIgnoreWord(word); });
    connect(addAction(Icons::ByName("list-add"), tr("&Add to the dictionary")), &QAction::triggered,
            this, [edit = mEdit, word] { edit->UserLearnWord(word); });
    addSeparator();
}

void HtmlEditMenu::AddClipboard() {
    if (mCanEdit)
        AddTool(*this, tr("Cu&t"), "edit-cut", "cut", QKeySequence::Cut)
            ->setEnabled(mEdit->IsCommandEnabled("cut"));
    AddTool(*this, tr("&Copy"), "edit-copy", "copy", QKeySequence::Copy);
    if (mCanEdit) {
        AddTool(*this, tr("&Paste"), "edit-paste", "paste", QKeySequence::Paste);
        AddTool(*this, tr("Paste as te&xt"), "edit-paste", "pasteplain",
                QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_V));
    }
    AddTool(*this, tr("Select &all"), "edit-select-all", "selectall", QKeySequence::SelectAll);
}

void HtmlEditMenu::AddLinks(const WebMenuRequest& request) {
    if (!mCanEdit && request.Link.isEmpty()) return;
    addSeparator();
    if (!request.Link.isEmpty())
        connect(
            addAction(Icons::ByName("go-jump"), tr("&Follow the link")), &QAction::triggered, this,
            [edit = mEdit, href = FromQString(request.Link)] { edit->UserHyperlinkClick(href); });
    if (!mCanEdit) return;
    AddTool(*this, request.Link.isEmpty() ? tr("&Link…") : tr("Change the &link…"), "insert-link",
            "createlink", QKeySequence(Qt::CTRL | Qt::Key_K));
    if (!request.Link.isEmpty()) AddTool(*this, tr("&Remove the link"), "edit-delete", "unlink");
    AddTool(*this, tr("&Picture…"), "insert-image", "insertimage");
}

void HtmlEditMenu::AddTable(bool isInTable) {
    addSeparator();
    if (!isInTable) {
        QMenu* sizes = addMenu(Icons::ByName("insert-table"), tr("Ta&ble"));
        for (const auto& [rows, columns] : {std::pair(2, 2), {3, 2}, {3, 3}, {4, 4}})
            connect(sizes->addAction(tr("%1 rows, %2 columns").arg(rows).arg(columns)),
                    &QAction::triggered, this,
                    [edit = mEdit, r = rows, c = columns] { edit->InsertTable(r, c); });
        return;
    }
    QMenu* table = addMenu(Icons::ByName("insert-table"), tr("Ta&ble"));
    AddTool(*table, tr("Insert a &row below"), "edit-table-insert-row-below", "insertrow");
    AddTool(*table, tr("Insert a &column at the right"), "edit-table-insert-column-right",
            "insertcolumn");
    AddTool(*table, tr("Delete the r&ow"), "edit-table-delete-row", "deleterow");
    AddTool(*table, tr("Delete the col&umn"), "edit-table-delete-column", "deletecolumn");
    AddTool(*table, tr("&Delete the table"), "edit-delete", "deletetable");
}

} // namespace paperkite

#include "platform/qt/Icons.h"

#include "foundation/Text.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/ThemedIconEngine.h"

#include <QEvent>
#include <QHash>
#include <QToolBar>

namespace paperkite {

namespace {

struct Entry {
    const char* Theme;
    const char* Accessible;
};

// Keys are compared in lower case.
const QHash<QString, Entry>& Table() {
    static const QHash<QString, Entry> table{
        // commands of the item tree
        {"previous", {"go-previous", ""}},
        {"next", {"go-next", ""}},
        {"properties", {"document-properties", ""}},
        {"copy", {"edit-copy", ""}},
        {"paste", {"edit-paste", ""}},
        {"showfriend", {"system-users", ""}},
        {"showprivate", {"object-locked", ""}},
        {"showprotected", {"security-medium", ""}},
        {"showinherited", {"code-context", ""}},
        {"autoexpand", {"view-list-tree", ""}},
        {"grouped", {"view-list-icons", ""}},
        // kinds of items
        {"closed", {"folder", "group"}},
        {"open", {"folder-open", "group"}},
        {"namespace", {"code-context", "namespace"}},
        {"class", {"code-class", "class"}},
        {"structure", {"code-class", "structure"}},
        {"function", {"code-function", "function"}},
        {"method", {"code-function", "method"}},
        {"variable", {"code-variable", "variable"}},
        {"field", {"code-variable", "field"}},
        {"property", {"code-variable", "property"}},
        {"enumeration", {"enum", "enumeration"}},
        {"typedef", {"code-typedef", "type definition"}},
        {"macro", {"code-block", "macro"}},
        // comment types, row buttons and the rest
        {"addbutton", {"list-add", ""}},
        {"deletebutton", {"edit-delete", ""}},
        {"tick", {"dialog-ok", "in use"}},
        {"other", {"view-list-details", ""}},
        {"other_ticked", {"view-list-details", "in use"}},
        {"flags", {"flag", ""}},
        {"flags_ticked", {"flag", "in use"}},
        {"flags_unticked", {"flag", ""}},
        {"fullpageedit", {"document-edit", ""}},
        {"tippopup", {"help-hint", ""}},
    };
    return table;
}

const Entry* FindEntry(const std::string& name) {
    const auto found = Table().find(ToQString(LowerCase(name)));
    return found == Table().end() ? nullptr : &*found;
}

} // namespace

void Icons::UseBreeze() {
    QStringList paths = QIcon::themeSearchPaths();
    const QString system = QStringLiteral("/usr/share/icons");
    if (!paths.contains(system)) paths.append(system);
    QIcon::setThemeSearchPaths(paths);
    QIcon::setFallbackThemeName(QStringLiteral("breeze"));
}

void Icons::UseDark(bool dark) {
    QIcon::setThemeName(dark ? QStringLiteral("breeze-dark") : QStringLiteral("breeze"));
}

QIcon Icons::ByName(const std::string& name) {
    if (name.empty()) return {};
    const Entry* entry = FindEntry(name);
    const QString themeName = entry ? QString::fromLatin1(entry->Theme) : ToQString(name);
    if (QIcon::fromTheme(themeName).isNull()) return {};
    return QIcon(new ThemedIconEngine(themeName));
}

int Icons::SizeBeside(int textHeight) {
    return textHeight < 20 ? 16 : textHeight < 30 ? 24 : 32;
}

void Icons::SizeWithText(QToolBar& bar) {
    class Sizer : public QObject {
    public:
        explicit Sizer(QToolBar& sized) : QObject(&sized), mBar(sized) {}
        void Fit() {
            const int size = SizeBeside(mBar.fontMetrics().height());
            mBar.setIconSize(QSize(size, size));
        }

    protected:
        bool eventFilter(QObject* watched, QEvent* event) override {
            if (event->type() == QEvent::FontChange) Fit();
            return QObject::eventFilter(watched, event);
        }

    private:
        QToolBar& mBar;
    };
    auto* sizer = new Sizer(bar);
    bar.installEventFilter(sizer);
    sizer->Fit();
}

QIcon Icons::Of(const Picture& picture) {
    if (!picture.Path.empty()) return QIcon(ToQString(picture.Path));
    return ByName(picture.Name);
}

QIcon Icons::InList(const Ref<ImageList>& list, const std::string& key) {
    if (key.empty()) return {};
    if (list)
        if (const Picture* picture = list->Find(key)) return Of(*picture);
    return ByName(key);
}

std::string Icons::AccessibleName(const Ref<ImageList>& list, const std::string& key) {
    if (list)
        if (const Picture* picture = list->Find(key); picture && !picture->AccessibleName.empty())
            return picture->AccessibleName;
    const Entry* entry = FindEntry(key);
    return entry ? entry->Accessible : std::string();
}

} // namespace paperkite

#include "platform/qt/ThemedIconEngine.h"

#include <QDir>
#include <QHash>
#include <QPainter>
#include <QPixmap>

#include <optional>

namespace paperkite {

namespace {

std::optional<QString> FindFile(const QString& theme, const QString& name) {
    for (const QString& path : QIcon::themeSearchPaths()) {
        const QDir folder(path + QLatin1Char('/') + theme);
        for (const QString& kind : folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
            for (const char* size : {"22", "16", "32"}) {
                const QString file =
                    folder.filePath(QStringLiteral("%1/%2/%3.svg").arg(kind, size, name));
                if (QFile::exists(file)) return file;
            }
    }
    return std::nullopt;
}

// The drawing that can be made as large as wanted; a null icon where the theme has none.
QIcon LargeIcon(const QString& name) {
    static QHash<QString, QIcon> icons;
    const QString key = QIcon::themeName() + QLatin1Char('/') + name;
    const auto known = icons.find(key);
    if (known != icons.end()) return *known;
    const auto file = FindFile(QIcon::themeName(), name);
    return *icons.insert(key, file ? QIcon(*file) : QIcon());
}

} // namespace

ThemedIconEngine::ThemedIconEngine(QString name) : mName(std::move(name)) {}

void ThemedIconEngine::paint(QPainter* painter, const QRect& rectangle, QIcon::Mode mode,
                             QIcon::State state) {
    constexpr double kDisabledOpacity = 0.4;
    painter->save();
    if (mode == QIcon::Disabled) painter->setOpacity(painter->opacity() * kDisabledOpacity);
    const QIcon themed = QIcon::fromTheme(mName);
    const bool fits = themed.actualSize(rectangle.size()).width() >= rectangle.width();
    const QIcon large = fits ? QIcon() : LargeIcon(mName);
    (large.isNull() ? themed : large)
        .paint(painter, rectangle, Qt::AlignCenter, QIcon::Normal, state);
    painter->restore();
}

QPixmap ThemedIconEngine::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(0, 0), size), mode, state);
    return pixmap;
}

QSize ThemedIconEngine::actualSize(const QSize& size, QIcon::Mode, QIcon::State) {
    return size;
}

QString ThemedIconEngine::iconName() {
    return mName;
}

QIconEngine* ThemedIconEngine::clone() const {
    return new ThemedIconEngine(mName);
}

} // namespace paperkite

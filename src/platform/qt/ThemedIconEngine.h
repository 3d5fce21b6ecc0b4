#pragma once

#include <QIconEngine>
#include <QString>

namespace paperkite {

/// One icon of the icon theme in force, at any size: the theme's own engine stops at the sizes for
/// which the theme has a folder, which is too small for large text.
class ThemedIconEngine : public QIconEngine {
public:
    explicit ThemedIconEngine(QString name);

    void paint(QPainter* painter, const QRect& rectangle, QIcon::Mode mode,
               QIcon::State state) override;
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
    QSize actualSize(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
    QString iconName() override;
    QIconEngine* clone() const override;

private:
    QString mName;
};

} // namespace paperkite

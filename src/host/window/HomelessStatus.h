#pragma once

#include <QPushButton>

#include <cstddef>

namespace paperkite {

/// The status bar's word on items that are gone and have comments: a quiet button, shown only while
/// there are any. Where the status bar is narrow it says less.
class HomelessStatus : public QPushButton {
public:
    explicit HomelessStatus(QWidget* parent);

    void SetCount(std::size_t items);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QSize SizeFor(const QString& words) const;

    QString mWords;
    QString mFewWords;
};

} // namespace paperkite

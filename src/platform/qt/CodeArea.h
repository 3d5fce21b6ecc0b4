#pragma once

#include <QPlainTextEdit>

namespace paperkite {

/// A text area with the numbers of its lines at the left.
class CodeArea : public QPlainTextEdit {
public:
    explicit CodeArea(QWidget* parent);

    void SetFirstLine(int number);
    /// A line of the text from 1, 0 for none, and a UTF-16 unit of it from 0.
    void SetMark(int line, int position);

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void UseFixedFont();
    void MakeRoom();
    void PaintNumbers(const QRect& exposed);
    void ShowMark();

    QWidget* mNumbers;
    int mFirstLine = 1;
    int mMarkedLine = 0;
    int mMarkedPosition = 0;
};

} // namespace paperkite

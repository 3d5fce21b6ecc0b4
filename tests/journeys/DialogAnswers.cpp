#include "journeys/DialogAnswers.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace paperkite::test {

namespace {

constexpr int kLookEveryMilliseconds = 10;

std::string TextOf(const QMessageBox& box) {
    return (box.windowTitle() + ": " + box.text() + " " + box.informativeText())
        .trimmed()
        .toStdString();
}

} // namespace

DialogAnswers::DialogAnswers() {
    connect(&mTimer, &QTimer::timeout, this, [this] { Look(); });
    mTimer.start(kLookEveryMilliseconds);
}

void DialogAnswers::ExpectBox(const std::string& button) {
    ExpectBehindProgress([this, button](QDialog& dialog) {
        auto* box = qobject_cast<QMessageBox*>(&dialog);
        if (!box) {
            ADD_FAILURE() << "Not a message box: " << dialog.windowTitle().toStdString();
            dialog.reject();
            return;
        }
        mText = TextOf(*box);
        for (QAbstractButton* choice : box->buttons()) {
            if (choice->text().remove('&').toStdString() != button) continue;
            QTest::mouseClick(choice, Qt::LeftButton);
            return;
        }
        ADD_FAILURE() << "No button " << button << " in: " << mText;
        dialog.reject();
    });
}

void DialogAnswers::Look() {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (!dialog || dialog == mAnswered) return;
    // Progress comes and goes as the machine is quick or slow.
    const bool isProgress = qobject_cast<QProgressDialog*>(dialog) != nullptr;
    if (mAnswers.empty()) {
        if (isProgress) return;
        const auto* box = qobject_cast<QMessageBox*>(dialog);
        ADD_FAILURE() << "Unexpected: "
                      << (box ? TextOf(*box) : dialog->windowTitle().toStdString());
        dialog->reject();
        return;
    }
    if (isProgress && mAnswers.front().LetsProgressPass) return;
    mAnswered = dialog;
    const Answer answer = std::move(mAnswers.front().Give);
    mAnswers.pop_front();
    answer(*dialog);
}

} // namespace paperkite::test

#include "platform/qt/FormView.h"

#include "platform/qt/ContainerView.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/Theme.h"
#include "widgets/Keys.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QVBoxLayout>

namespace paperkite {

namespace {

// The caller of Show owns the form; views only want a reference.
Ref<Container> Borrowed(Form& form) {
    return Ref<Container>(std::shared_ptr<Container>(std::shared_ptr<void>(), &form));
}

} // namespace

FormView::FormView(ViewFactory& factory, Form& form, QWidget* parent)
    : QDialog(parent), mForm(&form) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(12, 12, 12, 12);
    column->addWidget(new ContainerView(factory, Borrowed(form), this));
    mTie = form.Observe(*this);
    FitWanted();
}

// A form that says its size gets it, larger for larger text, but no larger than the window that it
// belongs to, and never less than it needs.
void FormView::FitWanted() {
    QSize wanted(Theme::Scaled(mForm->GetWidth()), Theme::Scaled(mForm->GetHeight()));
    if (wanted.isEmpty()) return;
    const QWidget* lowest = this;
    while (lowest->parentWidget())
        lowest = lowest->parentWidget();
    if (lowest != this) wanted = wanted.boundedTo(lowest->size());
    resize(wanted.expandedTo(minimumSizeHint()));
}

void FormView::InstallRunner(ViewFactory& factory) {
    Form::SetDefaultRunner([&factory](Form& form, FormMode mode) {
        if (mode == FormMode::Modal) {
            FormView view(factory, form, QApplication::activeWindow());
            view.exec();
            return;
        }
        auto* view = new FormView(factory, form, QApplication::activeWindow());
        view->setAttribute(Qt::WA_DeleteOnClose);
        view->show();
    });
}

void FormView::ControlChanged(Control&) {
    setWindowTitle(ToQString(mForm->GetCaption()));
    if (!mForm->GetVisible() && isVisible()) done(0);
}

void FormView::ControlGone(Control&) {
    mForm = nullptr;
    mTie.Disconnect();
    if (isVisible()) done(0);
}

void FormView::reject() {
    if (mForm) mForm->UserEscape();
}

void FormView::accept() {
    if (mForm) mForm->UserEnter();
}

void FormView::closeEvent(QCloseEvent* event) {
    if (mForm && mForm->GetVisible()) mForm->UserCloseBox();
    event->setAccepted(!mForm || !mForm->GetVisible());
}

void FormView::keyPressEvent(QKeyEvent* event) {
    const int code = KeyCodeOf(*event);
    if (mForm && mForm->UserKeyDown(code, ShiftOf(event->modifiers())) == 0) return;
    if (mForm && code == KeyReturn) {
        mForm->UserEnter();
        return;
    }
    QDialog::keyPressEvent(event);
}

} // namespace paperkite

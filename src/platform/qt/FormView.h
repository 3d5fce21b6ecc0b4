#pragma once

#include "platform/qt/ViewFactory.h"
#include "widgets/Form.h"

#include <QDialog>

namespace paperkite {

/// The window of a Form: a dialog with its title and controls, whose Enter, Escape and close box
/// are the form's own.
class FormView : public QDialog, private ControlObserver {
public:
    /// The form must outlive the view, which leaves it alone from its end on.
    FormView(ViewFactory& factory, Form& form, QWidget* parent);

    /// Shows every form of the process in a window: modal ones until they are hidden.
    static void InstallRunner(ViewFactory& factory);

    void reject() override;
    void accept() override;

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void ControlChanged(Control& control) override;
    void ControlGone(Control& control) override;

    void FitWanted();

    Form* mForm;
    Connection mTie;
};

} // namespace paperkite

#pragma once

#include "widgets/Container.h"

#include <functional>
#include <string>

namespace paperkite {

/// How a form is shown to the author.
enum class FormMode { Modeless, Modal };

/// A window: a title, controls, and buttons that the Enter and Escape keys press.
///
/// A form is shown by its runner. The host's runner opens a window and, for a modal form, comes
/// back when the form was hidden; a test's runner plays the author. Without a runner the form is
/// only marked as shown, and Show comes back at once.
class Form : public Container {
public:
    using Runner = std::function<void(Form&, FormMode)>;

    explicit Form(std::string name = {});

    const std::string& GetCaption() const { return mCaption; }

    void SetCaption(const std::string& value) { Assign(mCaption, value); }

    /// Forms start hidden; Show and Hide, or Visible, show them modelessly.
    void SetVisible(bool value) override;
    void Show(FormMode mode = FormMode::Modeless);
    void Hide();

    FormMode GetMode() const { return mMode; }

    /// For this form alone; an empty one falls back to the process-wide runner.
    void SetRunner(Runner runner) { mRunner = std::move(runner); }

    static void SetDefaultRunner(Runner runner);

    struct {
        /// The author wants the window closed by its box; a handler that cancels keeps it open.
        Event<bool&> QueryClose;
        Event<> Shown;
        Event<> Hidden;
        Event<int&, int> KeyDown;
    } Events;

    /// The window's close box: hides the form unless a handler of QueryClose cancels.
    void UserCloseBox();
    /// Presses the default button.
    void UserEnter();
    /// Presses the cancel button; without one it acts as the close box.
    void UserEscape();
    int UserKeyDown(int keyCode, int shift);

private:
    Runner mRunner;
    std::string mCaption;
    FormMode mMode = FormMode::Modeless;
};

} // namespace paperkite

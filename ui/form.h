// The base of all dialogs: a form lives in one window and reacts to it.
#pragma once

#include <memory>

#include "ui/dialog_ids.h"
#include "ui/window.h"

namespace ui {

class Form {
public:
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;
    virtual ~Form() = default;

    /// Loads the form, shows it modally and returns when it has closed.
    void Show() {
        // The owner is disabled before the form loads: where loading lets events run, no second dialog opens.
        window_->runModal(*this, [this] { Form_Load(); });
    }

    [[nodiscard]] Window& window() { return *window_; }

protected:
    explicit Form(std::unique_ptr<Window> window) : window_(std::move(window)) {
        window_->onResize = [this] { Form_Resize(); };
        window_->onQueryUnload = [this] { Form_QueryUnload(); };
    }

    /// The control of the template with this identifier, for the members of a form.
    template <class T>
    [[nodiscard]] T& control(int identifier) {
        return window_->control<T>(identifier);
    }

    /// Fills the controls; runs before the window becomes visible.
    virtual void Form_Load() {}
    virtual void Form_Resize() {}
    virtual void Form_QueryUnload() {}

    /// Closes the form's window.
    void Unload() { window_->close(); }

private:
    std::unique_ptr<Window> window_;
};

/// A dialog that closes by OK, which takes what the user has entered, or by Cancel.
class OkCancelForm : public Form {
public:
    Button& cmdOk = control<Button>(IDC_cmdOk);
    Button& cmdCancel = control<Button>(IDC_cmdCancel);

protected:
    explicit OkCancelForm(std::unique_ptr<Window> window) : Form(std::move(window)) {
        cmdOk.onClick = [this] {
            cmdOK_Click();
            Unload();
        };
        cmdCancel.onClick = [this] { Unload(); };
    }
    virtual void cmdOK_Click() = 0;
};

}  // namespace ui

// A form without a purpose of its own, and the screen, host and user around it.
#pragma once

#include <gtest/gtest.h>

#include "tests/windows/controls/test_dialogs.ids.h"
#include "tests/windows/stage/container.h"
#include "tests/windows/stage/messages.h"
#include "tests/windows/stage/user.h"
#include "tests/windows/stage/window_queries.h"
#include "ui/form.h"
#include "windows/controls/screen.h"

namespace tests {

class TestForm : public ui::Form {
public:
    TestForm(ui::Screen& screen, int templateIdentifier, ui::Window* owner)
        : Form(screen.createDialog(templateIdentifier, owner)) {}

    std::function<void()> onLoad;
    std::function<void()> onQuery;
    void close() { Unload(); }

    template <class T>
    [[nodiscard]] T& control(int identifier) {
        return window().control<T>(identifier);
    }
    [[nodiscard]] HWND handle() { return win::handleOf(&window()); }

protected:
    void Form_Load() override {
        if (onLoad) onLoad();
    }
    void Form_QueryUnload() override {
        if (onQuery) onQuery();
    }
};

/// A page in a host's dialog, and dialogs that tests show above it.
class ControlsTest : public testing::Test {
protected:
    ControlsTest() {
        host.show(win::handleOf(page.get()));
        deliverMessages();
    }

    /// Shows the form and plays `script` in its loop.
    void show(TestForm& form, const std::function<void()>& script) {
        screen.onModal = [&](ui::Form&) { script(); };
        form.Show();
        screen.onModal = nullptr;
    }
    /// Shows a dialog above the page and plays `script` in it; closes it where the script does not.
    void inDialog(int templateIdentifier, std::function<void(TestForm&)> script) {
        TestForm form(screen, templateIdentifier, page.get());
        show(form, [&] {
            script(form);
            form.close();
        });
    }
    /// Shows the test dialog and plays `script` with one of its controls.
    template <class Control>
    void withControl(int identifier, std::function<void(TestForm&, Control&)> script) {
        inDialog(IDD_testDialog, [&](TestForm& form) { script(form, form.control<Control>(identifier)); });
    }

    win::Screen screen{GetModuleHandleW(nullptr)};
    Container host{{300, 200}};
    std::unique_ptr<ui::Window> page = screen.createPage(IDD_testPage, host.window());
    ui::Button& pageButton = page->control<ui::Button>(IDC_testPageButton);
    ui::TextBox& pageText = page->control<ui::TextBox>(IDC_testPageText);
    const std::unique_ptr<User> windows = windowsUser();
    User& user = *windows;
};

}  // namespace tests

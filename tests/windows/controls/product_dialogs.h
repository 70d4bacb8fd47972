// Every dialog of the product, opened in real windows for tests that hold for each of them.
#pragma once

#include <windows.h>

#include "kb/frmKBConfiguration.h"
#include "kb/frmKnowledgeBase.h"
#include "kb/frmNewFolder.h"
#include "kb/frmSelectDefaultKB.h"
#include "report/frmSendBugReport.h"
#include "settings/frmAttachment.h"
#include "settings/frmDispMatches.h"
#include "settings/frmSettings.h"
#include "tests/kb/kb_test_base.h"
#include "tests/windows/stage/user.h"
#include "tests/windows/stage/window_queries.h"

namespace tests {

/// A dialog by name, and how it is opened.
struct ProductDialog {
    const char* name;
    void (*show)(vexa::Application& application, ui::Window& owner);
};

inline void PrintTo(const ProductDialog& dialog, std::ostream* stream) { *stream << dialog.name; }

template <class Form>
void showForm(vexa::Application& application, ui::Window& owner) {
    if constexpr (std::is_constructible_v<Form, vexa::Application&, ui::Window&>)
        Form(application, owner).Show();
    else
        Form(application, owner, [](ui::Window&) {}).Show();
}

inline constexpr ProductDialog PRODUCT_DIALOGS[] = {
    {"frmKBConfiguration", showForm<vexa::frmKBConfiguration>},
    {"frmKnowledgeBase", showForm<vexa::frmKnowledgeBase>},
    {"frmNewFolder", showForm<vexa::frmNewFolder>},
    {"frmSelectDefaultKB", showForm<vexa::frmSelectDefaultKB>},
    {"frmSettings", showForm<vexa::frmSettings>},
    {"frmAttachment", showForm<vexa::frmAttachment>},
    {"frmDispMatches", showForm<vexa::frmDispMatches>},
    {"frmSendBugReport", showForm<vexa::frmSendBugReport>},
};

/// A page with two knowledgebases and some extensions behind the dialogs.
class ProductDialogs : public KBTest {
protected:
    void SetUp() override {
        KBTest::SetUp();
        record({{L"Mail", L"43831.5", 1536, 5}, {L"News", {}, {}, {}}});
        stage->setValue(KEY, L"AvailableExtensions", L"doc;pdf;rtf;txt;");
        stage->setValue(KEY, L"SelectedExtensions", L"pdf;");
    }

    /// Opens the dialog, plays `script` with its window and closes it.
    void inDialog(const ProductDialog& dialog, const std::function<void(ui::Form&, HWND)>& script) {
        stage->whenShown(Script([&](ui::Form& form) {
            script(form, windowOf(form.window()));
            if (form.window().isOpen()) user.closeWindow(form.window());
            if (form.window().isOpen()) form.window().close();
        }));
        dialog.show(application, page->window());
    }
    template <class Form>
    void open(const std::function<void(Form&)>& script) {
        inDialog({"", showForm<Form>}, [&](ui::Form& form, HWND) { script(dynamic_cast<Form&>(form)); });
    }
};

class EachProductDialog : public ProductDialogs, public testing::WithParamInterface<ProductDialog> {
protected:
    void inDialog(const std::function<void(ui::Form&, HWND)>& script) {
        ProductDialogs::inDialog(GetParam(), script);
    }
};

inline std::string dialogName(const testing::TestParamInfo<ProductDialog>& dialog) {
    return dialog.param.name;
}

}  // namespace tests

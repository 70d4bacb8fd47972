// F1 and the "?" of every dialog show its help.
#include <algorithm>
#include <fstream>

#include "tests/support/source_folder.h"
#include "tests/support/text.h"
#include "tests/windows/controls/product_dialogs.h"
#include "tests/windows/stage/ticker.h"

namespace tests {
namespace {

using testing::HasSubstr;
using testing::Not;

/// The help that a message has shown; it is closed.
std::wstring helpBy(HWND dialog, UINT message, WPARAM wParam) {
    std::wstring shown;
    const Ticker reading(10, [&] {
        const HWND box = FindWindowW(L"#32770", L"What is this?");
        if (box == nullptr) return;
        for (const HWND part : descendantsOf(box))
            if (windowTextOf(part).size() > shown.size()) shown = windowTextOf(part);
        for (const WORD button : {IDOK, IDCANCEL}) PostMessageW(box, WM_COMMAND, button, 0);
    });
    HELPINFO question{};
    question.cbSize = sizeof question;
    SendMessageW(dialog, message, wParam, reinterpret_cast<LPARAM>(&question));
    return shown;
}

std::wstring documentFor(const char* form) {
    std::ifstream file(sourceFolder() + "/docs/help/" + form + ".md");
    return fromUtf8(std::string(std::istreambuf_iterator<char>(file), {}));
}

using Help = EachProductDialog;

TEST_P(Help, IsTheUserGuidesText) {
    const std::wstring document = documentFor(GetParam().name);
    const std::wstring heading = document.substr(2, document.find(L'\n') - 2);
    inDialog([&](ui::Form&, HWND dialog) {
        const std::wstring byKey = helpBy(dialog, WM_HELP, 0);
        EXPECT_EQ(byKey.substr(0, heading.size()), heading);
        EXPECT_THAT(byKey, Not(HasSubstr(L"**"))) << "plain text";
        EXPECT_EQ(helpBy(dialog, WM_SYSCOMMAND, SC_CONTEXTHELP), byKey);
        EXPECT_GT(byKey.size() + 100, document.size() * 8 / 10) << "all of it";
    });
}

INSTANTIATE_TEST_SUITE_P(Dialogs, Help, testing::ValuesIn(PRODUCT_DIALOGS), dialogName);

}  // namespace
}  // namespace tests

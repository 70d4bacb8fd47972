// Pictures and objects on their way into the report: the editor takes or refuses them by itself, and what was
// typed stays and can be sent.
#include <windows.h>

#include <ole2.h>

#include <cstring>

#include "report/frmSendBugReport.h"
#include "report/toolbar_buttons.h"
#include "tests/stage/form_test.h"
#include "tests/support/text.h"

namespace tests {
namespace {

using vexa::frmSendBugReport;

/// The format that rich text has on the clipboard.
constexpr const wchar_t* RTF_FORMAT = L"Rich Text Format";

/// One white pixel as a device-independent bitmap, in hexadecimal digits.
constexpr const char* BITMAP_DIGITS =
    "2800000001000000010000000100180000000000040000000000000000000000000000000000000"
    "0ffffff00";

class ReportPaste : public FormTest {
protected:
    void SetUp() override {
        ASSERT_TRUE(SUCCEEDED(OleInitialize(nullptr)));
        stage->setValue(L"Software\\Norvane\\Quillmark", L"SendTo", std::wstring(L"help@tarnwell.example"));
        application.addIn = application.platform.addIns.running();
    }
    void TearDown() override { OleUninitialize(); }

    static HWND editor(const frmSendBugReport& form) { return reinterpret_cast<HWND>(form.rtfBody.handle()); }
    static void putOnClipboard(HWND owner, UINT format, HANDLE data) {
        for (int attempt = 0; !OpenClipboard(owner); ++attempt) {
            ASSERT_LT(attempt, 100) << "the clipboard cannot be opened";
            Sleep(10);
        }
        EmptyClipboard();
        EXPECT_NE(SetClipboardData(format, data), nullptr);
        CloseClipboard();
    }
    static HGLOBAL memoryOf(const std::string& bytes) {
        const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes.size() + 1);
        std::memcpy(GlobalLock(memory), bytes.c_str(), bytes.size() + 1);
        GlobalUnlock(memory);
        return memory;
    }
    static HENHMETAFILE picture() {
        const HDC canvas = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
        Rectangle(canvas, 0, 0, 20, 20);
        return CloseEnhMetaFile(canvas);
    }

    /// Writes a line, pastes behind it what `copy` has put on the clipboard, writes on and sends. What was
    /// typed must be there at each step; `between` may lie between both words.
    void pasteAndSend(const std::function<void(HWND)>& copy) {
        stage->whenShown<frmSendBugReport>([&](frmSendBugReport& form) {
            user.type(form.rtfBody, L"before ");
            copy(editor(form));
            SendMessageW(editor(form), WM_PASTE, 0, 0);
            EXPECT_TRUE(form.rtfBody.text().starts_with(L"before ")) << toUtf8(form.rtfBody.text());
            user.type(form.rtfBody, L" after");
            EXPECT_TRUE(form.rtfBody.text().ends_with(L" after")) << toUtf8(form.rtfBody.text());
            shown = form.rtfBody.text();
            user.clickButton(form.tbrBugReport, vexa::SEND_BUTTON);
            EXPECT_FALSE(form.window().isOpen());
        });
        vexa::showBugReport(application, stage->owner());
        EXPECT_TRUE(stage->messages().empty());
        EXPECT_EQ(toUtf8(stage->addIn().report.body), toUtf8(shown));
        const std::wstring& rtf = stage->addIn().report.richBody;
        EXPECT_NE(rtf.find(L"before "), std::wstring::npos);
        EXPECT_NE(rtf.find(L" after"), std::wstring::npos) << toUtf8(rtf) << " of " << toUtf8(shown);
    }
    void pasteRtf(const std::string& rtf) {
        pasteAndSend(
            [&](HWND owner) { putOnClipboard(owner, RegisterClipboardFormatW(RTF_FORMAT), memoryOf(rtf)); });
    }

    std::wstring shown;
};

TEST_F(ReportPaste, ABitmapLeavesWhatWasTyped) {
    pasteAndSend([](HWND owner) { putOnClipboard(owner, CF_BITMAP, CreateBitmap(4, 4, 1, 32, nullptr)); });
}

TEST_F(ReportPaste, ADrawingLeavesWhatWasTyped) {
    pasteAndSend([](HWND owner) { putOnClipboard(owner, CF_ENHMETAFILE, picture()); });
}

TEST_F(ReportPaste, RichTextWithAPictureKeepsTheTextAroundIt) {
    pasteRtf("{\\rtf1\\ansi one {\\pict\\dibitmap0\\picw1\\pich1\\picwgoal15\\pichgoal15 " +
             std::string(BITMAP_DIGITS) + "} two}");
    EXPECT_NE(shown.find(L"one "), std::wstring::npos);
    EXPECT_NE(shown.find(L"two"), std::wstring::npos) << toUtf8(shown);
}

TEST_F(ReportPaste, RichTextWithAnObjectKeepsTheTextAroundIt) {
    pasteRtf(
        "{\\rtf1\\ansi one {\\object\\objemb\\objw100\\objh100{\\*\\objclass Nobody.Knows.1}{\\*\\objdata "
        "0105000002000000}{\\result shown instead}} two}");
    EXPECT_NE(shown.find(L"one "), std::wstring::npos);
    EXPECT_NE(shown.find(L"two"), std::wstring::npos) << toUtf8(shown);
}

TEST_F(ReportPaste, BrokenRichTextLeavesWhatWasTyped) {
    pasteRtf("{\\rtf1\\ansi one {\\pict\\bin99999999 {{{ \\u99999999999?");
}

TEST_F(ReportPaste, AListOfFilesLeavesWhatWasTyped) {
    pasteAndSend([](HWND owner) {
        // The head says where the names begin and that they are wide.
        std::string list("\x14\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\1\0\0\0", 20);
        const std::wstring name(L"C:\\a.txt\0", 9);
        list.append(reinterpret_cast<const char*>(name.data()), name.size() * sizeof(wchar_t));
        putOnClipboard(owner, CF_HDROP, memoryOf(list));
    });
}

}  // namespace
}  // namespace tests

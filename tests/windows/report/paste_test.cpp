// Pictures and objects on their way into the report: the editor takes or refuses them by itself, and what was
// typed stays and can be sent.
#include <windows.h>

#include <ole2.h>

#include "tests/report/report_test_base.h"
#include "tests/windows/stage/clipboard.h"
#include "tests/windows/stage/user.h"

namespace tests {
namespace {

/// The format that rich text has on the clipboard.
constexpr const wchar_t* RTF_FORMAT = L"Rich Text Format";

/// One white pixel as a device-independent bitmap, in hexadecimal digits.
constexpr const char* BITMAP_DIGITS =
    "2800000001000000010000000100180000000000040000000000000000000000000000000000000"
    "0ffffff00";

class ReportPaste : public ReportTest {
protected:
    void SetUp() override {
        ASSERT_TRUE(SUCCEEDED(OleInitialize(nullptr)));
        ReportTest::SetUp();
        storeRecipient(L"help@tarnwell.example");
    }
    void TearDown() override { OleUninitialize(); }

    static HENHMETAFILE picture() {
        const HDC canvas = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
        Rectangle(canvas, 0, 0, 20, 20);
        return CloseEnhMetaFile(canvas);
    }

    /// Writes a line, pastes behind it what `copy` has put on the clipboard, writes on and sends. What was
    /// typed must be there at each step; `between` may lie between both words.
    void pasteAndSend(const std::function<bool(HWND)>& copy) {
        open([&](frmSendBugReport& form) {
            user.type(form.rtfBody, L"before ");
            EXPECT_TRUE(copy(windowOf(form.rtfBody)));
            SendMessageW(windowOf(form.rtfBody), WM_PASTE, 0, 0);
            EXPECT_TRUE(form.rtfBody.text().starts_with(L"before ")) << toUtf8(form.rtfBody.text());
            user.type(form.rtfBody, L" after");
            EXPECT_TRUE(form.rtfBody.text().ends_with(L" after")) << toUtf8(form.rtfBody.text());
            shown = form.rtfBody.text();
            user.clickButton(form.tbrBugReport, SEND_BUTTON);
            EXPECT_FALSE(form.window().isOpen());
        });
        EXPECT_TRUE(stage->messages().empty());
        EXPECT_EQ(toUtf8(stage->addIn().report.body), toUtf8(shown));
        const std::wstring& rtf = stage->addIn().report.richBody;
        EXPECT_NE(rtf.find(L"before "), std::wstring::npos);
        EXPECT_NE(rtf.find(L" after"), std::wstring::npos) << toUtf8(rtf) << " of " << toUtf8(shown);
    }
    void pasteRtf(const std::string& rtf) {
        pasteAndSend([&](HWND owner) {
            return putOnClipboard(owner, RegisterClipboardFormatW(RTF_FORMAT),
                                  memoryOf(rtf.c_str(), rtf.size() + 1));
        });
    }

    std::wstring shown;
};

TEST_F(ReportPaste, ABitmapLeavesWhatWasTyped) {
    pasteAndSend(
        [](HWND owner) { return putOnClipboard(owner, CF_BITMAP, CreateBitmap(4, 4, 1, 32, nullptr)); });
}

TEST_F(ReportPaste, ADrawingLeavesWhatWasTyped) {
    pasteAndSend([](HWND owner) { return putOnClipboard(owner, CF_ENHMETAFILE, picture()); });
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
        return putOnClipboard(owner, CF_HDROP, memoryOf(list.c_str(), list.size() + 1));
    });
}

}  // namespace
}  // namespace tests

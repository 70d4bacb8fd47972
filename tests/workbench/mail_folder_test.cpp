// Sent reports as mail files.
#include <gtest/gtest.h>
#include <windows.h>

#include "workbench/addin/mail_folder.h"

namespace tests {
namespace {

using workbench::mailText;
using workbench::Report;

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

TEST(MailTextTest, CarriesTheHeadersAndBothBodies) {
    const std::string mail =
        mailText({L"Subject", L"plain", L"{\\rtf1}", L"to@example.org", L"cc@example.org", 2}, L"today");
    EXPECT_TRUE(contains(mail, "Date: today\r\n"));
    EXPECT_TRUE(contains(mail, "To: to@example.org\r\nCc: cc@example.org\r\nSubject: Subject\r\n"));
    EXPECT_TRUE(contains(mail, "Content-Type: multipart/alternative; boundary="));
    EXPECT_TRUE(contains(mail,
                         "Content-Type: text/plain; charset=utf-8\r\nContent-Transfer-Encoding: "
                         "base64\r\n\r\ncGxhaW4=\r\n"));
    EXPECT_TRUE(contains(mail,
                         "Content-Type: application/rtf\r\nContent-Transfer-Encoding: "
                         "base64\r\n\r\ne1xydGYxfQ==\r\n"));
}

TEST(MailTextTest, NamesTheImportanceByThePagesOwnNumbers) {
    EXPECT_TRUE(contains(mailText({L"", L"", L"", L"", L"", 2}, L""), "Importance: high\r\n"));
    EXPECT_TRUE(contains(mailText({L"", L"", L"", L"", L"", 1}, L""), "Importance: low\r\n"));
    EXPECT_TRUE(contains(mailText({L"", L"", L"", L"", L"", 0}, L""), "Importance: normal\r\n"));
}

TEST(MailTextTest, LeavesAnEmptyCopyFieldOut) {
    EXPECT_FALSE(contains(mailText({L"", L"", L"", L"to", L"", 0}, L""), "Cc:"));
}

TEST(MailTextTest, EncodesHeadersOutsideAscii) {
    EXPECT_TRUE(contains(mailText({L"\u00FC", L"", L"", L"", L"", 0}, L""), "Subject: =?utf-8?B?w7w=?=\r\n"));
}

TEST(MailTextTest, ALineEndInAFieldStartsNoHeaderOfItsOwn) {
    const std::string mail = mailText({L"a\r\nBcc: x", L"", L"", L"", L"", 0}, L"");
    EXPECT_TRUE(contains(mail, "Subject: a  Bcc: x\r\n"));
}

TEST(MailTextTest, LongBodiesAreBrokenIntoLines) {
    const std::string mail = mailText({L"", std::wstring(1000, L'x'), L"", L"", L"", 0}, L"");
    std::size_t longest = 0;
    for (std::size_t start = 0; start < mail.size();) {
        const std::size_t end = mail.find("\r\n", start);
        longest = std::max(longest, end - start);
        start = end + 2;
    }
    EXPECT_LE(longest, 76u);
}

TEST(MailFolderTest, EachReportGetsAFileOfItsOwn) {
    wchar_t temporary[MAX_PATH];
    GetTempPathW(MAX_PATH, temporary);
    const std::wstring folder = std::wstring(temporary) + L"quillmark-mail-tests";
    const std::wstring first = workbench::writeMail(folder, {L"a", L"", L"", L"to", L"", 0});
    const std::wstring second = workbench::writeMail(folder, {L"b", L"", L"", L"to", L"", 0});
    EXPECT_FALSE(first.empty());
    EXPECT_FALSE(second.empty());
    EXPECT_NE(first, second);
    EXPECT_TRUE(DeleteFileW(first.c_str()));
    EXPECT_TRUE(DeleteFileW(second.c_str()));
    EXPECT_TRUE(RemoveDirectoryW(folder.c_str()));
}

}  // namespace
}  // namespace tests

// Sent reports as mail files.
#include <gmock/gmock.h>
#include <windows.h>

#include "tests/windows/stage/scratch_folder.h"
#include "workbench/addin/mail_folder.h"

namespace tests {
namespace {

using testing::HasSubstr;
using testing::Not;
using workbench::mailText;

TEST(MailTextTest, CarriesTheHeadersAndBothBodies) {
    const std::string mail =
        mailText({L"Subject", L"plain", L"{\\rtf1}", L"to@example.org", L"cc@example.org", 2}, L"today");
    EXPECT_THAT(mail, HasSubstr("Date: today\r\n"));
    EXPECT_THAT(mail, HasSubstr("To: to@example.org\r\nCc: cc@example.org\r\nSubject: Subject\r\n"));
    EXPECT_THAT(mail, HasSubstr("Content-Type: multipart/alternative; boundary="));
    EXPECT_THAT(mail, HasSubstr("Content-Type: text/plain; charset=utf-8\r\nContent-Transfer-Encoding: "
                                "base64\r\n\r\ncGxhaW4=\r\n"));
    EXPECT_THAT(mail, HasSubstr("Content-Type: application/rtf\r\nContent-Transfer-Encoding: "
                                "base64\r\n\r\ne1xydGYxfQ==\r\n"));
}

TEST(MailTextTest, NamesTheImportanceByThePagesOwnNumbers) {
    EXPECT_THAT(mailText({L"", L"", L"", L"", L"", 2}, L""), HasSubstr("Importance: high\r\n"));
    EXPECT_THAT(mailText({L"", L"", L"", L"", L"", 1}, L""), HasSubstr("Importance: low\r\n"));
    EXPECT_THAT(mailText({L"", L"", L"", L"", L"", 0}, L""), HasSubstr("Importance: normal\r\n"));
}

TEST(MailTextTest, LeavesAnEmptyCopyFieldOut) {
    EXPECT_THAT(mailText({L"", L"", L"", L"to", L"", 0}, L""), Not(HasSubstr("Cc:")));
}

TEST(MailTextTest, EncodesHeadersOutsideAscii) {
    EXPECT_THAT(mailText({L"\u00FC", L"", L"", L"", L"", 0}, L""),
                HasSubstr("Subject: =?utf-8?B?w7w=?=\r\n"));
}

TEST(MailTextTest, ALineEndInAFieldStartsNoHeaderOfItsOwn) {
    const std::string mail = mailText({L"a\r\nBcc: x", L"", L"", L"", L"", 0}, L"");
    EXPECT_THAT(mail, HasSubstr("Subject: a  Bcc: x\r\n"));
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
    const ScratchFolder scratch;
    const std::wstring folder = scratch.path() + L"\\mail";
    const std::wstring first = workbench::writeMail(folder, {L"a", L"", L"", L"to", L"", 0});
    const std::wstring second = workbench::writeMail(folder, {L"b", L"", L"", L"to", L"", 0});
    EXPECT_FALSE(first.empty());
    EXPECT_FALSE(second.empty());
    EXPECT_NE(first, second);
    EXPECT_TRUE(DeleteFileW(first.c_str()));
    EXPECT_TRUE(DeleteFileW(second.c_str()));
    EXPECT_TRUE(RemoveDirectoryW(folder.c_str())) << "nothing else is in it";
}

}  // namespace
}  // namespace tests

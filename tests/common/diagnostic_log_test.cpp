// The diagnostic log, byte for byte, and what happens to it when a call of the file system fails.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "common/guarded.h"
#include "tests/stage/form_test.h"
#include "tests/support/text.h"

namespace tests {
namespace {

using testing::IsEmpty;

constexpr const wchar_t* PRODUCT_KEY = L"Software\\Norvane\\Quillmark";
const std::string STAMP = "02/03/2026 09:05:07:004\t";

class DiagnosticLogTest : public FormTest {
protected:
    void SetUp() override {
        application.log.LogPath = stage->folder() + L"Log\\";
        stage->setTime({2026, 2, 3, 9, 5, 7, 4});
    }
    [[nodiscard]] std::optional<std::string> file() {
        return stage->readFile(application.log.LogPath + L"VexaPPE.log");
    }
    void writeStaleFile() {
        stage->createFolder(application.log.LogPath);
        stage->writeFile(application.log.LogPath + L"VexaPPE.log", "stale\r\n");
    }
};

TEST_F(DiagnosticLogTest, ALineIsItsStampATabTheTextAndALineEnd) {
    application.WriteLogLine(L"ctlPPE, initialized.");
    EXPECT_EQ(file(), "02/03/2026 09:05:07:004\tctlPPE, initialized.\r\n");
}

TEST_F(DiagnosticLogTest, AnAfternoonCountsTo24Hours) {
    stage->setTime({2026, 11, 28, 14, 3, 9, 45});
    application.WriteLogLine(L"text");
    EXPECT_EQ(file(), "11/28/2026 14:03:09:045\ttext\r\n");
}

TEST_F(DiagnosticLogTest, EachLineBearsTheTimeOfItsOwnCall) {
    stage->setTime({2026, 12, 31, 23, 59, 59, 999});
    application.WriteLogLine(L"one");
    stage->setTime({2027, 1, 1, 0, 0, 0, 0});
    application.WriteLogLine(L"two");
    EXPECT_EQ(file(), "12/31/2026 23:59:59:999\tone\r\n01/01/2027 00:00:00:000\ttwo\r\n");
}

TEST_F(DiagnosticLogTest, TheTextIsWrittenAsItStandsInTheAnsiCodePage) {
    application.WriteLogLine(L"M\xFCller: a\r\nb\t\x20AC \x416");
    EXPECT_EQ(file(), STAMP + "M\xFCller: a\r\nb\t\x80 ?\r\n");
    application.WriteLogLine(L"");
    EXPECT_TRUE(file()->ends_with("\r\n" + STAMP + "\r\n"));
}

TEST_F(DiagnosticLogTest, WithLoggingOffNoFileAndNoFolderIsMade) {
    application.settings.LoggingInformation = false;
    application.WriteLogLine(L"text");
    EXPECT_EQ(file(), std::nullopt);
    EXPECT_FALSE(application.platform.files.folderExists(application.log.LogPath));
}

TEST_F(DiagnosticLogTest, TheSwitchIsAskedAtEachLine) {
    application.WriteLogLine(L"one");
    application.settings.LoggingInformation = false;
    application.WriteLogLine(L"two");
    application.settings.LoggingInformation = true;
    application.WriteLogLine(L"three");
    EXPECT_EQ(file(), STAMP + "one\r\n" + STAMP + "three\r\n");
}

TEST_F(DiagnosticLogTest, TheVersionIsTheFirstLineOnceInAProcess) {
    stage->setValue(PRODUCT_KEY, L"AppVer", L"3.1.4");
    application.WriteLogLine(L"one");
    application.WriteLogLine(L"two");
    EXPECT_EQ(file(), STAMP + "3.1.4\r\n" + STAMP + "one\r\n" + STAMP + "two\r\n");
    EXPECT_EQ(calls.linesWith("registry open").size(), 1U) << "the version is read once";
}

TEST_F(DiagnosticLogTest, AnEmptyVersionWritesNoLine) {
    stage->setValue(PRODUCT_KEY, L"AppVer", L"");
    application.WriteLogLine(L"one");
    EXPECT_EQ(file(), STAMP + "one\r\n");
}

TEST_F(DiagnosticLogTest, AVersionThatIsNoTextWritesNoLine) {
    stage->setValue(PRODUCT_KEY, L"AppVer", vexa::Bytes{1, 2});
    application.WriteLogLine(L"one");
    EXPECT_EQ(file(), STAMP + "one\r\n");
}

TEST_F(DiagnosticLogTest, ANewProcessDeletesTheOldFileFirst) {
    application.WriteLogLine(L"old");
    vexa::Application nextProcess(application.platform, application.screen);
    nextProcess.log.LogPath = application.log.LogPath;
    nextProcess.WriteLogLine(L"new");
    EXPECT_EQ(file(), STAMP + "new\r\n");
}

TEST_F(DiagnosticLogTest, TheFolderIsMadeWhereItsParentExists) {
    application.log.LogPath = stage->folder() + L"Log\\Deep\\";
    application.WriteLogLine(L"lost");
    EXPECT_EQ(file(), std::nullopt) << "one level only";
    stage->createFolder(stage->folder() + L"Log");
    application.WriteLogLine(L"kept");
    EXPECT_EQ(file(), STAMP + "kept\r\n");
}

TEST_F(DiagnosticLogTest, ThePathIsAPrefixAsItStands) {
    stage->createFolder(stage->folder() + L"Log");
    application.log.LogPath = stage->folder() + L"Log";
    application.WriteLogLine(L"text");
    EXPECT_EQ(stage->readFile(stage->folder() + L"LogVexaPPE.log"), STAMP + "text\r\n");
}

TEST_F(DiagnosticLogTest, TheFileIsOpenedForEveryLine) {
    application.WriteLogLine(L"one");
    application.WriteLogLine(L"two");
    EXPECT_EQ(calls.linesWith("files openForAppending").size(), 2U);
}

TEST_F(DiagnosticLogTest, TheFirstLineTakesItsStepsInOrder) {
    writeStaleFile();
    stage->setValue(PRODUCT_KEY, L"AppVer", L"3.1.4");
    calls.clear();
    application.WriteLogLine(L"one");
    const std::string folder = toUtf8(application.log.LogPath);
    const std::string path = folder + "VexaPPE.log";
    const std::string query = "registry query Software\\Norvane\\Quillmark\\AppVer";
    EXPECT_THAT(calls.lines(),
                testing::ElementsAre("files folderExists " + folder, "files fileExists " + path,
                                     "files deleteFile " + path, "files openForAppending " + path,
                                     "registry open Software\\Norvane\\Quillmark", query, query,
                                     "registry close Software\\Norvane\\Quillmark", "files write " + path,
                                     "files write " + path));
}

/// The first line is written with one call failing, the second line with none.
class LogFaults : public DiagnosticLogTest, public testing::WithParamInterface<const char*> {};

TEST_P(LogFaults, ALineThatIsLostLeavesTheNextOneToStartAFreshFile) {
    if (std::string(GetParam()) != "files createFolder") writeStaleFile();
    stage->setValue(PRODUCT_KEY, L"AppVer", L"3.1.4");
    calls.failCallsWith(GetParam());
    application.WriteLogLine(L"lost");
    EXPECT_FALSE(calls.linesWith(GetParam()).empty());
    calls.forgetFaults();

    application.WriteLogLine(L"kept");
    EXPECT_EQ(file(), STAMP + "3.1.4\r\n" + STAMP + "kept\r\n");
}

INSTANTIATE_TEST_SUITE_P(Calls, LogFaults,
                         testing::Values("files createFolder", "files deleteFile", "files openForAppending",
                                         "files write"));

TEST_F(DiagnosticLogTest, ALineThatIsLostAfterTheVersionStartsAFreshFileToo) {
    stage->setValue(PRODUCT_KEY, L"AppVer", L"3.1.4");
    calls.during("files write", [&] { calls.failCall(0); });  // the next write: that of the line itself
    application.WriteLogLine(L"lost");
    calls.forgetFaults();
    EXPECT_EQ(file(), STAMP + "3.1.4\r\n");
    application.WriteLogLine(L"kept");
    EXPECT_EQ(file(), STAMP + "3.1.4\r\n" + STAMP + "kept\r\n");
}

TEST_F(DiagnosticLogTest, AVersionThatCannotBeReadIsLeftOut) {
    stage->setValue(PRODUCT_KEY, L"AppVer", L"3.1.4");
    for (const char* failing : {"registry open", "registry query"}) {
        vexa::Application process(application.platform, application.screen);
        process.log.LogPath = application.log.LogPath;
        calls.failCallsWith(failing);
        process.WriteLogLine(L"text");
        calls.forgetFaults();
        EXPECT_EQ(file(), STAMP + "text\r\n") << failing;
    }
}

TEST_F(DiagnosticLogTest, ALaterLineThatIsLostLeavesTheFileAsItIs) {
    application.WriteLogLine(L"one");
    for (const char* failing : {"files openForAppending", "files write"}) {
        calls.failCallsWith(failing);
        application.WriteLogLine(L"lost");
        calls.forgetFaults();
    }
    application.WriteLogLine(L"two");
    EXPECT_EQ(file(), STAMP + "one\r\n" + STAMP + "two\r\n");
}

TEST_F(DiagnosticLogTest, AnErrorsLineNamesItsPlaceAndTheDescription) {
    EXPECT_FALSE(
        vexa::guarded(application, L"ctlPPE", L"cmdWizard_Click", [] { throw vexa::Error(L"No way"); }));
    EXPECT_EQ(file(), STAMP + "ctlPPE, Error cmdWizard_Click: No way\r\n");
}

TEST_F(DiagnosticLogTest, ForeignErrorsHaveADescriptionToo) {
    EXPECT_FALSE(vexa::guarded(application, L"f", L"p", [] { throw std::bad_alloc(); }));
    EXPECT_FALSE(vexa::guarded(application, L"f", L"p", [] { throw std::runtime_error("odd"); }));
    EXPECT_FALSE(vexa::guarded(application, L"f", L"p", [] { throw 5; }));
    EXPECT_TRUE(vexa::guarded(application, L"f", L"p", [] {}));
    EXPECT_EQ(file(), STAMP + "f, Error p: Out of memory\r\n" + STAMP + "f, Error p: odd\r\n" + STAMP +
                          "f, Error p: Unknown error\r\n");
}

}  // namespace
}  // namespace tests

// Files, folders, drives and the clock of the real machine.
#include "windows/platform/files.h"

#include <gmock/gmock.h>

#include <windows.h>

#include "common/error.h"
#include "tests/windows/stage/scratch_folder.h"

namespace tests {
namespace {

using testing::Contains;
using testing::UnorderedElementsAre;

class FilesTest : public testing::Test {
protected:
    [[nodiscard]] std::wstring path(const std::wstring& name) { return folder.path() + L"\\" + name; }

    ScratchFolder folder;
    win::FileSystem files;
};

TEST_F(FilesTest, FoldersAndFilesAreToldApart) {
    files.createFolder(path(L"sub"));
    ScratchFolder::write(path(L"file.txt"), "12345");
    EXPECT_TRUE(files.folderExists(path(L"sub")));
    EXPECT_TRUE(files.folderExists(path(L"sub\\")));
    EXPECT_FALSE(files.fileExists(path(L"sub")));
    EXPECT_TRUE(files.fileExists(path(L"file.txt")));
    EXPECT_FALSE(files.folderExists(path(L"file.txt")));
    EXPECT_FALSE(files.fileExists(path(L"none")));
    EXPECT_FALSE(files.folderExists(path(L"none")));
    EXPECT_FALSE(files.folderExists(L""));
    EXPECT_EQ(files.fileSize(path(L"file.txt")), 5U);
}

TEST_F(FilesTest, WhatCannotBeDoneIsAnErrorWithADescription) {
    const auto expectError = [](auto action) {
        try {
            action();
            FAIL() << "no error";
        } catch (const vexa::Error& error) {
            EXPECT_FALSE(error.description().empty());
        }
    };
    expectError([&] { static_cast<void>(files.fileSize(path(L"none"))); });
    expectError([&] { files.createFolder(path(L"missing\\sub")); });
    expectError([&] { files.deleteFile(path(L"none")); });
    expectError([&] { static_cast<void>(files.openForAppending(path(L"missing\\file"))); });
    expectError([&] { static_cast<void>(files.subfolders(path(L"none"))); });
}

TEST_F(FilesTest, AnAppendedFileIsCreatedAndGrows) {
    files.openForAppending(path(L"log"))->write("one\r\n");
    files.openForAppending(path(L"log"))->write("two\r\n");
    EXPECT_EQ(ScratchFolder::read(path(L"log")), "one\r\ntwo\r\n");
    files.deleteFile(path(L"log"));
    EXPECT_FALSE(files.fileExists(path(L"log")));
}

TEST_F(FilesTest, AFileThatAnotherWriterHoldsCannotBeOpened) {
    const auto held = files.openForAppending(path(L"log"));
    EXPECT_THROW(static_cast<void>(files.openForAppending(path(L"log"))), vexa::Error);
}

TEST_F(FilesTest, NamesOutsideAsciiAreKept) {
    files.createFolder(path(L"\u00DC\u0416\u4E2D"));
    EXPECT_THAT(files.subfolders(folder.path()), UnorderedElementsAre(L"\u00DC\u0416\u4E2D"));
}

TEST_F(FilesTest, HiddenFoldersAndFilesAreNoSubfolders) {
    files.createFolder(path(L"one"));
    files.createFolder(path(L"two"));
    files.createFolder(path(L"hidden"));
    SetFileAttributesW(path(L"hidden").c_str(), FILE_ATTRIBUTE_HIDDEN);
    ScratchFolder::write(path(L"file"), "");
    EXPECT_THAT(files.subfolders(folder.path()), UnorderedElementsAre(L"one", L"two"));
    EXPECT_THAT(files.subfolders(folder.path() + L"\\"), UnorderedElementsAre(L"one", L"two"));
    EXPECT_THAT(files.subfolders(path(L"one")), UnorderedElementsAre());
}

TEST_F(FilesTest, TheDrivesAreListedInTheirOrder) {
    const std::vector<std::wstring> drives = files.drives();
    EXPECT_THAT(drives, Contains(L"C:"));
    EXPECT_TRUE(std::ranges::is_sorted(drives));
}

TEST_F(FilesTest, TheInstallationFolderIsThatOfTheModule) {
    const std::wstring installed = files.installationFolder();
    EXPECT_TRUE(files.folderExists(installed));
    EXPECT_FALSE(installed.ends_with(L'\\'));
    EXPECT_TRUE(files.fileExists(installed + L"\\windows_tests.exe"));
}

TEST(Clock, TellsTheLocalTimeAndSleeps) {
    win::Clock clock;
    SYSTEMTIME before{};
    GetLocalTime(&before);
    const ULONGLONG start = GetTickCount64();
    clock.sleep(60);
    EXPECT_GE(GetTickCount64() - start, 40U);
    clock.sleep(-1);
    EXPECT_GE(clock.localTime().year, before.wYear);
}

}  // namespace
}  // namespace tests

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
}

TEST_F(FilesTest, FilesWithContentAreThoseOfTheExtensionInTheFolderItself) {
    EXPECT_THAT(files.filesWithContent(folder.path(), L".dct"), UnorderedElementsAre());
    for (const wchar_t* name : {L"one.dct", L"TWO.DCT", L"\u00DC\u0416.dct", L"other.txt"})
        ScratchFolder::write(path(name), "1");
    ScratchFolder::write(path(L"empty.dct"), "");
    files.createFolder(path(L"folder.dct"));
    files.createFolder(path(L"sub"));
    ScratchFolder::write(path(L"sub\\below.dct"), "1");
    EXPECT_THAT(files.filesWithContent(folder.path(), L".dct"),
                UnorderedElementsAre(L"one.dct", L"TWO.DCT", L"\u00DC\u0416.dct"));
    EXPECT_THAT(files.filesWithContent(folder.path() + L"\\", L".txt"), UnorderedElementsAre(L"other.txt"));
}

// --- The system's own error boxes
// ---------------------------------------------------------------------------

std::vector<DWORD> modesInCalls;

/// What the program asks the system while these stand in the way.
DWORD WINAPI noteAttributes(LPCWSTR) {
    modesInCalls.push_back(GetThreadErrorMode());
    return INVALID_FILE_ATTRIBUTES;
}
HANDLE WINAPI noteSearch(LPCWSTR, FINDEX_INFO_LEVELS, LPVOID, FINDEX_SEARCH_OPS, LPVOID, DWORD) {
    modesInCalls.push_back(GetThreadErrorMode());
    SetLastError(ERROR_NOT_READY);
    return INVALID_HANDLE_VALUE;
}
HANDLE WINAPI noteOpening(LPCWSTR, DWORD, DWORD, LPSECURITY_ATTRIBUTES, DWORD, DWORD, HANDLE) {
    modesInCalls.push_back(GetThreadErrorMode());
    SetLastError(ERROR_NOT_READY);
    return INVALID_HANDLE_VALUE;
}
BOOL WINAPI noteFolder(LPCWSTR, LPSECURITY_ATTRIBUTES) {
    modesInCalls.push_back(GetThreadErrorMode());
    SetLastError(ERROR_NOT_READY);
    return FALSE;
}
BOOL WINAPI noteDeletion(LPCWSTR) {
    modesInCalls.push_back(GetThreadErrorMode());
    SetLastError(ERROR_NOT_READY);
    return FALSE;
}

}  // namespace
}  // namespace tests

// Through which this program calls the system; on 32 bits the names tell the size of the arguments.
#ifdef _WIN64
#define IMPORTED(function, size) __asm__("__imp_" #function)
#else
#define IMPORTED(function, size) __asm__("__imp__" #function "@" #size)
#endif
extern "C" {
extern decltype(&GetFileAttributesW) importedGetFileAttributes IMPORTED(GetFileAttributesW, 4);
extern decltype(&FindFirstFileExW) importedFindFirstFileEx IMPORTED(FindFirstFileExW, 24);
extern decltype(&CreateFileW) importedCreateFile IMPORTED(CreateFileW, 28);
extern decltype(&CreateDirectoryW) importedCreateDirectory IMPORTED(CreateDirectoryW, 8);
extern decltype(&DeleteFileW) importedDeleteFile IMPORTED(DeleteFileW, 4);
}
#undef IMPORTED

namespace tests {
namespace {

/// Another function in place of one of the system's, while it lives.
template <class Function>
class Replaced {
public:
    Replaced(Function& entry, Function function) : entry_(entry), before_(entry) { put(function); }
    ~Replaced() { put(before_); }
    Replaced(const Replaced&) = delete;
    Replaced& operator=(const Replaced&) = delete;

private:
    void put(Function function) {
        DWORD protection = 0;
        VirtualProtect(&entry_, sizeof entry_, PAGE_READWRITE, &protection);
        entry_ = function;
        VirtualProtect(&entry_, sizeof entry_, protection, &protection);
    }
    Function& entry_;
    Function before_;
};

TEST_F(FilesTest, QuestionsAreAskedWithoutTheSystemsOwnErrorBoxesAndLeaveTheThreadsChoice) {
    const Replaced attributes(importedGetFileAttributes, &noteAttributes);
    const Replaced search(importedFindFirstFileEx, &noteSearch);
    const Replaced opening(importedCreateFile, &noteOpening);
    const Replaced creation(importedCreateDirectory, &noteFolder);
    const Replaced deletion(importedDeleteFile, &noteDeletion);
    DWORD before = 0;
    SetThreadErrorMode(SEM_NOOPENFILEERRORBOX, &before);
    modesInCalls.clear();
    static_cast<void>(files.fileExists(L"A:\\x"));
    static_cast<void>(files.folderExists(L"A:\\x"));
    EXPECT_THROW(static_cast<void>(files.subfolders(L"A:\\")), vexa::Error);
    EXPECT_THROW(static_cast<void>(files.filesWithContent(L"A:\\", L".dct")), vexa::Error);
    EXPECT_THROW(static_cast<void>(files.openForAppending(L"A:\\x")), vexa::Error);
    EXPECT_THROW(files.createFolder(L"A:\\x"), vexa::Error);
    EXPECT_THROW(files.deleteFile(L"A:\\x"), vexa::Error);
    EXPECT_EQ(GetThreadErrorMode(), static_cast<DWORD>(SEM_NOOPENFILEERRORBOX));
    SetThreadErrorMode(before, nullptr);
    EXPECT_THAT(modesInCalls, testing::ElementsAreArray(
                                  std::vector<DWORD>(7, SEM_NOOPENFILEERRORBOX | SEM_FAILCRITICALERRORS)));
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
    expectError([&] { static_cast<void>(files.filesWithContent(path(L"none"), L".dct")); });
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
    const std::int64_t began = clock.milliseconds();
    clock.sleep(60);
    EXPECT_GE(GetTickCount64() - start, 40U);
    EXPECT_GE(clock.milliseconds() - began, 40);
    EXPECT_LT(clock.milliseconds() - began, 10'000);
    clock.sleep(-1);
    EXPECT_GE(clock.localTime().year, before.wYear);
}

}  // namespace
}  // namespace tests

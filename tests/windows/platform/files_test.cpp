// Files, folders, drives and the clock of the real machine.
#include "windows/platform/files.h"

#include <gmock/gmock.h>

#include <windows.h>

#include "common/error.h"
#include "tests/windows/stage/scratch_folder.h"
#include "workbench/world/imports.h"

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

/// Notes how the system would tell of a fault, and answers that there is one.
template <class Answer>
Answer refuse(Answer answer) {
    modesInCalls.push_back(GetThreadErrorMode());
    SetLastError(ERROR_NOT_READY);
    return answer;
}

// What the program asks the system while these stand in the way.
DWORD WINAPI refuseAttributes(LPCWSTR) { return refuse(INVALID_FILE_ATTRIBUTES); }
HANDLE WINAPI refuseSearch(LPCWSTR, FINDEX_INFO_LEVELS, LPVOID, FINDEX_SEARCH_OPS, LPVOID, DWORD) {
    return refuse(INVALID_HANDLE_VALUE);
}
HANDLE WINAPI refuseOpening(LPCWSTR, DWORD, DWORD, LPSECURITY_ATTRIBUTES, DWORD, DWORD, HANDLE) {
    return refuse(INVALID_HANDLE_VALUE);
}
BOOL WINAPI refuseFolder(LPCWSTR, LPSECURITY_ATTRIBUTES) { return refuse(FALSE); }
BOOL WINAPI refuseDeletion(LPCWSTR) { return refuse(FALSE); }

/// Other functions in place of the system's, while it lives.
class Replaced {
public:
    explicit Replaced(const std::vector<workbench::Replacement>& others) {
        const HMODULE system = GetModuleHandleW(L"kernel32.dll");
        for (const auto& each : others)
            before_.push_back(
                {each.name, reinterpret_cast<void*>(GetProcAddress(system, each.name.c_str()))});
        workbench::replaceImports(GetModuleHandleW(nullptr), others);
    }
    Replaced(const Replaced&) = delete;
    Replaced& operator=(const Replaced&) = delete;
    ~Replaced() { workbench::replaceImports(GetModuleHandleW(nullptr), before_); }

private:
    std::vector<workbench::Replacement> before_;
};

TEST_F(FilesTest, QuestionsAreAskedWithoutTheSystemsOwnErrorBoxesAndLeaveTheThreadsChoice) {
    const Replaced replaced({{"GetFileAttributesW", reinterpret_cast<void*>(refuseAttributes)},
                             {"FindFirstFileExW", reinterpret_cast<void*>(refuseSearch)},
                             {"CreateFileW", reinterpret_cast<void*>(refuseOpening)},
                             {"CreateDirectoryW", reinterpret_cast<void*>(refuseFolder)},
                             {"DeleteFileW", reinterpret_cast<void*>(refuseDeletion)}});
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

// The built control in containers that others have made: the system's control window of the template library,
// and a script that binds late.
#include "page/ctlPPE.ids.h"
#include "tests/windows/com/control_test.h"
#include "tests/windows/stage/messages.h"
#include "tests/windows/stage/window_queries.h"
#include "windows/platform/module.h"

namespace tests {
namespace {

// --- AtlAxWin ---------------------------------------------------------------------------------------------

class AtlContainer : public ControlTest {
protected:
    AtlContainer() : atl_(LoadLibraryW(L"atl.dll")) {}
    ~AtlContainer() override { FreeLibrary(atl_); }

    HRESULT attach(HWND parent) {
        using Attach = HRESULT(WINAPI*)(IUnknown*, HWND, IUnknown**);
        const auto attachControl =
            reinterpret_cast<Attach>(reinterpret_cast<void*>(GetProcAddress(atl_, "AtlAxAttachControl")));
        com::Ptr<IUnknown> host;
        return attachControl(control.get(), parent, host.out());
    }

private:
    HMODULE atl_;
};

// This host offers no ambient properties, no page site and no focus, gives sizes in wrong units, and ends the
// control by Close alone.
TEST_F(AtlContainer, ShowsThePageAndEndsIt) {
    create();
    ASSERT_EQ(attach(window), S_OK);
    deliverMessages();
    ASSERT_NE(frame(), nullptr);
    EXPECT_TRUE(IsChild(window, frame()));
    EXPECT_TRUE(IsWindowVisible(child(IDC_cmdKnowledgeBase)));
    const RECT client = innerAreaOf(window);
    const RECT shown = innerAreaOf(frame());
    EXPECT_EQ(shown.right, client.right);
    EXPECT_EQ(shown.bottom, client.bottom);
    MoveWindow(window, 0, 0, 400, 300, TRUE);
    deliverMessages();
    EXPECT_FALSE(dirty());
    EXPECT_EQ(as<PropertyPage>()->Apply(), S_OK);
    DestroyWindow(window);
    deliverMessages();
}

// --- Script -----------------------------------------------------------------------------------------------

/// The control, registered for the machine while this lives.
class Registered {
public:
    explicit Registered(const Library& library) : library_(library) {
        EXPECT_EQ(library_.registerServer(), S_OK);
    }
    ~Registered() { EXPECT_EQ(library_.unregisterServer(), S_OK); }

private:
    const Library& library_;
};

/// Presses OK in the message that another process shows because it finds no add-in.
BOOL CALLBACK confirmMessage(HWND found, LPARAM) noexcept {
    if (windowTextOf(found) == L"VexaPPE") PostMessageW(found, WM_COMMAND, IDOK, 0);
    return TRUE;
}

/// What a program writes; it must end within a minute.
std::string outputOf(std::wstring commandLine) {
    SECURITY_ATTRIBUTES inheritable{sizeof inheritable, nullptr, TRUE};
    HANDLE reading = nullptr;
    HANDLE writing = nullptr;
    CreatePipe(&reading, &writing, &inheritable, 0);
    SetHandleInformation(reading, HANDLE_FLAG_INHERIT, 0);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = writing;
    start.hStdError = writing;
    PROCESS_INFORMATION process{};
    EXPECT_TRUE(CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                               &start, &process));
    CloseHandle(writing);
    for (int round = 0; round < 600 && WaitForSingleObject(process.hProcess, 100) == WAIT_TIMEOUT; ++round)
        EnumWindows(confirmMessage, 0);
    EXPECT_EQ(WaitForSingleObject(process.hProcess, 0), static_cast<DWORD>(WAIT_OBJECT_0)) << "still running";
    std::string output;
    char buffer[512];
    DWORD count = 0;
    while (ReadFile(reading, buffer, sizeof buffer, &count, nullptr) && count > 0)
        output.append(buffer, count);
    CloseHandle(reading);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return output;
}

// The script's process has no add-in: the page says so after its hundred attempts, and works without it.
TEST(Script, UsesThePageLateBound) {
    const Library library;
    const Registered registered(library);
    const std::wstring script = win::folderOf(win::modulePath(nullptr)) + L"\\late_binding.vbs";
    EXPECT_EQ(outputOf(L"cscript.exe //nologo \"" + script + L"\""),
              "Caption=Quillmark\r\n"
              "Dirty=False\r\n"
              "GetPageInfo=,0\r\n"
              "BackColor=255\r\n"
              "ForeColor=65280\r\n"
              "Enabled=True\r\n"
              "BackStyle=1\r\n"
              "BorderStyle=1\r\n"
              "Loading=True\r\n"
              "Font=Nothing\r\n"
              "Applied, Dirty=False\r\n");
}

}  // namespace
}  // namespace tests

// The page's start, Apply, a log line and a poll tick, each against its bare system calls.
#include <windows.h>

#include <string>
#include <vector>

#include "bench/bare_calls.h"
#include "bench/pages.h"
#include "bench/ratio.h"
#include "tests/support/known_settings.h"

namespace {

constexpr const char* PROFILE = "Software\\Norvane\\Quillmark\\";
constexpr WPARAM POLL_TIMER = 1;  // the first timer of a window

/// A page that has started and applied.
class Fixture {
public:
    Fixture() {
        page->UserControl_Initialize();
        page->PropertyPage_Apply();
    }
    void tick() const {
        SendMessageW(reinterpret_cast<HWND>(page->window().handle()), WM_TIMER, POLL_TIMER, 0);
    }

private:
    bench::WakefulClock clock_;
    win::FileSystem files_;
    bench::Pages pages_{std::make_shared<bench::IdleAddIn>(), clock_, files_};

public:
    vexa::Application& application = pages_.application;
    const std::unique_ptr<vexa::ctlPPE> page = pages_.make();
};

std::vector<std::string> readAtStart() {
    std::vector<std::string> names{"CurrentProfile", "LogPath"};
    for (const std::string& name : tests::namesAsRead()) names.push_back(name);
    return names;
}

using bench::bareAppend;
using bench::bareRead;
using bench::bareWriteNumber;
using bench::bareWriteText;

/// One question to each folder, where there are knowledgebases.
void bareRule(bool anyKnowledgebase) {
    for (const char* name : {"KBProcessState", "ProjectCount", "VexaBaseDir"}) bareRead(PROFILE, name);
    if (!anyKnowledgebase) return;
    for (const wchar_t* pattern : {L"C:\\kb\\*.dct", L"C:\\kb\\Temp\\*.dct"}) {
        WIN32_FIND_DATAW found;
        const HANDLE search =
            FindFirstFileExW(pattern, FindExInfoBasic, &found, FindExSearchNameMatch, nullptr, 0);
        if (search != INVALID_HANDLE_VALUE) FindClose(search);
    }
}

/// The page's buttons as the poll sets them.
void bareButtons(vexa::ctlPPE& page) {
    for (ui::Button* button : {&page.cmdKnowledgeBase, &page.cmdSettings, &page.cmdAttachments,
                               &page.cmdDispMatches, &page.cmdWizard})
        EnableWindow(reinterpret_cast<HWND>(button->handle()), TRUE);
}

void bareLog(const vexa::Application& application) {
    static const char line[] = "11/28/2026 14:03:09:045\tctlPPE, a line of the log.\r\n";
    static const std::wstring file = application.log.LogPath + L"bare.log";
    bareAppend(application.log.LogPath.c_str(), file.c_str(), line, sizeof line - 1);
}

void bareStart(Fixture& fixture) {
    const HWND page = reinterpret_cast<HWND>(fixture.page->window().handle());
    KillTimer(page, 7);
    SetTimer(page, 7, 250, nullptr);
    static const std::vector<std::string> names = readAtStart();
    for (const std::string& name : names) bareRead(PROFILE, name.c_str());
    bareRule(false);
    EnableWindow(reinterpret_cast<HWND>(fixture.page->cmdWizard.handle()), TRUE);
    bareWriteNumber(PROFILE, "hWndProperties", 1);
    bareRule(false);
    bareButtons(*fixture.page);
    bareLog(fixture.application);
    bareLog(fixture.application);
    KillTimer(page, 7);
}

void bareApply(Fixture& fixture) {
    bareLog(fixture.application);
    bareWriteText(PROFILE, "VexaBaseDir", "");
    bareWriteText(PROFILE, "DefaultProject", "default");
    static const std::vector<std::string> names = tests::namesAsWritten();
    for (std::size_t written = 2; written < names.size(); ++written)
        bareWriteNumber(PROFILE, names[written].c_str(), 1);
}

void addEmptyKnowledgebases(int count) {
    for (int index = 1; index <= count; ++index) {
        const std::string number = std::to_string(index);
        bareWriteText(PROFILE, ("Project" + number).c_str(), "Empty" + number);
    }
    bareWriteNumber(PROFILE, "ProjectCount", static_cast<DWORD>(count));
    bareWriteText(PROFILE, "VexaBaseDir", "C:\\kb");
}

}  // namespace

int main() {
    const bench::OwnHive hive;
    Fixture fixture;
    bool met = true;
    met &=
        bench::measure({"page start without its sleep", 1.25, [&] { fixture.page->UserControl_Initialize(); },
                        [&] { bareStart(fixture); }, 31, 4});
    met &= bench::measure(
        {"Apply", 1.15, [&] { fixture.page->PropertyPage_Apply(); }, [&] { bareApply(fixture); }, 31, 4});
    met &= bench::measure({"a log line", 1.2,
                           [&] { fixture.application.WriteLogLine(L"ctlPPE, a line of the log."); },
                           [&] { bareLog(fixture.application); }, 31, 40});
    met &= bench::measure({"a poll tick with no knowledgebase", 1.3, [&] { fixture.tick(); },
                           [&] {
                               bareRule(false);
                               bareButtons(*fixture.page);
                           },
                           31, 40});
    addEmptyKnowledgebases(1000);
    CreateDirectoryW(L"C:\\kb", nullptr);
    CreateDirectoryW(L"C:\\kb\\Temp", nullptr);
    met &= bench::measure({"a poll tick with 1,000 empty knowledgebases", 1.3, [&] { fixture.tick(); },
                           [&] {
                               bareRule(true);
                               bareButtons(*fixture.page);
                           },
                           31, 40});
    RemoveDirectoryW(L"C:\\kb\\Temp");
    RemoveDirectoryW(L"C:\\kb");
    return met ? 0 : 1;
}

// How much of the user-interface thread the page takes in worlds that are slow: the share of 20 seconds in
// which the thread handles messages, and how much of that lies with the add-in's own IsSearching.
#include <windows.h>

#include <chrono>
#include <cstdio>
#include <functional>
#include <string>

#include "bench/bare_calls.h"
#include "bench/pages.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr double WATCHED = 20;       // seconds
constexpr double MOST_SHARE = 0.1;   // of the thread, by the page's own choice
constexpr double MOST_CREATION = 2;  // seconds beyond the sleep and one rule
constexpr double CONNECTING = 0.1;   // seconds that a start sleeps where the add-in is there
constexpr const wchar_t* FOLDER = L"C:\\slow";

double secondsOf(const std::function<void()>& deed) {
    const auto begin = Clock::now();
    deed();
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

/// Takes its time to say that it does not search.
class SearchingAddIn : public bench::IdleAddIn {
public:
    explicit SearchingAddIn(DWORD delay) : delay_(delay) {}
    bool IsSearching() override {
        spent += secondsOf([this] { Sleep(delay_); });
        return false;
    }
    double spent = 0;

private:
    DWORD delay_;
};

/// A share that answers late.
class SlowFiles : public win::FileSystem {
public:
    explicit SlowFiles(DWORD delay) : delay_(delay) {}
    bool folderExists(const std::wstring& path) override {
        return wait(path), win::FileSystem::folderExists(path);
    }
    bool fileExists(const std::wstring& path) override {
        return wait(path), win::FileSystem::fileExists(path);
    }
    std::vector<std::wstring> filesWithContent(const std::wstring& folder,
                                               const std::wstring& extension) override {
        return wait(folder), win::FileSystem::filesWithContent(folder, extension);
    }
    double spent = 0;

private:
    void wait(const std::wstring& path) {
        if (path.starts_with(FOLDER)) spent += secondsOf([this] { Sleep(delay_); });
    }
    DWORD delay_;
};

/// A window whose thread handles no messages any more.
class HungWindow {
public:
    HungWindow() {
        thread_ = CreateThread(nullptr, 0, run, this, 0, nullptr);
        WaitForSingleObject(made_, INFINITE);
        Sleep(6000);  // from then on the system knows that it hangs
    }
    HungWindow(const HungWindow&) = delete;
    HungWindow& operator=(const HungWindow&) = delete;
    ~HungWindow() {
        SetEvent(over_);
        WaitForSingleObject(thread_, INFINITE);
        CloseHandle(thread_);
        CloseHandle(made_);
        CloseHandle(over_);
    }
    [[nodiscard]] HWND window() const { return window_; }

private:
    static DWORD CALLBACK run(void* self) noexcept {
        auto& hung = *static_cast<HungWindow*>(self);
        hung.window_ =
            CreateWindowExW(0, L"Static", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
        SetEvent(hung.made_);
        WaitForSingleObject(hung.over_, INFINITE);
        return 0;
    }
    HANDLE made_ = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    HANDLE over_ = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    HWND window_ = nullptr;
    HANDLE thread_ = nullptr;
};

struct World {
    std::string name;
    int knowledgebases = 0;
    DWORD searching = 0;          ///< milliseconds of each IsSearching
    DWORD files = 0;              ///< milliseconds of each question to the base folder
    HWND searchWindow = nullptr;  ///< the wizard button is pressed every two seconds where there is one
};

void prepare(const World& world) {
    const char* key = "Software\\Norvane\\Quillmark\\";
    RegDeleteTreeA(HKEY_CURRENT_USER, "Software\\Norvane");
    for (int index = 1; index <= world.knowledgebases; ++index) {
        const std::string name = "Project" + std::to_string(index);
        bench::bareWriteText(key, name.c_str(), name);
    }
    bench::bareWriteNumber(key, "ProjectCount", static_cast<DWORD>(world.knowledgebases));
    bench::bareWriteText(key, "VexaBaseDir", "C:\\slow");
    bench::bareWriteNumber(key, "hWndSearchCtl",
                           static_cast<DWORD>(reinterpret_cast<ULONG_PTR>(world.searchWindow)));
}

/// Seconds in which the thread handles messages, of those that are watched.
double watch(const std::function<void()>& everyTwoSeconds) {
    double blocked = 0;
    const auto end = Clock::now() + std::chrono::duration<double>(WATCHED);
    auto next = Clock::now() + std::chrono::seconds(2);
    while (Clock::now() < end) {
        MSG message;
        MsgWaitForMultipleObjectsEx(0, nullptr, 10, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
        if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            blocked += secondsOf([&] { DispatchMessageW(&message); });
        if (Clock::now() < next) continue;
        blocked += secondsOf(everyTwoSeconds);
        next += std::chrono::seconds(2);
    }
    return blocked;
}

bool measure(const World& world) {
    prepare(world);
    const auto addIn = std::make_shared<SearchingAddIn>(world.searching);
    win::Clock clock;
    SlowFiles files(world.files);
    bench::Pages pages(addIn, clock, files);
    const auto page = pages.make();
    const double creation = secondsOf([&] { page->UserControl_Initialize(); });
    const double rules = files.spent;
    const double blocked = watch([&] {
        if (world.searchWindow != nullptr) page->cmdWizard.onClick();
    });
    page->UserControl_Terminate();
    const double own = (blocked - addIn->spent) / WATCHED;
    const double extra = creation - CONNECTING - rules;
    const bool met = own <= MOST_SHARE && extra <= MOST_CREATION;
    std::printf(
        "%-44s %6.2f %% by the page itself, %6.2f %% in IsSearching; creation %.2f s, of which %.2f s asking "
        "the base folder   %s\n",
        world.name.c_str(), own * 100, addIn->spent / WATCHED * 100, creation, rules, met ? "met" : "MISSED");
    std::fflush(stdout);
    return met;
}

}  // namespace

int main() {
    const bench::OwnHive hive;
    CreateDirectoryW(FOLDER, nullptr);
    CreateDirectoryW((std::wstring(FOLDER) + L"\\Temp").c_str(), nullptr);
    std::printf(
        "Share of the user-interface thread over %.0f s (goal: at most %.0f %% by the page itself; creation "
        "at "
        "most %.0f s beyond the sleep and one rule)\n",
        WATCHED, MOST_SHARE * 100, MOST_CREATION);
    bool met = measure({"friendly world"});
    met &= measure({"IsSearching takes 300 ms", 0, 300});
    met &= measure({"base folder 2 s, 3 knowledgebases", 3, 0, 2000});
    met &= measure({"base folder 2 s, 300 knowledgebases", 300, 0, 2000});
    met &= measure({"1,000 empty knowledgebases, local disk", 1000});
    {
        const HungWindow hung;
        met &= measure({"hung search window, wizard pressed", 0, 0, 0, hung.window()});
    }
    RemoveDirectoryW((std::wstring(FOLDER) + L"\\Temp").c_str());
    RemoveDirectoryW(FOLDER);
    return met ? 0 : 1;
}

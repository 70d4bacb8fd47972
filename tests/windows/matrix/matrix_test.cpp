// Every call of the control to others × everything that a host may do inside it × everything that may be open
// meanwhile: no crash, nothing left, and what the host was told is true.
//   matrix_tests.exe            each call and reaction with nothing open and with a dialog open, as they come
//   matrix_tests.exe --whole    each of them in every situation
//   matrix_tests.exe --only TEXT [--whole]    those that are named so, as "Close inside Advise, with a
//   question"
#include <windows.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <string_view>
#include <thread>

#include "tests/windows/matrix/tables.h"

namespace tests {
namespace {

// Milliseconds for a call to come.
constexpr ULONGLONG CERTAIN = 10000;
constexpr ULONGLONG POSSIBLE = 300;

bool whole = false;
const char* wanted = "";
int combinations = 0;

/// What runs now, for whoever has to say what it died of.
class Combination {
public:
    /// False where it is not among those that are wanted.
    static bool begin(const Situation& situation, const Call& call, const Reaction& reaction) {
        std::snprintf(name, sizeof name, "%s inside %s, with %s", reaction.name, call.name, situation.name);
        if (std::strstr(name, wanted) == nullptr) return false;
        began = GetTickCount64();
        return true;
    }
    static void watch() {
        SetUnhandledExceptionFilter(crashed);
        std::signal(SIGABRT, [](int) { die("ended"); });
        std::thread([] {
            for (;; Sleep(500))
                if (began != 0 && GetTickCount64() - began > PATIENCE) die("hangs");
        }).detach();
    }
    static void end() { began = 0; }
    static inline char name[200];

private:
    static constexpr ULONGLONG PATIENCE = 60000;  // milliseconds
    static inline volatile ULONGLONG began = 0;
    [[noreturn]] static void die(const char* how) {
        std::printf("%s: %s\n", how, name);
        EnumWindows(tellOfWindow, 0);
        std::fflush(stdout);
        TerminateProcess(GetCurrentProcess(), 3);
        for (;;) Sleep(INFINITE);
    }
    static BOOL CALLBACK tellOfWindow(HWND window, LPARAM) noexcept {
        DWORD process = 0;
        GetWindowThreadProcessId(window, &process);
        wchar_t text[100];
        if (process != GetCurrentProcessId() || !IsWindowVisible(window)) return TRUE;
        // The text as the system knows it: the window's thread may answer nothing any more.
        InternalGetWindowText(window, text, 100);
        std::printf("  %s window \"%ls\"\n", IsWindowEnabled(window) ? "enabled" : "disabled", text);
        return TRUE;
    }
    static LONG WINAPI crashed(EXCEPTION_POINTERS* exception) {
        std::printf("exception %08lx at %p\n", exception->ExceptionRecord->ExceptionCode,
                    exception->ExceptionRecord->ExceptionAddress);
        die("crashes");
    }
};

class Matrix : public HostileWorld, public testing::WithParamInterface<Situation> {
protected:
    /// True where the control made the call.
    bool run(const Situation& situation, const Call& call, const Reaction& reaction) {
        const testing::ScopedTrace trace(__FILE__, __LINE__, Combination::name);
        prepare();
        if (call.ready) call.ready(*this);
        play(situation, [&] {
            arm(call.name, [&] { reaction.react(*this); });
            if (pageWindow() != nullptr) call.provoke(*this);
        });
        const bool reacted = hasReacted(call.name);
        verifyAtRest();
        if (!IsWindow(hostWindow()) || !isThere()) finish();
        Combination::end();
        return reacted;
    }

    /// Where the situation stands among all.
    static Place place() {
        const auto found =
            std::ranges::find(situations(), std::string_view(GetParam().name), &Situation::name);
        return static_cast<Place>(found - situations().begin());
    }

    /// Counts how often the control made the call. Where it does not come with the first reaction it comes
    /// with none.
    void runAll(const Call& call) {
        const auto names = [](const std::vector<Place>& places) {
            return std::ranges::find(places, place()) != places.end();
        };
        const bool mustCome = names(call.where);
        if (names(call.prevents) || (!mustCome && !whole)) return;
        for (const Reaction& reaction : reactions()) {
            if (!Combination::begin(GetParam(), call, reaction)) continue;
            timeToCome = mustCome ? CERTAIN : POSSIBLE;
            const bool came = run(GetParam(), call, reaction);
            EXPECT_TRUE(came || !mustCome) << Combination::name << ": the call never came";
            combinations += came;
            if (!came && !mustCome) break;
        }
    }
};

TEST_P(Matrix, EveryReactionInsideEveryCallDoesNoHarm) {
    for (const Call& call : calls()) runAll(call);
    for (const std::string& call : heard())
        EXPECT_TRUE(std::ranges::any_of(calls(), [&](const Call& each) { return each.name == call; }))
            << call << " is missing in the table";
}

INSTANTIATE_TEST_SUITE_P(With, Matrix, testing::ValuesIn(situations()), situationName);

}  // namespace
}  // namespace tests

int main(int count, char** arguments) {
    testing::InitGoogleTest(&count, arguments);
    for (int each = 1; each < count; ++each) {
        if (std::strcmp(arguments[each], "--whole") == 0) tests::whole = true;
        if (std::strcmp(arguments[each], "--only") == 0 && ++each < count) tests::wanted = arguments[each];
    }
    tests::Combination::watch();
    const int code = RUN_ALL_TESTS();
    std::printf("%d combinations of %zu calls, %zu reactions and %zu situations\n", tests::combinations,
                tests::calls().size(), tests::reactions().size(), tests::situations().size());
    return code;
}

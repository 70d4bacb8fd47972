// Every call of the control to others × everything that a host may do inside it × everything that may be open
// meanwhile: no crash, nothing left, and what the host was told is true.
//   matrix_tests.exe            each call and reaction with nothing open, and with one of the dialogs open
//   matrix_tests.exe --whole    each of them in every situation
#include <windows.h>

#include <csignal>
#include <cstdio>
#include <cstring>
#include <thread>

#include "tests/windows/matrix/tables.h"

namespace tests {
namespace {

bool whole = false;

/// What runs now, for whoever has to say what it died of.
class Combination {
public:
    static void begin(const Situation& situation, const Call& call, const Reaction& reaction) {
        std::snprintf(name, sizeof name, "%s inside %s, with %s", reaction.name, call.name, situation.name);
        began = GetTickCount64();
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
        std::fflush(stdout);
        TerminateProcess(GetCurrentProcess(), 3);
        for (;;) Sleep(INFINITE);
    }
    static LONG WINAPI crashed(EXCEPTION_POINTERS* exception) {
        std::printf("exception %08lx at %p\n", exception->ExceptionRecord->ExceptionCode,
                    exception->ExceptionRecord->ExceptionAddress);
        die("crashes");
    }
};

class Matrix : public HostileWorld {
protected:
    /// True where the control made the call.
    bool run(const Situation& situation, const Call& call, const Reaction& reaction) {
        Combination::begin(situation, call, reaction);
        const testing::ScopedTrace trace(__FILE__, __LINE__, Combination::name);
        prepare();
        if (call.ready) call.ready(*this);
        play(situation, [&] {
            arm(call.name, [&] { reaction.react(*this); });
            if (pageWindow() != nullptr) call.provoke(*this);
        });
        const bool reacted = hasReacted();
        verifyAtRest();
        if (!IsWindow(hostWindow()) || !isThere()) finish();
        Combination::end();
        return reacted;
    }

    /// The situations that a call is tried in.
    static std::vector<Situation> chosenFor(const Call& call) {
        return whole ? situations() : std::vector<Situation>{situations()[0], situations()[call.dialog]};
    }
};

TEST_F(Matrix, EveryReactionInsideEveryCallDoesNoHarm) {
    int combinations = 0;
    for (const Call& call : calls()) {
        int ofCall = 0;
        for (const Reaction& reaction : reactions())
            for (const Situation& situation : chosenFor(call)) ofCall += run(situation, call, reaction);
        EXPECT_GT(ofCall, 0) << call.name << " never came";
        combinations += ofCall;
    }
    std::printf("%d combinations of %zu calls, %zu reactions and %zu situations\n", combinations,
                calls().size(), reactions().size(), whole ? situations().size() : 2);
}

}  // namespace
}  // namespace tests

int main(int count, char** arguments) {
    testing::InitGoogleTest(&count, arguments);
    tests::whole = count > 1 && std::strcmp(arguments[1], "--whole") == 0;
    tests::Combination::watch();
    return RUN_ALL_TESTS();
}

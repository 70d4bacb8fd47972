// The report composer: opening it against the bare creation of its template, the hover drawing, a large text.
#include <windows.h>

#include <richedit.h>

#include <cstdint>
#include <cstdio>
#include <string>

#include "bench/bare_calls.h"
#include "bench/dialogs.h"
#include "bench/ratio.h"
#include "report/flat_combo.h"
#include "report/frmSendBugReport.h"
#include "report/frmSendBugReport.ids.h"

namespace {

using vexa::frmSendBugReport;

constexpr double TICK = 0.150;          // seconds between two hover ticks
constexpr double MOST_SHARE = 0.005;    // of one core
constexpr std::size_t LARGE = 1 << 20;  // characters

/// Seconds of processor time that this process has used.
double processorTime() {
    FILETIME created, ended, kernel, user;
    GetProcessTimes(GetCurrentProcess(), &created, &ended, &kernel, &user);
    const auto ticks = [](const FILETIME& time) {
        return static_cast<double>(std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime);
    };
    return (ticks(kernel) + ticks(user)) * 1e-7;
}

/// What a tick does for both combos.
void hover(frmSendBugReport& form, const ui::Screen& screen) {
    for (ui::ComboBox* combo : {&form.cboFontname, &form.cboFontsize}) {
        const auto state = vexa::hoverState(*combo);
        const ui::Rect bounds = combo->bounds();
        combo->draw(vexa::flatCombo(state.value(), {bounds.width, bounds.height}, screen.scrollThumbWidth()));
    }
}

/// Ticks with the pointer elsewhere, as a share of one core at the timer's rate.
bool measureHover(frmSendBugReport& form, const ui::Screen& screen) {
    constexpr int TICKS = 2000;
    form.rtfBody.setFocus();
    SetCursorPos(0, 0);
    const double before = processorTime();
    for (int tick = 0; tick < TICKS; ++tick) hover(form, screen);
    const double seconds = (processorTime() - before) / TICKS;
    const double share = seconds / TICK;
    const bool met = share <= MOST_SHARE;
    std::printf(
        "hover tick, pointer outside: %.1f us of processor time, %.3f %% of one core (goal 0.5 %%) %s\n",
        seconds * 1e6, share * 100, met ? "met" : "MISSED");
    return met;
}

DWORD CALLBACK countBytes(DWORD_PTR total, LPBYTE, LONG count, LONG* taken) {
    *reinterpret_cast<std::size_t*>(total) += static_cast<std::size_t>(count);
    *taken = count;
    return 0;
}

bool measureLargeText(frmSendBugReport& form) {
    std::wstring text;
    while (text.size() < LARGE) text += L"It stopped while it was looking for mails of last week.\r\n";
    form.rtfBody.setText(text);
    const auto editor = reinterpret_cast<HWND>(form.rtfBody.handle());
    std::size_t wanted = 0;
    return bench::measure({"1 MB as RTF", 1.25, [&] { wanted += form.rtfBody.rtf().size(); },
                           [&] {
                               EDITSTREAM stream{reinterpret_cast<DWORD_PTR>(&wanted), 0, countBytes};
                               SendMessageW(editor, EM_STREAMOUT, (CP_UTF8 << 16) | SF_USECODEPAGE | SF_RTF,
                                            reinterpret_cast<LPARAM>(&stream));
                           },
                           11, 1});
}

}  // namespace

int main() {
    const bench::OwnHive hive;
    bench::Dialogs dialogs;
    bool met = true;
    // The first composer loads the editor's library, which the bare template needs, too.
    dialogs.open<frmSendBugReport>([&](frmSendBugReport& form) {
        met &= measureHover(form, dialogs.screen);
        met &= measureLargeText(form);
    });
    met &= bench::measure({"opening the composer", 1.5,
                           [&] { dialogs.open<frmSendBugReport>([](frmSendBugReport&) {}); },
                           [&] { dialogs.openBare(IDD_frmSendBugReport); }, 31, 2});
    return met ? 0 : 1;
}

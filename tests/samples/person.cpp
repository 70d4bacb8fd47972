#include "tests/samples/person.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include <utility>

#include "tests/support/text.h"
#include "tests/windows/stage/window_queries.h"

namespace tests {
namespace {

constexpr ULONGLONG PATIENCE = 20000;  // milliseconds for one step

/// A control of the window, or of a child of it.
HWND control(const std::wstring& window, int identifier) {
    const HWND top = Person::find(window);
    return top == nullptr ? nullptr : GetDlgItem(top, identifier);
}

}  // namespace

HWND Person::find(const std::wstring& title) {
    for (const HWND each : threadWindows())
        if (IsWindowVisible(each) && windowTextOf(each) == title) return each;
    return nullptr;
}

void Person::plan(const std::string& what, std::function<bool()> ready, std::function<void()> act) {
    steps_.push_back({what, std::move(ready), std::move(act)});
}

void Person::next() {
    if (acting_) return;
    if (gaveUp_) return closeFrontWindow();
    if (steps_.empty()) return;
    if (!steps_.front().ready()) return giveUpInTime();
    since_ = GetTickCount64();
    const Step step = std::move(steps_.front());
    steps_.pop_front();
    acting_ = true;
    step.act();
    acting_ = false;
}

void Person::giveUpInTime() {
    if (GetTickCount64() - since_ < PATIENCE) return;
    ADD_FAILURE() << "in vain: " << steps_.front().what;
    steps_.clear();
    gaveUp_ = true;
}

/// What is open has loops of its own, in which the test would wait for ever.
void Person::closeFrontWindow() {
    const HWND front = GetActiveWindow();
    if (front != nullptr && GetWindow(front, GW_OWNER) != nullptr) PostMessageW(front, WM_CLOSE, 0, 0);
}

void Person::doAll() {
    since_ = GetTickCount64();
    while (!steps_.empty()) {
        MSG message;
        GetMessageW(&message, nullptr, 0, 0);
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    gaveUp_ = false;
}

void Person::press(const std::wstring& window, int identifier) {
    plan(
        "press " + std::to_string(identifier) + " in " + narrow(window),
        [=] { return IsWindowEnabled(control(window, identifier)) != FALSE; },
        [=] { PostMessageW(control(window, identifier), BM_CLICK, 0, 0); });
}

void Person::answer(const std::wstring& window, int button) {
    plan(
        "answer " + narrow(window), [=] { return control(window, button) != nullptr; },
        [=] { PostMessageW(find(window), WM_COMMAND, static_cast<WPARAM>(button), 0); });
    waitGone(window);
}

void Person::name(const std::wstring& window, int list, const std::wstring& text) {
    const auto editor = [=] {
        const HWND grid = control(window, list);
        return reinterpret_cast<HWND>(SendMessageW(grid, LVM_GETEDITCONTROL, 0, 0));
    };
    plan(
        "name " + narrow(text), [=] { return editor() != nullptr; },
        [=] {
            SetWindowTextW(editor(), text.c_str());
            PostMessageW(editor(), WM_KEYDOWN, VK_RETURN, 0);
        });
}

void Person::waitEnabled(const std::wstring& window, int identifier) {
    plan(
        "wait for " + std::to_string(identifier) + " in " + narrow(window),
        [=] { return IsWindowEnabled(control(window, identifier)) != FALSE; }, [] {});
}

void Person::waitGone(const std::wstring& window) {
    plan(
        "the end of " + narrow(window), [=] { return find(window) == nullptr; }, [] {});
}

}  // namespace tests

#include "workbench/world/world.h"

#include <objbase.h>

#include <thread>

#include "workbench/world/slow_files.h"

namespace workbench {
namespace {

constexpr DWORD PUMPING_TIME = 100;  // milliseconds

void pump() {
    const ULONGLONG end = GetTickCount64() + PUMPING_TIME;
    MSG message;
    while (GetTickCount64() < end) {
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
    }
}

}  // namespace

World::~World() { setBaseFolderTime(0); }

void World::apply() {
    setBaseFolderTime(weather.baseFolderTime);
    if (!weather.hungSearchWindow)
        hungWindow_.reset();
    else if (!hungWindow_)
        hungWindow_ = std::make_unique<HungWindow>();
}

void World::beforeAnswer(bool isSearchingQuestion) const {
    if (isSearchingQuestion) Sleep(weather.searchingTime);
    if (weather.pumps) pump();
}

void World::raise(std::function<void()> raise) {
    if (!weather.eventFromThread) return raise();
    std::thread([raise = std::move(raise)] {
        const HRESULT initialized = CoInitializeEx(nullptr, COINIT_MULTITHREADED);
        raise();
        if (SUCCEEDED(initialized)) CoUninitialize();
    }).detach();
}

}  // namespace workbench

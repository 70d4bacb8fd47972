#include <initguid.h>

#include "windows/controls/annotations.h"

namespace win {
namespace {

constexpr LONG UI_AUTOMATION_ROOT = -25;  // what UI Automation asks a window for

// UI Automation's property of a text that changes by itself, and its value for one that interrupts nobody.
constexpr MSAAPROPID LIVE_SETTING = {
    0xC12BCD8E, 0x2A8E, 0x4950, {0x8A, 0xE7, 0x36, 0x25, 0x11, 0x1D, 0x58, 0xEB}};
constexpr LONG LIVE_POLITE = 1;

}  // namespace

bool asksForObject(UINT message, LPARAM lParam) noexcept {
    const auto object = static_cast<LONG>(lParam);
    return message == WM_GETOBJECT && (object == OBJID_CLIENT || object == UI_AUTOMATION_ROOT);
}

Annotations::~Annotations() {
    if (service_ != nullptr) service_->Release();
}

bool Annotations::connected() noexcept {
    if (service_ == nullptr)
        CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices,
                         reinterpret_cast<void**>(&service_));
    return service_ != nullptr;
}

bool Annotations::tell(HWND control, const Words& words) noexcept {
    if (!connected()) return false;
    const auto set = [&](const MSAAPROPID& property, const std::wstring& text) {
        return text.empty() || SUCCEEDED(service_->SetHwndPropStr(control, static_cast<DWORD>(OBJID_CLIENT),
                                                                  CHILDID_SELF, property, text.c_str()));
    };
    VARIANT polite{};
    polite.vt = VT_I4;
    polite.lVal = LIVE_POLITE;
    if (words.live)
        service_->SetHwndProp(control, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, LIVE_SETTING, polite);
    const bool described = set(PROPID_ACC_DESCRIPTION, words.description);
    return set(PROPID_ACC_VALUE, words.value) && described;
}

void Annotations::forget(HWND control) noexcept {
    if (service_ == nullptr) return;
    const MSAAPROPID told[] = {PROPID_ACC_DESCRIPTION, PROPID_ACC_VALUE, LIVE_SETTING};
    service_->ClearHwndProps(control, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, told, 3);
}

void Annotations::nameParts(HWND control, const std::vector<std::wstring>& names) noexcept {
    if (!connected()) return;
    DWORD part = CHILDID_SELF;
    for (const std::wstring& name : names)
        service_->SetHwndPropStr(control, static_cast<DWORD>(OBJID_CLIENT), ++part, PROPID_ACC_NAME,
                                 name.c_str());
}

void Annotations::forgetParts(HWND control, std::size_t count) noexcept {
    if (service_ == nullptr) return;
    for (DWORD part = 1; part <= count; ++part)
        service_->ClearHwndProps(control, static_cast<DWORD>(OBJID_CLIENT), part, &PROPID_ACC_NAME, 1);
}

}  // namespace win

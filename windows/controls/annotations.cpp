#include <initguid.h>

#include "windows/controls/annotations.h"

namespace win {
namespace {

constexpr LONG UI_AUTOMATION_ROOT = -25;  // what UI Automation asks a window for

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
    const bool described = set(PROPID_ACC_DESCRIPTION, words.description);
    return set(PROPID_ACC_VALUE, words.value) && described;
}

void Annotations::forget(HWND control) noexcept {
    if (service_ == nullptr) return;
    const MSAAPROPID told[] = {PROPID_ACC_DESCRIPTION, PROPID_ACC_VALUE};
    service_->ClearHwndProps(control, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, told, 2);
}

}  // namespace win

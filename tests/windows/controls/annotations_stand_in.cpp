#include <initguid.h>

#include "tests/windows/controls/annotations_stand_in.h"

#include <algorithm>
#include <iterator>

#include "tests/windows/stage/variants.h"
#include "tests/windows/stage/window_queries.h"

namespace tests {
namespace {

std::wstring withoutMarks(std::wstring label) {
    std::erase(label, L'&');
    while (!label.empty() && (label.back() == L':' || label.back() == L' ')) label.pop_back();
    return label;
}

/// Empty where the window takes no name from a text before it.
std::wstring labelOf(HWND window) {
    constexpr const wchar_t* LABELLED[] = {L"Edit", L"ComboBox", L"ListBox", L"SysListView32",
                                           L"RichEdit50W"};
    if (std::ranges::find(LABELLED, classOf(window)) == std::end(LABELLED)) return {};
    const HWND before = GetWindow(window, GW_HWNDPREV);
    if (classOf(before) != L"Static") return {};
    return withoutMarks(windowTextOf(before));
}

std::wstring stateText(LONG state) {
    std::wstring text;
    const auto add = [&](LONG bit, const wchar_t* word) {
        if ((state & bit) != 0) text += (text.empty() ? L"" : L" ") + std::wstring(word);
    };
    add(STATE_SYSTEM_UNAVAILABLE, L"unavailable");
    add(STATE_SYSTEM_INVISIBLE, L"invisible");
    add(STATE_SYSTEM_FOCUSABLE, L"focusable");
    add(STATE_SYSTEM_FOCUSED, L"focused");
    return text;
}

}  // namespace

AnnotationsStandIn::AnnotationsStandIn() {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    CoRegisterClassObject(CLSID_AccPropServices, static_cast<IClassFactory*>(this), CLSCTX_INPROC_SERVER,
                          REGCLS_MULTIPLEUSE, &registration_);
}

AnnotationsStandIn::~AnnotationsStandIn() {
    CoRevokeClassObject(registration_);
    CoUninitialize();
}

STDMETHODIMP AnnotationsStandIn::QueryInterface(REFIID identifier, void** object) {
    *object = nullptr;
    if (identifier == IID_IAccPropServices)
        *object = static_cast<IAccPropServices*>(this);
    else if (identifier == IID_IClassFactory || identifier == IID_IUnknown)
        *object = static_cast<IClassFactory*>(this);
    return *object != nullptr ? S_OK : E_NOINTERFACE;
}

STDMETHODIMP AnnotationsStandIn::SetHwndPropStr(HWND window, DWORD object, DWORD child, MSAAPROPID property,
                                                LPCWSTR text) {
    if (!IsWindow(window) || object != static_cast<DWORD>(OBJID_CLIENT)) return E_INVALIDARG;
    if (child != CHILDID_SELF) {
        if (property != PROPID_ACC_NAME) return E_INVALIDARG;
        auto& parts = words_[window].parts;
        parts.resize(std::max<std::size_t>(parts.size(), child));
        parts[child - 1] = text;
        return S_OK;
    }
    if (property == PROPID_ACC_DESCRIPTION) words_[window].description = text;
    if (property == PROPID_ACC_VALUE) words_[window].value = text;
    return S_OK;
}

STDMETHODIMP AnnotationsStandIn::SetHwndProp(HWND window, DWORD, DWORD, MSAAPROPID, VARIANT value) {
    words_[window].live = value.vt == VT_I4 && value.lVal == 1;
    return S_OK;
}

STDMETHODIMP AnnotationsStandIn::ClearHwndProps(HWND window, DWORD, DWORD, const MSAAPROPID*, int) {
    return words_.erase(window) != 0 ? S_OK : S_FALSE;
}

AnnotationsStandIn::Words AnnotationsStandIn::wordsFor(HWND window) const {
    const auto found = words_.find(window);
    return found == words_.end() ? Words{} : found->second;
}

std::size_t AnnotationsStandIn::forgotten() const {
    return static_cast<std::size_t>(
        std::ranges::count_if(words_, [](const auto& entry) { return !IsWindow(entry.first); }));
}

Told askReader(HWND window, const AnnotationsStandIn& annotations) {
    Told told;
    com::Ptr<IAccessible> object;
    if (FAILED(AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                                          object.outVoid())))
        return told;
    const VARIANT self = integer(CHILDID_SELF);
    VARIANT number{};
    com::Bstr text;
    wchar_t role[80] = L"";
    if (object->get_accRole(self, &number) == S_OK) GetRoleTextW(static_cast<DWORD>(number.lVal), role, 80);
    told.role = role;
    if (object->get_accName(self, text.out()) == S_OK) told.name = withoutMarks(com::toText(text.get()));
    if (object->get_accDescription(self, text.out()) == S_OK) told.description = com::toText(text.get());
    if (object->get_accValue(self, text.out()) == S_OK) told.value = com::toText(text.get());
    if (object->get_accState(self, &number) == S_OK) told.state = stateText(number.lVal);
    const auto words = annotations.wordsFor(window);
    if (!words.description.empty()) told.description = words.description;
    if (!words.value.empty()) told.value = words.value;
    if (const std::wstring label = labelOf(window); !label.empty()) told.name = label;
    return told;
}

}  // namespace tests

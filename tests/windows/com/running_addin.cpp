#include "tests/windows/com/running_addin.h"

#include <gtest/gtest.h>
#include <olectl.h>

#include "tests/support/shortage.h"
#include "windows/com/snapshot_enumerator.h"

namespace tests {
namespace {

constexpr wchar_t PROG_ID_KEY[] = L"Software\\Classes\\Tarnwell.OlAddIn.1\\CLSID";

}  // namespace

RunningAddIn::RunningAddIn() {
    wchar_t classId[39];  // the text of a GUID and its end, no more: COM reads no longer value
    StringFromGUID2(__uuidof(OlAddIn), classId, 39);
    RegSetKeyValueW(HKEY_LOCAL_MACHINE, PROG_ID_KEY, nullptr, REG_SZ, classId, sizeof classId);
    EXPECT_EQ(RegisterActiveObject(static_cast<IOlAddIn*>(this), __uuidof(OlAddIn), ACTIVEOBJECT_STRONG,
                                   &registration_),
              S_OK);
}

RunningAddIn::~RunningAddIn() {
    RevokeActiveObject(registration_, nullptr);
    EXPECT_EQ(references_, 1) << "the control keeps references to the add-in";
}

STDMETHODIMP RunningAddIn::QueryInterface(REFIID iid, void** out) {
    *out = nullptr;
    if (iid == IID_IUnknown || iid == IID_IDispatch || iid == __uuidof(IOlAddIn))
        *out = static_cast<IOlAddIn*>(this);
    else if (iid == IID_IConnectionPointContainer)
        *out = static_cast<IConnectionPointContainer*>(this);
    else if (iid == IID_IConnectionPoint)
        *out = static_cast<IConnectionPoint*>(this);
    if (*out == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

HRESULT RunningAddIn::called(const char* call) {
    const Plenty plenty;
    if (during) during(call);
    return S_OK;
}

HRESULT RunningAddIn::no(const char* call, VARIANT_BOOL* result) {
    *result = VARIANT_FALSE;
    return called(call);
}

// --- The event --------------------------------------------------------------------------------------------

HRESULT RunningAddIn::raiseProcessFinished(const std::wstring& project, bool keepList) const {
    const com::Bstr name(project);
    VARIANTARG arguments[2]{};
    arguments[0].vt = VT_BOOL;
    arguments[0].boolVal = keepList ? VARIANT_TRUE : VARIANT_FALSE;
    arguments[1].vt = VT_BSTR;
    arguments[1].bstrVal = name.get();
    std::vector<com::Ptr<IDispatch>> all = kept_;
    for (const auto& [cookie, sink] : connected_) all.push_back(sink);
    HRESULT answer = S_FALSE;
    for (const auto& sink : all) {
        DISPPARAMS parameters{arguments, nullptr, 2, 0};
        answer = sink->Invoke(1, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr,
                              nullptr, nullptr);
    }
    return answer;
}

STDMETHODIMP RunningAddIn::EnumConnectionPoints(IEnumConnectionPoints** points) {
    *points = new com::SnapshotEnumerator<IEnumConnectionPoints, IConnectionPoint*>({this});
    return called("EnumConnectionPoints");
}

STDMETHODIMP RunningAddIn::FindConnectionPoint(REFIID, IConnectionPoint** point) {
    *point = com::Ptr<IConnectionPoint>(this).detach();
    return called("FindConnectionPoint");
}

STDMETHODIMP RunningAddIn::GetConnectionInterface(IID* iid) {
    *iid = __uuidof(_IOlAddInEvents);
    return called("GetConnectionInterface");
}

STDMETHODIMP RunningAddIn::GetConnectionPointContainer(IConnectionPointContainer** container) {
    *container = com::Ptr<IConnectionPointContainer>(this).detach();
    return S_OK;
}

STDMETHODIMP RunningAddIn::Advise(IUnknown* sink, DWORD* cookie) {
    com::Ptr<IDispatch> events;
    if (FAILED(sink->QueryInterface(__uuidof(_IOlAddInEvents), events.outVoid())))
        return CONNECT_E_CANNOTCONNECT;
    *cookie = ++lastCookie_;
    connected_.emplace(*cookie, std::move(events));
    return called("Advise");
}

STDMETHODIMP RunningAddIn::Unadvise(DWORD cookie) {
    const auto found = connected_.find(cookie);
    if (found == connected_.end()) return CONNECT_E_NOCONNECTION;
    if (keepsSinks) kept_.push_back(found->second);
    connected_.erase(found);
    return called("Unadvise");
}

}  // namespace tests

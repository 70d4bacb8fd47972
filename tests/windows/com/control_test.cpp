#include "tests/windows/com/control_test.h"

#include <stdexcept>

#include "interfaces/addin_base.h"
#include "tests/windows/stage/messages.h"
#include "windows/platform/module.h"

namespace tests {
namespace {

constexpr wchar_t PROG_ID_KEY[] = L"Software\\Classes\\Tarnwell.OlAddIn.1\\CLSID";

/// Does nothing, and has nothing to do.
class IdleAddIn : public com::AddInBase {
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** out) override {
        const bool known = iid == IID_IUnknown || iid == IID_IDispatch || iid == __uuidof(IOlAddIn);
        *out = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP IsProcessing(VARIANT_BOOL* result) override { return no(result); }
    STDMETHODIMP IsAutoUpdateRunning(VARIANT_BOOL* result) override { return no(result); }
    STDMETHODIMP IsSearching(VARIANT_BOOL* result) override { return no(result); }
    STDMETHODIMP SetLogging(VARIANT_BOOL) override { return S_OK; }

private:
    static HRESULT no(VARIANT_BOOL* result) {
        *result = VARIANT_FALSE;
        return S_OK;
    }
    HRESULT reserved(int) override { return E_NOTIMPL; }
};

IdleAddIn idleAddIn;

}  // namespace

// --- Library ----------------------------------------------------------------------------------------------

std::wstring Library::path() {
    return win::folderOf(win::folderOf(win::modulePath(nullptr))) + L"\\VexaPPE.ocx";
}

Library::Library() : module_(LoadLibraryW(path().c_str())) {
    if (module_ == nullptr) throw std::runtime_error("VexaPPE.ocx cannot be loaded");
}

template <class Function>
Function Library::find(const char* name) const {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
}

HRESULT Library::getClassObject(REFCLSID classId, REFIID iid, void** out) const {
    return find<HRESULT(WINAPI*)(REFCLSID, REFIID, void**)>("DllGetClassObject")(classId, iid, out);
}

HRESULT Library::canUnloadNow() const { return find<HRESULT(WINAPI*)()>("DllCanUnloadNow")(); }

HRESULT Library::registerServer() const { return find<HRESULT(WINAPI*)()>("DllRegisterServer")(); }

HRESULT Library::unregisterServer() const { return find<HRESULT(WINAPI*)()>("DllUnregisterServer")(); }

HRESULT Library::install(BOOL install, const wchar_t* commandLine) const {
    return find<HRESULT(WINAPI*)(BOOL, LPCWSTR)>("DllInstall")(install, commandLine);
}

com::Ptr<IUnknown> Library::create() const {
    com::Ptr<IClassFactory> factory;
    EXPECT_EQ(getClassObject(__uuidof(::ctlPPE), IID_IClassFactory, factory.outVoid()), S_OK);
    com::Ptr<IUnknown> control;
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, control.outVoid()), S_OK);
    return control;
}

// --- Add-in -----------------------------------------------------------------------------------------------

RunningAddIn::RunningAddIn() {
    wchar_t classId[39];  // the text of a GUID and its end, no more: COM reads no longer value
    StringFromGUID2(__uuidof(OlAddIn), classId, 39);
    RegSetKeyValueW(HKEY_LOCAL_MACHINE, PROG_ID_KEY, nullptr, REG_SZ, classId, sizeof classId);
    EXPECT_EQ(RegisterActiveObject(&idleAddIn, __uuidof(OlAddIn), ACTIVEOBJECT_STRONG, &registration_), S_OK);
}

RunningAddIn::~RunningAddIn() { RevokeActiveObject(registration_, nullptr); }

// --- Fixture ----------------------------------------------------------------------------------------------

HWND createContainerWindow() {
    return CreateWindowExW(0, L"#32770", L"Container", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 50, 50, 700, 600,
                           nullptr, nullptr, nullptr, nullptr);
}

ControlTest::ControlTest() = default;

ControlTest::~ControlTest() {
    container.acceptAnything();
    if (control) end();
    deliverMessages();
    EXPECT_EQ(library.canUnloadNow(), S_OK) << "something of the control is left";
    if (IsWindow(window)) DestroyWindow(window);
}

void ControlTest::create() { control = library.create(); }

void ControlTest::createWithSite() {
    create();
    ASSERT_EQ(as<IOleObject>()->SetClientSite(container.site()), S_OK);
}

void ControlTest::createActive() {
    createWithSite();
    container.expect({"CanInPlaceActivate", "OnInPlaceActivateEx", "GetWindow", "GetWindowContext"});
    ASSERT_EQ(doVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
    container.verify();
}

void ControlTest::end() {
    as<IOleObject>()->Close(OLECLOSE_NOSAVE);
    as<IOleObject>()->SetClientSite(nullptr);
    EXPECT_EQ(control.detach()->Release(), 0u) << "somebody keeps the control";
}

HRESULT ControlTest::doVerb(LONG verb) {
    return as<IOleObject>()->DoVerb(verb, nullptr, container.site(), 0, window, &container.position);
}

HWND ControlTest::frame() const {
    HWND found = nullptr;
    as<IOleInPlaceObject>()->GetWindow(&found);
    return found;
}

HWND ControlTest::page() const { return ::GetWindow(frame(), GW_CHILD); }

}  // namespace tests

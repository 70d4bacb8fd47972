#include "tests/windows/com/control_test.h"

#include <stdexcept>
#include <utility>

#include "tests/windows/stage/messages.h"
#include "windows/platform/module.h"

namespace tests {
// --- Library ----------------------------------------------------------------------------------------------

std::wstring Library::path() {
    return win::folderOf(win::folderOf(win::modulePath(nullptr))) + L"\\VexaPPE.ocx";
}

Library::Library() : module_(LoadLibraryW(path().c_str())) {
    if (module_ == nullptr) throw std::runtime_error("VexaPPE.ocx cannot be loaded");
}

void Library::unload() {
    if (module_ != nullptr) FreeLibrary(std::exchange(module_, nullptr));
}

template <class Function>
Function Library::find(const char* name) const {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
}

HRESULT Library::getClassObject(REFCLSID classId, REFIID iid, void** out) const {
    return find<HRESULT(WINAPI*)(REFCLSID, REFIID, void**)>("DllGetClassObject")(classId, iid, out);
}

HRESULT Library::canUnloadNow() const {
    if (module_ == nullptr) return S_OK;
    return find<HRESULT(WINAPI*)()>("DllCanUnloadNow")();
}

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

namespace {

/// What waits for a dialog; a timer's callback gets no more than its number.
const std::function<void(HWND)>* awaiting = nullptr;

BOOL CALLBACK isDialog(HWND found, LPARAM place) noexcept {
    if (!IsWindowVisible(found) || GetWindow(found, GW_OWNER) == nullptr) return TRUE;
    *reinterpret_cast<HWND*>(place) = found;
    return FALSE;
}

void CALLBACK whenOpen(HWND, UINT, UINT_PTR, DWORD) noexcept {
    HWND dialog = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), isDialog, reinterpret_cast<LPARAM>(&dialog));
    if (dialog != nullptr && awaiting != nullptr) (*std::exchange(awaiting, nullptr))(dialog);
}

}  // namespace

void ControlTest::inDialog(int button, const std::function<void(HWND dialog)>& act) const {
    awaiting = &act;
    const UINT_PTR timer = SetTimer(nullptr, 0, 10, whenOpen);
    SendMessageW(child(button), BM_CLICK, 0, 0);
    KillTimer(nullptr, timer);
    EXPECT_EQ(std::exchange(awaiting, nullptr), nullptr) << "no dialog came up";
}

HWND ControlTest::frame() const {
    HWND found = nullptr;
    as<IOleInPlaceObject>()->GetWindow(&found);
    return found;
}

HWND ControlTest::page() const { return ::GetWindow(frame(), GW_CHILD); }

}  // namespace tests

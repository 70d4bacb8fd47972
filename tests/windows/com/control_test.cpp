#include "tests/windows/com/control_test.h"

#include <stdexcept>
#include <utility>

#include "tests/windows/stage/messages.h"
#include "tests/windows/stage/ticker.h"
#include "tests/windows/stage/window_queries.h"
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

com::Ptr<IClassFactory> Library::factory() const {
    com::Ptr<IClassFactory> factory;
    EXPECT_EQ(getClassObject(__uuidof(::ctlPPE), IID_IClassFactory, factory.outVoid()), S_OK);
    return factory;
}

com::Ptr<IUnknown> Library::create() const {
    com::Ptr<IUnknown> control;
    EXPECT_EQ(factory()->CreateInstance(nullptr, IID_IUnknown, control.outVoid()), S_OK);
    return control;
}

// --- Fixture ----------------------------------------------------------------------------------------------

HWND createContainerWindow() {
    return CreateWindowExW(0, L"#32770", L"Container", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 50, 50, 700, 600,
                           nullptr, nullptr, nullptr, nullptr);
}

com::Ptr<IFontDisp> makeFont(const std::wstring& name, LONGLONG points, BOOL italic) {
    std::wstring text = name;
    FONTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = text.data();
    description.cySize.int64 = points * 10000;
    description.sWeight = FW_NORMAL;
    description.fItalic = italic;
    com::Ptr<IFontDisp> font;
    EXPECT_EQ(OleCreateFontIndirect(&description, IID_IFontDisp, font.outVoid()), S_OK);
    return font;
}

void ContainerTest::endAll() {
    container.acceptAnything();
    if (control) end();
    deliverMessages();
    EXPECT_EQ(library.canUnloadNow(), S_OK) << "something of the control is left";
    if (IsWindow(window)) DestroyWindow(window);
}

void ContainerTest::create() { control = library.create(); }

void ContainerTest::createWithSite() {
    create();
    ASSERT_EQ(enterSite(), S_OK);
}

void ContainerTest::createActive() {
    createWithSite();
    container.expect({"CanInPlaceActivate", "OnInPlaceActivateEx", "GetWindow", "GetWindowContext"});
    ASSERT_EQ(doVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
    container.verify();
}

void ContainerTest::end() {
    close();
    leaveSite();
    EXPECT_EQ(control.detach()->Release(), 0u) << "somebody keeps the control";
}

com::Ptr<IConnectionPoint> ContainerTest::notifications() const {
    com::Ptr<IConnectionPoint> point;
    EXPECT_EQ(as<IConnectionPointContainer>()->FindConnectionPoint(IID_IPropertyNotifySink, point.out()),
              S_OK);
    return point;
}

bool ContainerTest::dirty() const {
    VARIANT_BOOL value = 1;  // neither yes nor no
    EXPECT_EQ(as<PropertyPage>()->get_Dirty(&value), S_OK);
    EXPECT_TRUE(value == VARIANT_TRUE || value == VARIANT_FALSE);
    return value == VARIANT_TRUE;
}

HRESULT ContainerTest::doVerb(LONG verb) {
    return as<IOleObject>()->DoVerb(verb, nullptr, container.site(), 0, window, &container.position);
}

void ContainerTest::inDialog(int button, const std::function<void(HWND dialog)>& act) const {
    const auto* awaiting = &act;
    const Ticker looking(10, [&] {
        const auto open = openDialogs();
        if (!open.empty() && awaiting != nullptr) (*std::exchange(awaiting, nullptr))(open.back());
    });
    SendMessageW(child(button), BM_CLICK, 0, 0);
    EXPECT_EQ(awaiting, nullptr) << "no dialog came up";
}

HWND ContainerTest::frame() const {
    HWND found = nullptr;
    as<IOleInPlaceObject>()->GetWindow(&found);
    return found;
}

HWND ContainerTest::page() const { return ::GetWindow(frame(), GW_CHILD); }

}  // namespace tests

// A container for the control's tests. It says which calls it expects, in which order; every other call fails
// the test, and so does an expected one that does not come.
#pragma once

#include <ocidl.h>
#include <olectl.h>

#include <deque>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "OutlookPages.h"
#include "interfaces/com.h"
#include "windows/com/part.h"

namespace tests {

class FakeContainer : public IUnknown {
public:
    /// `window` is the container's window; the control's place in it is `position`.
    explicit FakeContainer(HWND window);
    FakeContainer(const FakeContainer&) = delete;
    FakeContainer& operator=(const FakeContainer&) = delete;
    /// Fails the test where expected calls are missing or references are left.
    virtual ~FakeContainer();

    RECT position{10, 20, 410, 380};
    RECT clip{0, 0, 1000, 1000};
    /// What methods answer instead of S_OK, by their names.
    std::map<std::string, HRESULT> answers;
    /// What every method answers that is not in `answers`.
    HRESULT usualAnswer = S_OK;
    /// Interfaces that the container lacks, by their names in `interfaceNames`.
    std::set<std::string> lacks;
    /// Ambient properties; others are unknown to the container.
    std::map<DISPID, com::Variant> ambients;
    /// Runs inside a call, before it returns; also by the names of ambient properties: "DISPLAYNAME", "FONT",
    /// "UIDEAD".
    std::map<std::string, std::function<void()>> during;

    /// Runs inside each call, with its name; a query for an interface is called "QueryInterface " and its
    /// name.
    std::function<void(const std::string& call)> onCall;

    /// The calls that come from now on until the next `expect` or `verify`, in this order.
    void expect(std::initializer_list<const char*> calls);
    /// Fails the test where an expected call has not come.
    void verify();
    /// From now on calls are noted, but neither expected nor unexpected: for tests of other things.
    void acceptAnything() { strict_ = false; }
    [[nodiscard]] int count(const std::string& call) const;
    /// Forgets the calls that it has noted.
    void forget() { calls_.clear(); }
    /// Stands for another window from now on.
    void moveTo(HWND window) { window_ = window; }

    [[nodiscard]] IOleClientSite* site() { return &clientSite_; }
    [[nodiscard]] ULONG references() const { return references_; }

    STDMETHODIMP QueryInterface(REFIID iid, void** out) noexcept override;
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() noexcept override;

private:
    HRESULT called(const char* call);
    void react(const std::string& call);

    /// One of the interfaces that the container offers.
    template <class Interface>
    struct Offer : com::Part<Interface> {
        explicit Offer(FakeContainer& whole) : com::Part<Interface>(whole), fake(whole) {}
        HRESULT called(const char* call) const { return fake.called(call); }
        FakeContainer& fake;
    };

    struct ClientSite : Offer<IOleClientSite> {
        using Offer::Offer;
        STDMETHODIMP SaveObject() override { return called("SaveObject"); }
        STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) override { return called("GetMoniker"); }
        STDMETHODIMP GetContainer(IOleContainer**) override { return called("GetContainer"); }
        STDMETHODIMP ShowObject() override { return called("ShowObject"); }
        STDMETHODIMP OnShowWindow(BOOL) override { return called("OnShowWindow"); }
        STDMETHODIMP RequestNewObjectLayout() override { return called("RequestNewObjectLayout"); }
    } clientSite_{*this};

    struct InPlaceSite : Offer<IOleInPlaceSiteEx> {
        using Offer::Offer;
        STDMETHODIMP GetWindow(HWND* window) override;
        STDMETHODIMP ContextSensitiveHelp(BOOL) override { return called("ContextSensitiveHelp"); }
        STDMETHODIMP CanInPlaceActivate() override { return called("CanInPlaceActivate"); }
        STDMETHODIMP OnInPlaceActivate() override { return called("OnInPlaceActivate"); }
        STDMETHODIMP OnUIActivate() override { return called("OnUIActivate"); }
        STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, LPRECT place,
                                      LPRECT clip, LPOLEINPLACEFRAMEINFO information) override;
        STDMETHODIMP Scroll(SIZE) override { return called("Scroll"); }
        STDMETHODIMP OnUIDeactivate(BOOL) override { return called("OnUIDeactivate"); }
        STDMETHODIMP OnInPlaceDeactivate() override { return called("OnInPlaceDeactivate"); }
        STDMETHODIMP DiscardUndoState() override { return called("DiscardUndoState"); }
        STDMETHODIMP DeactivateAndUndo() override { return called("DeactivateAndUndo"); }
        STDMETHODIMP OnPosRectChange(LPCRECT) override { return called("OnPosRectChange"); }
        STDMETHODIMP OnInPlaceActivateEx(BOOL*, DWORD) override { return called("OnInPlaceActivateEx"); }
        STDMETHODIMP OnInPlaceDeactivateEx(BOOL) override { return called("OnInPlaceDeactivateEx"); }
        STDMETHODIMP RequestUIActivate() override { return called("RequestUIActivate"); }
    } inPlaceSite_{*this};

    struct Frame : Offer<IOleInPlaceFrame> {
        using Offer::Offer;
        STDMETHODIMP GetWindow(HWND*) override { return called("Frame.GetWindow"); }
        STDMETHODIMP ContextSensitiveHelp(BOOL) override { return called("Frame.ContextSensitiveHelp"); }
        STDMETHODIMP GetBorder(LPRECT) override { return called("GetBorder"); }
        STDMETHODIMP RequestBorderSpace(LPCBORDERWIDTHS) override { return called("RequestBorderSpace"); }
        STDMETHODIMP SetBorderSpace(LPCBORDERWIDTHS) override { return called("SetBorderSpace"); }
        STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) override {
            return called(object ? "SetActiveObject" : "SetActiveObject(NULL)");
        }
        STDMETHODIMP InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) override { return called("InsertMenus"); }
        STDMETHODIMP SetMenu(HMENU, HOLEMENU, HWND) override { return called("SetMenu"); }
        STDMETHODIMP RemoveMenus(HMENU) override { return called("RemoveMenus"); }
        STDMETHODIMP SetStatusText(LPCOLESTR) override { return called("SetStatusText"); }
        STDMETHODIMP EnableModeless(BOOL enable) override {
            return called(enable ? "EnableModeless(TRUE)" : "EnableModeless(FALSE)");
        }
        STDMETHODIMP TranslateAccelerator(LPMSG, WORD) override {
            return called("Frame.TranslateAccelerator");
        }
    } frame_{*this};

    struct ControlSite : Offer<IOleControlSite> {
        using Offer::Offer;
        STDMETHODIMP OnControlInfoChanged() override { return called("OnControlInfoChanged"); }
        STDMETHODIMP LockInPlaceActive(BOOL) override { return called("LockInPlaceActive"); }
        STDMETHODIMP GetExtendedControl(IDispatch**) override { return called("GetExtendedControl"); }
        STDMETHODIMP TransformCoords(POINTL*, POINTF*, DWORD) override { return called("TransformCoords"); }
        STDMETHODIMP TranslateAccelerator(MSG*, DWORD) override { return called("TranslateAccelerator"); }
        STDMETHODIMP OnFocus(BOOL focused) override {
            return called(focused ? "OnFocus(TRUE)" : "OnFocus(FALSE)");
        }
        STDMETHODIMP ShowPropertyFrame() override { return called("ShowPropertyFrame"); }
    } controlSite_{*this};

    /// IDispatch without type information, for interfaces that are called by their virtual functions alone.
    template <class Interface>
    struct Dispatch : Offer<Interface> {
        using Offer<Interface>::Offer;
        STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
        STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
        STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
        STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
            return E_NOTIMPL;
        }
    };

    struct PageSite : Dispatch<PropertyPageSite> {
        using Dispatch::Dispatch;
        STDMETHODIMP get_Application(IDispatch**) override { return called("Application"); }
        STDMETHODIMP get_Class(LONG*) override { return called("Class"); }
        STDMETHODIMP get_Session(IDispatch**) override { return called("Session"); }
        STDMETHODIMP get_Parent(IDispatch**) override { return called("Parent"); }
        STDMETHODIMP OnStatusChange() override { return called("OnStatusChange"); }
    } pageSite_{*this};

    /// Ambient properties are asked for at any time; only their kind can be unexpected.
    struct Ambients : Dispatch<IDispatch> {
        using Dispatch::Dispatch;
        STDMETHODIMP Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                            UINT*) override;
    } ambientDispatch_{*this};

    HWND window_;
    ULONG references_ = 1;
    bool strict_ = true;
    std::deque<std::string> expected_;
    std::map<std::string, int> calls_;
};

}  // namespace tests

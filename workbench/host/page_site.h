// The container's side of a hosted control: its client site, its place in a window, and Outlook's page site.
#pragma once

#include <ocidl.h>
#include <ole2.h>

#include <atomic>

#include "OutlookPages.h"
#include "interfaces/com.h"
#include "workbench/addin/call_list.h"
#include "workbench/answers.h"
#include "workbench/host/page_events.h"

namespace workbench {

/// Counted like any COM object; `detach` cuts it off from the dialog, after which calls of the page are
/// refused.
class PageSite final : public IOleClientSite,
                       public IOleInPlaceSite,
                       public IOleInPlaceFrame,
                       public IOleControlSite,
                       public IDispatch {
public:
    /// `window` is the page's parent; the page fills its client area.
    PageSite(HWND window, PageEvents& events, CallList& calls);
    PageSite(const PageSite&) = delete;
    PageSite& operator=(const PageSite&) = delete;

    void detach() { events_ = nullptr; }
    /// The object that is active for the user's keys, or none.
    [[nodiscard]] IOleInPlaceActiveObject* activeObject() const { return activeObject_.get(); }
    [[nodiscard]] RECT area() const;
    void statusChanged();

    // IUnknown
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;
    // IOleClientSite
    HRESULT STDMETHODCALLTYPE SaveObject() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker** moniker) override { return none(moniker); }
    HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer** container) override;
    HRESULT STDMETHODCALLTYPE ShowObject() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() override { return E_NOTIMPL; }
    // IOleWindow, of site and frame
    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) override;
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return S_OK; }
    // IOleInPlaceSite
    HRESULT STDMETHODCALLTYPE CanInPlaceActivate() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnInPlaceActivate() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnUIActivate() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                               RECT* position, RECT* clip,
                                               OLEINPLACEFRAMEINFO* info) override;
    HRESULT STDMETHODCALLTYPE Scroll(SIZE) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE DiscardUndoState() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE DeactivateAndUndo() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnPosRectChange(const RECT*) override { return S_OK; }
    // IOleInPlaceFrame
    HRESULT STDMETHODCALLTYPE GetBorder(RECT*) override { return INPLACE_E_NOTOOLSPACE; }
    HRESULT STDMETHODCALLTYPE RequestBorderSpace(const BORDERWIDTHS*) override {
        return INPLACE_E_NOTOOLSPACE;
    }
    HRESULT STDMETHODCALLTYPE SetBorderSpace(const BORDERWIDTHS*) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR name) override;
    HRESULT STDMETHODCALLTYPE InsertMenus(HMENU, OLEMENUGROUPWIDTHS*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetMenu(HMENU, HOLEMENU, HWND) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE RemoveMenus(HMENU) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetStatusText(LPCOLESTR) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE EnableModeless(BOOL) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG*, WORD) override { return S_FALSE; }
    // IOleControlSite
    HRESULT STDMETHODCALLTYPE OnControlInfoChanged() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE LockInPlaceActive(BOOL) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE GetExtendedControl(IDispatch** control) override { return none(control); }
    HRESULT STDMETHODCALLTYPE TransformCoords(POINTL*, POINTF*, DWORD) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG* message, DWORD modifiers) override;
    HRESULT STDMETHODCALLTYPE OnFocus(BOOL) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE ShowPropertyFrame() override { return E_NOTIMPL; }
    // IDispatch: the ambient properties
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** information) override {
        return none(information);
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return DISP_E_UNKNOWNNAME;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID iid, LCID locale, WORD flags,
                                     DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                     UINT* wrongArgument) override;

private:
    ~PageSite() = default;

    /// Outlook's interface is a dispatch interface of its own beside the ambient one.
    class Outlook final : public PropertyPageSite {
    public:
        explicit Outlook(PageSite& site) : site_(site) {}
        ~Outlook() = default;
        HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
            // The dispatch interface of this face is its own.
            if (object != nullptr && iid == __uuidof(IDispatch))
                return give(static_cast<PropertyPageSite*>(this), object);
            return site_.QueryInterface(iid, object);
        }
        ULONG STDMETHODCALLTYPE AddRef() override { return site_.AddRef(); }
        ULONG STDMETHODCALLTYPE Release() override { return site_.Release(); }
        HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
            return site_.GetTypeInfoCount(count);
        }
        HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** information) override {
            return none(information);
        }
        HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
            return DISP_E_UNKNOWNNAME;
        }
        HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT*,
                                         EXCEPINFO*, UINT*) override {
            constexpr DISPID ON_STATUS_CHANGE = 0x2100;
            if (member != ON_STATUS_CHANGE || (flags & DISPATCH_METHOD) == 0) return DISP_E_MEMBERNOTFOUND;
            return OnStatusChange();
        }
        HRESULT STDMETHODCALLTYPE get_Application(IDispatch** application) override {
            return none(application);
        }
        HRESULT STDMETHODCALLTYPE get_Class(long* classNumber) override {
            constexpr long PROPERTY_PAGE_SITE_CLASS = 70;  // Outlook's number for the kind of object
            if (classNumber == nullptr) return E_POINTER;
            *classNumber = PROPERTY_PAGE_SITE_CLASS;
            return S_OK;
        }
        HRESULT STDMETHODCALLTYPE get_Session(IDispatch** session) override { return none(session); }
        HRESULT STDMETHODCALLTYPE get_Parent(IDispatch** parent) override { return none(parent); }
        HRESULT STDMETHODCALLTYPE OnStatusChange() override {
            try {
                site_.statusChanged();
                return S_OK;
            } catch (...) {
                return E_FAIL;
            }
        }

    private:
        PageSite& site_;
    };

    std::atomic<ULONG> references_{1};
    HWND window_;
    PageEvents* events_;
    CallList& calls_;
    Outlook outlook_{*this};
    com::Ptr<IOleInPlaceActiveObject> activeObject_;
};

}  // namespace workbench

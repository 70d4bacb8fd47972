// Stands in for the system's service that keeps words for screen readers, which Wine only promises: the
// control gets this one as long as it lives.
#pragma once

#include <windows.h>

#include <oleacc.h>

#include <map>
#include <set>
#include <string>
#include <vector>

namespace tests {

class AnnotationsStandIn : public IAccPropServices, public IClassFactory {
public:
    AnnotationsStandIn();
    AnnotationsStandIn(const AnnotationsStandIn&) = delete;
    AnnotationsStandIn& operator=(const AnnotationsStandIn&) = delete;
    virtual ~AnnotationsStandIn();

    struct Words {
        std::wstring description;
        std::wstring value;
        std::vector<std::wstring> parts;  ///< the names of its parts
        bool live = false;
    };
    /// What is kept for a window now.
    [[nodiscard]] Words wordsFor(HWND window) const;
    /// The windows for which something is kept.
    [[nodiscard]] std::size_t kept() const { return words_.size(); }
    /// Windows that went while something was kept for them.
    [[nodiscard]] std::size_t forgotten() const;

    STDMETHODIMP QueryInterface(REFIID identifier, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP CreateInstance(IUnknown*, REFIID identifier, void** object) override {
        return QueryInterface(identifier, object);
    }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }

    STDMETHODIMP SetHwndPropStr(HWND window, DWORD object, DWORD child, MSAAPROPID property,
                                LPCWSTR text) override;
    STDMETHODIMP SetHwndProp(HWND window, DWORD object, DWORD child, MSAAPROPID property,
                             VARIANT value) override;
    STDMETHODIMP ClearHwndProps(HWND window, DWORD object, DWORD child, const MSAAPROPID* properties,
                                int count) override;

    // Nobody calls these.
    STDMETHODIMP SetPropValue(const BYTE*, DWORD, MSAAPROPID, VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP SetPropServer(const BYTE*, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                               AnnoScope) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP ClearProps(const BYTE*, DWORD, const MSAAPROPID*, int) override { return E_NOTIMPL; }
    STDMETHODIMP SetHwndPropServer(HWND, DWORD, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                   AnnoScope) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP ComposeHwndIdentityString(HWND, DWORD, DWORD, BYTE**, DWORD*) override { return E_NOTIMPL; }
    STDMETHODIMP DecomposeHwndIdentityString(const BYTE*, DWORD, HWND*, DWORD*, DWORD*) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP SetHmenuProp(HMENU, DWORD, MSAAPROPID, VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP SetHmenuPropStr(HMENU, DWORD, MSAAPROPID, LPCWSTR) override { return E_NOTIMPL; }
    STDMETHODIMP SetHmenuPropServer(HMENU, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                    AnnoScope) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP ClearHmenuProps(HMENU, DWORD, const MSAAPROPID*, int) override { return E_NOTIMPL; }
    STDMETHODIMP ComposeHmenuIdentityString(HMENU, DWORD, BYTE**, DWORD*) override { return E_NOTIMPL; }
    STDMETHODIMP DecomposeHmenuIdentityString(const BYTE*, DWORD, HMENU*, DWORD*) override {
        return E_NOTIMPL;
    }

private:
    DWORD registration_ = 0;
    std::map<HWND, Words> words_;
};

/// What the accessibility interfaces tell of a window.
struct Told {
    std::wstring role;
    std::wstring name;
    std::wstring description;
    std::wstring value;
    std::wstring state;
};

/// Asks as a screen reader does, and reads what the control has given the service. Names of edits, lists and
/// combos are those of the text before them, as the system has it; Wine knows that of edits alone.
[[nodiscard]] Told askReader(HWND window, const AnnotationsStandIn& annotations);

}  // namespace tests

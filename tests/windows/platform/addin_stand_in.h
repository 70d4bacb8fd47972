// An add-in for tests: notes every call, fails on demand and offers its event in several ways.
#pragma once

#include <ocidl.h>
#include <olectl.h>

#include <map>
#include <string>
#include <vector>

#include "interfaces/addin_base.h"
#include "tests/support/shortage.h"

namespace tests {

/// How the stand-in lets others find its event.
struct EventOffer {
    bool connectionPoints = true;
    bool classInformation = true;  ///< IProvideClassInfo2 with the default source
    bool typeInformation = true;   ///< a type library that names the event
    bool renumbered = false;       ///< the event has the number 7
    HRESULT advise = S_OK;
    bool keepsWhatItRefuses = false;  ///< a refused sink stays connected
    /// Sinks stay when their connection ends, as with an add-in whose memory is collected later.
    bool keepsSinks = false;
};

/// What a set-up does once: the name of the add-in leads to its class.
void registerAddIn();

class AddInStandIn : public com::AddInBase,
                     public IConnectionPointContainer,
                     public IConnectionPoint,
                     public IProvideClassInfo2 {
public:
    virtual ~AddInStandIn() = default;

    /// "<operation>(<arguments>)", texts in quotes.
    std::vector<std::string> calls;
    /// What the next calls return.
    HRESULT answer = S_OK;
    /// Left as error information by failing calls where it is not empty.
    std::wstring description;
    VARIANT_BOOL flag = VARIANT_FALSE;
    EventOffer offer;

    [[nodiscard]] ULONG references() const { return static_cast<ULONG>(references_); }
    [[nodiscard]] std::size_t connections() const { return connected_.size(); }
    /// Those that it has kept, too.
    [[nodiscard]] std::size_t sinks() const { return connected_.size() + kept_.size(); }
    [[nodiscard]] IDispatch& sink() { return *connected_.begin()->second.get(); }
    void releaseKeptSinks() { kept_.clear(); }
    /// Raises a member of the source interface at every sink, on any thread, and gives the last one's answer;
    /// arguments in reverse order, as automation has them.
    HRESULT raise(DISPID member, std::vector<VARIANTARG> reversedArguments) const;
    HRESULT raiseProcessFinished(const std::wstring& project, bool keepList) const;

    // IUnknown
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(InterlockedIncrement(&references_)); }
    STDMETHODIMP_(ULONG) Release() override { return static_cast<ULONG>(InterlockedDecrement(&references_)); }
    // IDispatch
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** information) override;
    // IOlAddIn
    STDMETHODIMP SetDefaultKnowledgebase(BSTR name) override {
        return noted("SetDefaultKnowledgebase", name);
    }
    STDMETHODIMP SetLogging(VARIANT_BOOL on) override { return noted("SetLogging", on); }
    STDMETHODIMP NotifyKbAdded(BSTR name) override { return noted("NotifyKbAdded", name); }
    STDMETHODIMP NotifyKbRemoved(BSTR name) override { return noted("NotifyKbRemoved", name); }
    STDMETHODIMP NotifyKbRenamed(BSTR from, BSTR to) override { return noted("NotifyKbRenamed", from, to); }
    STDMETHODIMP NotifyKbRebuild(BSTR name) override { return noted("NotifyKbRebuild", name); }
    STDMETHODIMP NotifyKbUpdate(BSTR name) override { return noted("NotifyKbUpdate", name); }
    STDMETHODIMP IsProcessing(VARIANT_BOOL* result) override { return answered("IsProcessing", result); }
    STDMETHODIMP IsAutoUpdateRunning(VARIANT_BOOL* result) override {
        return answered("IsAutoUpdateRunning", result);
    }
    STDMETHODIMP SendMail(BSTR subject, BSTR body, BSTR richBody, BSTR to, BSTR cc, long importance,
                          VARIANT_BOOL always) override {
        return noted("SendMail", subject, body, richBody, to, cc, importance, always);
    }
    STDMETHODIMP SetFindShortcut(long shortcut) override { return noted("SetFindShortcut", shortcut); }
    STDMETHODIMP IsSearching(VARIANT_BOOL* result) override { return answered("IsSearching", result); }
    // IConnectionPointContainer
    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) override;
    STDMETHODIMP FindConnectionPoint(REFIID source, IConnectionPoint** point) override;
    // IConnectionPoint
    STDMETHODIMP GetConnectionInterface(IID* source) override;
    STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) override;
    STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) override;
    STDMETHODIMP Unadvise(DWORD cookie) override;
    STDMETHODIMP EnumConnections(IEnumConnections**) override { return E_NOTIMPL; }
    // IProvideClassInfo2
    STDMETHODIMP GetClassInfo(ITypeInfo** information) override;
    STDMETHODIMP GetGUID(DWORD kind, GUID* identifier) override;

protected:
    /// Every call comes here, with its arguments as text.
    virtual HRESULT called(const std::string& operation, const std::string& arguments);

private:
    [[nodiscard]] const IID& source() const;
    HRESULT reserved(int position) override { return noted("reserved", long{position}); }
    static std::string shown(long number) { return std::to_string(number); }
    static std::string shown(BSTR text);
    template <class... Arguments>
    HRESULT noted(const char* operation, Arguments... arguments) {
        const Plenty plenty;
        std::string list;
        ((list += (list.empty() ? "" : ", ") + shown(arguments)), ...);
        return called(operation, list);
    }
    HRESULT answered(const char* operation, VARIANT_BOOL* result);

    LONG references_ = 1;
    DWORD nextCookie_ = 1;
    std::map<DWORD, com::Ptr<IDispatch>> connected_;
    std::vector<com::Ptr<IDispatch>> kept_;
};

/// The type information of a class or interface in the add-in's type library, which this program carries.
com::Ptr<ITypeInfo> addInTypeInformation(REFGUID identifier, const wchar_t* library = L"10");

}  // namespace tests

// An add-in for the proxy's tests: notes every call, fails on demand and offers its event in several ways.
#pragma once

#include <ocidl.h>
#include <olectl.h>

#include <map>
#include <string>
#include <vector>

#include "interfaces/addin_base.h"

namespace tests {

/// How the stand-in lets others find its event.
struct EventOffer {
    bool connectionPoints = true;
    bool classInformation = true;  ///< IProvideClassInfo2 with the default source
    bool typeInformation = true;   ///< a type library that names the event
    bool renumbered = false;       ///< the event has the number 7
    HRESULT advise = S_OK;
    bool keepsWhatItRefuses = false;  ///< a refused sink stays connected
};

class AddInStandIn final : public com::AddInBase,
                           public IConnectionPointContainer,
                           public IConnectionPoint,
                           public IProvideClassInfo2 {
public:
    ~AddInStandIn() = default;

    /// "<operation>(<arguments>)", texts in quotes.
    std::vector<std::string> calls;
    /// What the next calls return.
    HRESULT answer = S_OK;
    /// Left as error information by failing calls where it is not empty.
    std::wstring description;
    VARIANT_BOOL flag = VARIANT_FALSE;
    EventOffer offer;

    [[nodiscard]] ULONG references() const { return references_; }
    [[nodiscard]] std::size_t connections() const { return sinks_.size(); }
    [[nodiscard]] IDispatch& sink() { return *sinks_.begin()->second.get(); }
    /// Raises a member of the source interface at every sink; arguments in reverse order, as automation has
    /// them.
    HRESULT raise(DISPID member, std::vector<VARIANTARG> reversedArguments);
    HRESULT raiseProcessFinished(const std::wstring& project, bool keepList);

    // IUnknown
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override { return --references_; }
    // IDispatch
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** information) override;
    // IOlAddIn
    HRESULT STDMETHODCALLTYPE SetDefaultKnowledgebase(BSTR name) override;
    HRESULT STDMETHODCALLTYPE SetLogging(VARIANT_BOOL on) override;
    HRESULT STDMETHODCALLTYPE NotifyKbAdded(BSTR name) override;
    HRESULT STDMETHODCALLTYPE NotifyKbRemoved(BSTR name) override;
    HRESULT STDMETHODCALLTYPE NotifyKbRenamed(BSTR oldName, BSTR newName) override;
    HRESULT STDMETHODCALLTYPE NotifyKbRebuild(BSTR name) override;
    HRESULT STDMETHODCALLTYPE NotifyKbUpdate(BSTR name) override;
    HRESULT STDMETHODCALLTYPE IsProcessing(VARIANT_BOOL* result) override;
    HRESULT STDMETHODCALLTYPE IsAutoUpdateRunning(VARIANT_BOOL* result) override;
    HRESULT STDMETHODCALLTYPE SendMail(BSTR subject, BSTR body, BSTR richBody, BSTR to, BSTR cc,
                                       long importance, VARIANT_BOOL flagArgument) override;
    HRESULT STDMETHODCALLTYPE SetFindShortcut(long shortcut) override;
    HRESULT STDMETHODCALLTYPE IsSearching(VARIANT_BOOL* result) override;
    // IConnectionPointContainer
    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) override;
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID source, IConnectionPoint** point) override;
    // IConnectionPoint
    HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* source) override;
    HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer** container) override;
    HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override;
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
    HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections**) override { return E_NOTIMPL; }
    // IProvideClassInfo2
    HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** information) override;
    HRESULT STDMETHODCALLTYPE GetGUID(DWORD kind, GUID* identifier) override;

private:
    [[nodiscard]] const IID& source() const;
    HRESULT reserved(int position) override;
    HRESULT noted(const std::string& line);
    HRESULT answered(const char* operation, VARIANT_BOOL* result);

    ULONG references_ = 1;
    DWORD nextCookie_ = 1;
    std::map<DWORD, com::Ptr<IDispatch>> sinks_;
};

/// The type information of a class or interface in the add-in's type library, which this program carries.
com::Ptr<ITypeInfo> addInTypeInformation(REFGUID identifier, const wchar_t* library = L"10");

}  // namespace tests

// The stand-in as the COM object that the page finds: the add-in's interface, its event and its class
// information.
#pragma once

#include <ocidl.h>

#include <map>

#include "interfaces/addin_base.h"
#include "workbench/addin/call_list.h"
#include "workbench/addin/stand_in.h"

namespace workbench {

/// Notes every call, fails where the behaviour says so, and hands the rest to the stand-in. Lives as long as
/// someone refers to it: the page keeps the add-in beyond its dialog. After `disconnect` every call says that
/// it is gone.
class Automation final : public com::AddInBase,
                         public IConnectionPointContainer,
                         public IConnectionPoint,
                         public IProvideClassInfo2,
                         public ISupportErrorInfo {
public:
    Automation(StandIn& standIn, CallList& calls);
    Automation(const Automation&) = delete;
    Automation& operator=(const Automation&) = delete;

    void disconnect();
    void raiseProcessFinished(const std::wstring& project, bool keepList);

    // IUnknown
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;
    // IDispatch
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** information) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* identifiers) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID iid, LCID locale, WORD flags,
                                     DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                     UINT* wrongArgument) override;
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
                                       long importance, VARIANT_BOOL flag) override;
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
    HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** connections) override;
    // IProvideClassInfo2
    HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** information) override;
    HRESULT STDMETHODCALLTYPE GetGUID(DWORD kind, GUID* identifier) override;
    // ISupportErrorInfo
    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override;

private:
    ~Automation() = default;
    [[nodiscard]] bool isGone() const;
    HRESULT reserved(int position) override;
    /// One call of the page: notes it, fails it where that is set, else runs the action. Nothing leaves it.
    template <class Action>
    HRESULT answer(const wchar_t* operation, const std::wstring& arguments, Action action);
    HRESULT answerQuestion(const wchar_t* operation, bool (StandIn::*question)() const, VARIANT_BOOL* result);

    StandIn* standIn_;
    CallList& calls_;
    ULONG references_ = 1;
    com::Ptr<ITypeInfo> classInformation_;
    com::Ptr<ITypeInfo> interfaceInformation_;
    std::map<DWORD, com::Ptr<IDispatch>> sinks_;
    DWORD nextCookie_ = 1;
};

}  // namespace workbench

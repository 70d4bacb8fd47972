// The running object "Tarnwell.OlAddIn.1" of this process, as tests of the built control need it.
#pragma once

#include <ocidl.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "interfaces/addin_base.h"
#include "interfaces/com.h"

namespace tests {

/// Is idle, carries out nothing, and raises its event on demand. At its end the control must have given back
/// every reference to it.
class RunningAddIn final : private com::AddInBase,
                           private IConnectionPointContainer,
                           private IConnectionPoint {
public:
    RunningAddIn();
    RunningAddIn(const RunningAddIn&) = delete;
    RunningAddIn& operator=(const RunningAddIn&) = delete;
    ~RunningAddIn();

    /// Runs inside each call of the control, by the method's name.
    std::function<void(const std::string& call)> during;
    /// Sinks stay when the control ends their connection, as with an add-in whose memory is collected later.
    bool keepsSinks = false;

    [[nodiscard]] std::size_t sinks() const { return connected_.size() + kept_.size(); }
    /// At every sink that it holds; on any thread. Gives the last sink's answer.
    HRESULT raiseProcessFinished(const std::wstring& project, bool keepList) const;
    void releaseKeptSinks() { kept_.clear(); }

private:
    STDMETHODIMP QueryInterface(REFIID iid, void** out) override;
    STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(InterlockedIncrement(&references_)); }
    STDMETHODIMP_(ULONG) Release() override { return static_cast<ULONG>(InterlockedDecrement(&references_)); }
    STDMETHODIMP IsProcessing(VARIANT_BOOL* result) override { return no("IsProcessing", result); }
    STDMETHODIMP IsAutoUpdateRunning(VARIANT_BOOL* result) override {
        return no("IsAutoUpdateRunning", result);
    }
    STDMETHODIMP IsSearching(VARIANT_BOOL* result) override { return no("IsSearching", result); }
    STDMETHODIMP SetLogging(VARIANT_BOOL) override { return called("SetLogging"); }
    STDMETHODIMP SetDefaultKnowledgebase(BSTR) override { return called("SetDefaultKnowledgebase"); }
    STDMETHODIMP SetFindShortcut(long) override { return called("SetFindShortcut"); }
    STDMETHODIMP NotifyKbAdded(BSTR) override { return called("NotifyKbAdded"); }
    STDMETHODIMP NotifyKbRemoved(BSTR) override { return called("NotifyKbRemoved"); }
    STDMETHODIMP NotifyKbRenamed(BSTR, BSTR) override { return called("NotifyKbRenamed"); }
    STDMETHODIMP NotifyKbRebuild(BSTR) override { return called("NotifyKbRebuild"); }
    STDMETHODIMP NotifyKbUpdate(BSTR) override { return called("NotifyKbUpdate"); }
    STDMETHODIMP SendMail(BSTR, BSTR, BSTR, BSTR, BSTR, long, VARIANT_BOOL) override {
        return called("SendMail");
    }

    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) override;
    STDMETHODIMP FindConnectionPoint(REFIID, IConnectionPoint** point) override;
    STDMETHODIMP GetConnectionInterface(IID* iid) override;
    STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) override;
    STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) override;
    STDMETHODIMP Unadvise(DWORD cookie) override;
    STDMETHODIMP EnumConnections(IEnumConnections**) override { return E_NOTIMPL; }

    HRESULT called(const char* call);
    HRESULT no(const char* call, VARIANT_BOOL* result);

    LONG references_ = 1;
    DWORD registration_ = 0;
    DWORD lastCookie_ = 0;
    std::map<DWORD, com::Ptr<IDispatch>> connected_;
    std::vector<com::Ptr<IDispatch>> kept_;
};

}  // namespace tests

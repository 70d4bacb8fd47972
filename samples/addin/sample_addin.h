// A sample add-in: the whole of docs/integration.md on the add-in's side, without an index behind it. What a
// real one does in minutes takes this one a twentieth of a second.
#pragma once

#include <ocidl.h>
#include <olectl.h>

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "interfaces/addin_base.h"

namespace sample {

/// Lives on the thread that makes it, Outlook's main thread. While it lives, pages find it as the running
/// object of "Tarnwell.OlAddIn.1", and its search window's handle stands in the registry.
class AddIn final : public com::AddInBase,
                    public IConnectionPointContainer,
                    public IConnectionPoint,
                    public IProvideClassInfo2 {
public:
    AddIn();
    AddIn(const AddIn&) = delete;
    AddIn& operator=(const AddIn&) = delete;
    ~AddIn();

    /// What the page has asked for, one line each.
    std::vector<std::wstring> journal;
    bool searching = false;

    /// Updates the automatically updated knowledgebase, as an add-in does by itself.
    void runAutoUpdate();

    // What the page calls.
    STDMETHODIMP SetDefaultKnowledgebase(BSTR name) override;
    STDMETHODIMP SetLogging(VARIANT_BOOL on) override;
    STDMETHODIMP NotifyKbAdded(BSTR name) override;
    STDMETHODIMP NotifyKbRemoved(BSTR name) override;
    STDMETHODIMP NotifyKbRenamed(BSTR oldName, BSTR newName) override;
    STDMETHODIMP NotifyKbRebuild(BSTR name) override;
    STDMETHODIMP NotifyKbUpdate(BSTR name) override;
    STDMETHODIMP IsProcessing(VARIANT_BOOL* result) override;
    STDMETHODIMP IsAutoUpdateRunning(VARIANT_BOOL* result) override;
    STDMETHODIMP SendMail(BSTR subject, BSTR body, BSTR richBody, BSTR to, BSTR cc, long importance,
                          VARIANT_BOOL flag) override;
    STDMETHODIMP SetFindShortcut(long shortcut) override;
    STDMETHODIMP IsSearching(VARIANT_BOOL* result) override;

    // The object's identity. Its owner ends it, not the last reference: the page keeps one for as long as it
    // likes.
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }

    // The event: one connection point, which the page finds as the default source.
    STDMETHODIMP GetGUID(DWORD kind, GUID* source) override;
    STDMETHODIMP FindConnectionPoint(REFIID source, IConnectionPoint** point) override;
    STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) override;
    STDMETHODIMP Unadvise(DWORD cookie) override;
    STDMETHODIMP GetClassInfo(ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints**) override { return E_NOTIMPL; }
    STDMETHODIMP GetConnectionInterface(IID* source) override {
        return GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, source);
    }
    STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer**) override { return E_NOTIMPL; }
    STDMETHODIMP EnumConnections(IEnumConnections**) override { return E_NOTIMPL; }

private:
    struct Command {
        std::wstring knowledgebase;
        std::function<void()> work;
    };
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    void note(const std::wstring& line) { journal.push_back(line); }
    /// Works later, when the caller has its answer, and then raises the event.
    void begin(const std::wstring& knowledgebase, std::function<void()> work);
    void finishNext();
    void raiseProcessFinished(const std::wstring& knowledgebase);

    HWND searchWindow_ = nullptr;
    DWORD running_ = 0;
    bool autoUpdate_ = false;
    std::deque<Command> commands_;
    std::map<DWORD, com::Ptr<IDispatch>> sinks_;
    DWORD nextCookie_ = 1;
};

}  // namespace sample

#include "samples/addin/sample_addin.h"

#include "samples/addin/records.h"

namespace sample {
namespace {

constexpr UINT EDIT_FOLDERS = WM_USER + 115;
constexpr UINT START_WIZARD = WM_USER + 103;
constexpr WPARAM KNOWLEDGEBASE_IS_GONE = 2;
constexpr UINT WORK_TIME = 50;  // milliseconds
constexpr wchar_t CLASS_NAME[] = L"SampleAddInSearchWindow";

HRESULT answer(VARIANT_BOOL* result, bool value) {
    if (result == nullptr) return E_POINTER;
    *result = value ? VARIANT_TRUE : VARIANT_FALSE;
    return S_OK;
}

}  // namespace

// --- Being found
// ----------------------------------------------------------------------------------------------

AddIn::AddIn() {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = CLASS_NAME;
    RegisterClassW(&windowClass);
    searchWindow_ = CreateWindowExW(0, CLASS_NAME, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                    windowClass.hInstance, nullptr);
    SetWindowLongPtrW(searchWindow_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    records::put(records::ROOT, L"hWndSearchCtl",
                 static_cast<unsigned long>(reinterpret_cast<ULONG_PTR>(searchWindow_)));
    // What an earlier process left in work will never end.
    records::forget(records::profile(), L"KBProcessState");
    // The set-up has registered the ProgID with this class.
    RegisterActiveObject(static_cast<IOlAddIn*>(this), __uuidof(OlAddIn), ACTIVEOBJECT_WEAK, &running_);
}

AddIn::~AddIn() {
    RevokeActiveObject(running_, nullptr);
    records::forget(records::ROOT, L"hWndSearchCtl");
    DestroyWindow(searchWindow_);
}

STDMETHODIMP AddIn::QueryInterface(REFIID iid, void** object) {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (iid == IID_IUnknown || iid == IID_IDispatch || iid == __uuidof(IOlAddIn))
        *object = static_cast<IOlAddIn*>(this);
    if (iid == IID_IConnectionPointContainer) *object = static_cast<IConnectionPointContainer*>(this);
    if (iid == IID_IConnectionPoint) *object = static_cast<IConnectionPoint*>(this);
    if (iid == IID_IProvideClassInfo2) *object = static_cast<IProvideClassInfo2*>(this);
    return *object != nullptr ? S_OK : E_NOINTERFACE;
}

// --- Commands
// -------------------------------------------------------------------------------------------------

STDMETHODIMP AddIn::NotifyKbAdded(BSTR name) {
    note(L"added " + com::toText(name));
    records::add(com::toText(name));  // before the page goes on to ask for its folders
    return S_OK;
}

STDMETHODIMP AddIn::NotifyKbRenamed(BSTR oldName, BSTR newName) {
    note(L"renamed " + com::toText(oldName) + L" to " + com::toText(newName));
    records::rename(com::toText(oldName), com::toText(newName));
    return S_OK;
}

STDMETHODIMP AddIn::NotifyKbRemoved(BSTR name) {
    note(L"removed " + com::toText(name));
    begin(com::toText(name), [name = com::toText(name)] { records::remove(name); });
    return S_OK;
}

STDMETHODIMP AddIn::NotifyKbRebuild(BSTR name) {
    note(L"rebuild " + com::toText(name));
    begin(com::toText(name), [name = com::toText(name)] { records::setContent(name); });
    return S_OK;
}

STDMETHODIMP AddIn::NotifyKbUpdate(BSTR name) {
    note(L"update " + com::toText(name));
    begin(com::toText(name), [name = com::toText(name)] { records::setContent(name); });
    return S_OK;
}

LRESULT CALLBACK AddIn::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    auto* self = reinterpret_cast<AddIn*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self == nullptr) return DefWindowProcW(window, message, wParam, lParam);
    try {
        const std::wstring name = records::text(records::profile(), L"ProjectEventName");
        switch (message) {
            case EDIT_FOLDERS:
                self->note(L"edit " + name);
                self->begin(name, [name] { records::setContent(name); });
                return 0;
            case START_WIZARD: self->note(L"wizard " + name); return 0;
            case WM_KEYDOWN:
                if (wParam == KNOWLEDGEBASE_IS_GONE) self->note(L"gone");
                return 0;
            case WM_TIMER: self->finishNext(); return 0;
            default: break;
        }
    } catch (...) {
        return 0;  // nothing may be thrown into the window manager
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

void AddIn::runAutoUpdate() {
    const std::wstring name = records::text(records::profile(), L"DefaultProject");
    autoUpdate_ = true;
    begin(name, [this, name] {
        records::setContent(name);
        autoUpdate_ = false;
    });
}

void AddIn::begin(const std::wstring& knowledgebase, std::function<void()> work) {
    commands_.push_back({knowledgebase, std::move(work)});
    SetTimer(searchWindow_, 1, WORK_TIME, nullptr);
}

void AddIn::finishNext() {
    const Command command = std::move(commands_.front());
    commands_.pop_front();
    if (commands_.empty()) KillTimer(searchWindow_, 1);
    command.work();  // the records first: the page reads them inside the event
    raiseProcessFinished(command.knowledgebase);
}

// --- Questions and settings
// -----------------------------------------------------------------------------------

STDMETHODIMP AddIn::IsProcessing(VARIANT_BOOL* result) { return answer(result, !commands_.empty()); }
STDMETHODIMP AddIn::IsAutoUpdateRunning(VARIANT_BOOL* result) { return answer(result, autoUpdate_); }
STDMETHODIMP AddIn::IsSearching(VARIANT_BOOL* result) { return answer(result, searching); }

STDMETHODIMP AddIn::SetDefaultKnowledgebase(BSTR name) {
    note(L"default " + com::toText(name));
    return S_OK;
}

STDMETHODIMP AddIn::SetLogging(VARIANT_BOOL on) {
    note(on != VARIANT_FALSE ? L"logging on" : L"logging off");
    return S_OK;
}

STDMETHODIMP AddIn::SetFindShortcut(long shortcut) {
    note(L"shortcut " + std::to_wstring(shortcut));
    return S_OK;
}

STDMETHODIMP AddIn::SendMail(BSTR subject, BSTR, BSTR, BSTR to, BSTR, long importance, VARIANT_BOOL) {
    note(L"mail to " + com::toText(to) + L", " + com::toText(subject) + L", importance " +
         std::to_wstring(importance));
    return S_OK;
}

// --- The event
// ------------------------------------------------------------------------------------------------

STDMETHODIMP AddIn::GetGUID(DWORD kind, GUID* source) {
    if (source == nullptr) return E_POINTER;
    *source = __uuidof(_IOlAddInEvents);
    return kind == GUIDKIND_DEFAULT_SOURCE_DISP_IID ? S_OK : E_INVALIDARG;
}

STDMETHODIMP AddIn::FindConnectionPoint(REFIID source, IConnectionPoint** point) {
    if (point == nullptr) return E_POINTER;
    *point = source == __uuidof(_IOlAddInEvents) ? this : nullptr;
    return *point != nullptr ? S_OK : CONNECT_E_NOCONNECTION;
}

STDMETHODIMP AddIn::Advise(IUnknown* sink, DWORD* cookie) {
    if (sink == nullptr || cookie == nullptr) return E_POINTER;
    com::Ptr<IDispatch> events;
    if (FAILED(sink->QueryInterface(__uuidof(_IOlAddInEvents), events.outVoid())))
        return CONNECT_E_CANNOTCONNECT;
    *cookie = nextCookie_++;
    sinks_.emplace(*cookie, std::move(events));
    return S_OK;
}

STDMETHODIMP AddIn::Unadvise(DWORD cookie) {
    return sinks_.erase(cookie) == 1 ? S_OK : CONNECT_E_NOCONNECTION;
}

void AddIn::raiseProcessFinished(const std::wstring& knowledgebase) {
    const com::Bstr name(knowledgebase);
    VARIANTARG arguments[2]{};  // the last argument comes first
    arguments[0].vt = VT_BOOL;
    arguments[0].boolVal = VARIANT_FALSE;
    arguments[1].vt = VT_BSTR;
    arguments[1].bstrVal = name.get();
    DISPPARAMS parameters{arguments, nullptr, 2, 0};
    const auto sinks = sinks_;  // one may disconnect while it is called
    for (const auto& [cookie, sink] : sinks)
        sink->Invoke(1, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr,
                     nullptr);
}

}  // namespace sample

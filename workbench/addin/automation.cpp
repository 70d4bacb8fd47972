#include "workbench/addin/automation.h"

#include <olectl.h>

#include <string_view>

#include "workbench/addin/contract.h"
#include "workbench/answers.h"

namespace workbench {
namespace {

std::wstring quoted(BSTR text) { return L"\"" + com::toText(text) + L"\""; }

const wchar_t* shown(VARIANT_BOOL value) { return value != VARIANT_FALSE ? L"true" : L"false"; }

VARIANT_BOOL automationBool(bool value) { return value ? VARIANT_TRUE : VARIANT_FALSE; }

/// Long texts are noted by their length.
std::wstring summary(BSTR text) {
    constexpr UINT LONGEST = 60;
    return SysStringLen(text) <= LONGEST ? quoted(text)
                                         : std::to_wstring(SysStringLen(text)) + L" characters";
}

void leaveErrorInformation(std::wstring description) {
    com::Ptr<ICreateErrorInfo> creator;
    if (description.empty() || FAILED(CreateErrorInfo(creator.out()))) return;
    std::wstring source = ADDIN_PROG_ID;
    creator->SetGUID(__uuidof(IOlAddIn));
    creator->SetSource(source.data());
    creator->SetDescription(description.data());
    SetErrorInfo(0, creator.as<IErrorInfo>().get());
}

/// The type library that this program carries.
com::Ptr<ITypeLib> ownTypeLibrary() {
    wchar_t path[MAX_PATH];
    com::Ptr<ITypeLib> library;
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    LoadTypeLibEx(path, REGKIND_NONE, library.out());
    return library;
}

/// Walks over one connection point.
class PointEnumerator final : public IEnumConnectionPoints {
public:
    explicit PointEnumerator(IConnectionPoint* point, bool given = false) : point_(point), given_(given) {}
    ~PointEnumerator() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        if (object == nullptr) return E_POINTER;
        *object = nullptr;
        if (iid != __uuidof(IUnknown) && iid != __uuidof(IEnumConnectionPoints)) return E_NOINTERFACE;
        return give(this, object);
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }
    HRESULT STDMETHODCALLTYPE Next(ULONG count, IConnectionPoint** points, ULONG* fetched) override {
        if (points == nullptr || (fetched == nullptr && count != 1)) return E_POINTER;
        const ULONG here = count > 0 && !given_ ? 1 : 0;
        if (fetched != nullptr) *fetched = here;
        if (here == 1) *points = com::Ptr(point_).detach();
        given_ = given_ || here == 1;
        return here == count ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
        const bool possible = count == 0 || (count == 1 && !given_);
        given_ = given_ || count > 0;
        return possible ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Reset() override {
        given_ = false;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Clone(IEnumConnectionPoints** copy) override {
        if (copy == nullptr) return E_POINTER;
        *copy = new PointEnumerator(point_.get(), given_);
        return S_OK;
    }

private:
    ULONG references_ = 1;
    com::Ptr<IConnectionPoint> point_;
    bool given_;
};

}  // namespace

Automation::Automation(StandIn& standIn, CallList& calls) : standIn_(&standIn), calls_(calls) {
    if (const com::Ptr<ITypeLib> library = ownTypeLibrary()) {
        library->GetTypeInfoOfGuid(__uuidof(OlAddIn), classInformation_.out());
        library->GetTypeInfoOfGuid(__uuidof(IOlAddIn), interfaceInformation_.out());
    }
}

void Automation::disconnect() {
    standIn_ = nullptr;
    sinks_.clear();
}

bool Automation::isGone() const { return standIn_ == nullptr || standIn_->behaviour.away; }

// --- Operations -------------------------------------------------------------------------------------------

template <class Action>
HRESULT Automation::answer(const wchar_t* operation, const std::wstring& arguments, Action action) {
    if (isGone()) return RPC_E_DISCONNECTED;
    try {
        standIn_->world.beforeAnswer(std::wstring_view(operation) == L"IsSearching");
        // Messages may have run meanwhile, and ended the add-in.
        if (isGone()) return RPC_E_DISCONNECTED;
        const auto failure = standIn_->behaviour.failures.find(operation);
        const bool fails = failure != standIn_->behaviour.failures.end();
        calls_.note(side::pageToAddIn, operation, fails ? arguments + L" (fails)" : arguments);
        if (fails) {
            leaveErrorInformation(failure->second);
            return E_FAIL;
        }
        action();
        return S_OK;
    } catch (...) {
        return E_UNEXPECTED;
    }
}

HRESULT Automation::answerQuestion(const wchar_t* operation, bool (StandIn::*question)() const,
                                   VARIANT_BOOL* result) {
    if (result == nullptr) return E_POINTER;
    *result = automationBool(standIn_ != nullptr && (standIn_->*question)());
    return answer(operation, std::wstring(L"= ") + shown(*result), [] {});
}

HRESULT Automation::reserved(int position) {
    if (isGone()) return RPC_E_DISCONNECTED;
    calls_.note(side::pageToAddIn, L"position " + std::to_wstring(position));
    return E_NOTIMPL;
}

HRESULT Automation::SetDefaultKnowledgebase(BSTR name) {
    return answer(L"SetDefaultKnowledgebase", quoted(name), [] {});
}

HRESULT Automation::SetLogging(VARIANT_BOOL on) {
    return answer(L"SetLogging", shown(on), [] {});
}

HRESULT Automation::NotifyKbAdded(BSTR name) {
    return answer(L"NotifyKbAdded", quoted(name), [&] { standIn_->added(com::toText(name)); });
}

HRESULT Automation::NotifyKbRemoved(BSTR name) {
    return answer(L"NotifyKbRemoved", quoted(name), [&] { standIn_->removed(com::toText(name)); });
}

HRESULT Automation::NotifyKbRenamed(BSTR oldName, BSTR newName) {
    return answer(L"NotifyKbRenamed", quoted(oldName) + L", " + quoted(newName),
                  [&] { standIn_->renamed(com::toText(oldName), com::toText(newName)); });
}

HRESULT Automation::NotifyKbRebuild(BSTR name) {
    return answer(L"NotifyKbRebuild", quoted(name), [&] { standIn_->rebuild(com::toText(name)); });
}

HRESULT Automation::NotifyKbUpdate(BSTR name) {
    return answer(L"NotifyKbUpdate", quoted(name), [&] { standIn_->update(com::toText(name)); });
}

HRESULT Automation::IsProcessing(VARIANT_BOOL* result) {
    return answerQuestion(L"IsProcessing", &StandIn::isProcessing, result);
}

HRESULT Automation::IsAutoUpdateRunning(VARIANT_BOOL* result) {
    return answerQuestion(L"IsAutoUpdateRunning", &StandIn::isAutoUpdateRunning, result);
}

HRESULT Automation::SendMail(BSTR subject, BSTR body, BSTR richBody, BSTR to, BSTR cc, long importance,
                             VARIANT_BOOL flag) {
    const std::wstring arguments = quoted(subject) + L", " + summary(body) + L", " + summary(richBody) +
                                   L", " + quoted(to) + L", " + quoted(cc) + L", " +
                                   std::to_wstring(importance) + L", " + shown(flag);
    bool sent = true;
    const HRESULT result = answer(L"SendMail", arguments, [&] {
        sent = standIn_->send({com::toText(subject), com::toText(body), com::toText(richBody),
                               com::toText(to), com::toText(cc), importance});
    });
    if (sent) return result;
    leaveErrorInformation(L"The report cannot be written to " + standIn_->behaviour.mailFolder + L".");
    return E_FAIL;
}

HRESULT Automation::SetFindShortcut(long shortcut) {
    return answer(L"SetFindShortcut", std::to_wstring(shortcut), [] {});
}

HRESULT Automation::IsSearching(VARIANT_BOOL* result) {
    return answerQuestion(L"IsSearching", &StandIn::isSearching, result);
}

// --- The event --------------------------------------------------------------------------------------------

void Automation::raiseProcessFinished(const std::wstring& project, bool keepList) {
    const com::Bstr name(project);
    VARIANTARG reversed[2]{};
    reversed[0].vt = VT_BOOL;
    reversed[0].boolVal = automationBool(keepList);
    reversed[1].vt = VT_BSTR;
    reversed[1].bstrVal = name.get();
    DISPPARAMS parameters{reversed, nullptr, 2, 0};
    const auto sinks = sinks_;  // a sink may disconnect while it is called
    for (const auto& [cookie, sink] : sinks)
        sink->Invoke(1, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr,
                     nullptr);
}

HRESULT Automation::EnumConnectionPoints(IEnumConnectionPoints** points) {
    if (points == nullptr) return E_POINTER;
    *points = new PointEnumerator(this);
    return S_OK;
}

HRESULT Automation::FindConnectionPoint(REFIID source, IConnectionPoint** point) {
    if (point == nullptr) return E_POINTER;
    *point = nullptr;
    if (source != __uuidof(_IOlAddInEvents)) return CONNECT_E_NOCONNECTION;
    *point = com::Ptr<IConnectionPoint>(this).detach();
    return S_OK;
}

HRESULT Automation::GetConnectionInterface(IID* source) {
    if (source == nullptr) return E_POINTER;
    *source = __uuidof(_IOlAddInEvents);
    return S_OK;
}

HRESULT Automation::GetConnectionPointContainer(IConnectionPointContainer** container) {
    if (container == nullptr) return E_POINTER;
    *container = com::Ptr<IConnectionPointContainer>(this).detach();
    return S_OK;
}

HRESULT Automation::Advise(IUnknown* sink, DWORD* cookie) {
    if (sink == nullptr || cookie == nullptr) return E_POINTER;
    if (isGone()) return RPC_E_DISCONNECTED;
    com::Ptr<IDispatch> events;
    if (FAILED(sink->QueryInterface(__uuidof(_IOlAddInEvents), events.outVoid())) &&
        FAILED(sink->QueryInterface(__uuidof(IDispatch), events.outVoid())))
        return CONNECT_E_CANNOTCONNECT;
    *cookie = nextCookie_++;
    sinks_.emplace(*cookie, std::move(events));
    calls_.note(side::pageToAddIn, L"connects to the event");
    return S_OK;
}

HRESULT Automation::Unadvise(DWORD cookie) {
    if (sinks_.erase(cookie) == 0) return CONNECT_E_NOCONNECTION;
    calls_.note(side::pageToAddIn, L"disconnects from the event");
    return S_OK;
}

HRESULT Automation::EnumConnections(IEnumConnections** connections) {
    if (connections != nullptr) *connections = nullptr;
    return E_NOTIMPL;
}

// --- Identity and types -----------------------------------------------------------------------------------

HRESULT Automation::QueryInterface(REFIID iid, void** object) {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (iid == __uuidof(IUnknown) || iid == __uuidof(IDispatch) || iid == __uuidof(IOlAddIn))
        return give(static_cast<IOlAddIn*>(this), object);
    if (iid == __uuidof(IConnectionPointContainer))
        return give(static_cast<IConnectionPointContainer*>(this), object);
    if (iid == __uuidof(IProvideClassInfo) || iid == __uuidof(IProvideClassInfo2))
        return give(static_cast<IProvideClassInfo2*>(this), object);
    if (iid == __uuidof(ISupportErrorInfo)) return give(static_cast<ISupportErrorInfo*>(this), object);
    return E_NOINTERFACE;
}

ULONG Automation::AddRef() { return ++references_; }

ULONG Automation::Release() {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
}

HRESULT Automation::GetTypeInfoCount(UINT* count) {
    if (count == nullptr) return E_POINTER;
    *count = interfaceInformation_ ? 1 : 0;
    return S_OK;
}

HRESULT Automation::GetTypeInfo(UINT index, LCID, ITypeInfo** information) {
    if (information == nullptr) return E_POINTER;
    *information = nullptr;
    if (index != 0 || !interfaceInformation_) return DISP_E_BADINDEX;
    *information = com::Ptr<ITypeInfo>(interfaceInformation_).detach();
    return S_OK;
}

HRESULT Automation::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* identifiers) {
    if (!interfaceInformation_) return E_NOTIMPL;
    return interfaceInformation_->GetIDsOfNames(names, count, identifiers);
}

HRESULT Automation::Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                           EXCEPINFO* exception, UINT* wrongArgument) {
    if (!interfaceInformation_) return E_NOTIMPL;
    return interfaceInformation_->Invoke(static_cast<IOlAddIn*>(this), member, flags, parameters, result,
                                         exception, wrongArgument);
}

HRESULT Automation::GetClassInfo(ITypeInfo** information) {
    if (information == nullptr) return E_POINTER;
    *information = com::Ptr<ITypeInfo>(classInformation_).detach();
    return *information != nullptr ? S_OK : E_FAIL;
}

HRESULT Automation::GetGUID(DWORD kind, GUID* identifier) {
    if (identifier == nullptr) return E_POINTER;
    *identifier = {};
    if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID) return E_INVALIDARG;
    *identifier = __uuidof(_IOlAddInEvents);
    return S_OK;
}

HRESULT Automation::InterfaceSupportsErrorInfo(REFIID iid) {
    return iid == __uuidof(IOlAddIn) ? S_OK : S_FALSE;
}

}  // namespace workbench

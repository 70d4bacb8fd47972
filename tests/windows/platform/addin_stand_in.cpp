#include "tests/windows/platform/addin_stand_in.h"

#include "RenumberedEvents.h"
#include "windows/platform/module.h"

namespace tests {
namespace {

std::string quoted(BSTR text) {
    if (text == nullptr) return "none";
    const std::wstring wide = com::toText(text);
    return "\"" + std::string(wide.begin(), wide.end()) + "\"";
}

void leaveErrorInformation(const std::wstring& description) {
    com::Ptr<ICreateErrorInfo> creator;
    CreateErrorInfo(creator.out());
    std::wstring text = description;
    creator->SetDescription(text.data());
    SetErrorInfo(0, creator.as<IErrorInfo>().get());
}

/// The one connection point, as a list.
class OnePoint final : public IEnumConnectionPoints {
public:
    explicit OnePoint(IConnectionPoint* point) : point_(point) {}
    ~OnePoint() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** object) override {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }
    HRESULT STDMETHODCALLTYPE Next(ULONG, IConnectionPoint** points, ULONG* fetched) override {
        if (fetched != nullptr) *fetched = given_ ? 0 : 1;
        if (given_) return S_FALSE;
        given_ = true;
        *points = com::Ptr<IConnectionPoint>(point_).detach();
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reset() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Clone(IEnumConnectionPoints**) override { return E_NOTIMPL; }

private:
    ULONG references_ = 1;
    IConnectionPoint* point_;
    bool given_ = false;
};

template <class Interface>
HRESULT give(Interface* object, void** out) {
    object->AddRef();
    *out = object;
    return S_OK;
}

}  // namespace

com::Ptr<ITypeInfo> addInTypeInformation(REFGUID identifier, const wchar_t* libraryNumber) {
    com::Ptr<ITypeLib> library;
    com::Ptr<ITypeInfo> information;
    const std::wstring file = win::modulePath(win::thisModule()) + L"\\" + libraryNumber;
    if (SUCCEEDED(LoadTypeLibEx(file.c_str(), REGKIND_NONE, library.out())))
        library->GetTypeInfoOfGuid(identifier, information.out());
    return information;
}

// --- The add-in's operations ------------------------------------------------------------------------------

HRESULT AddInStandIn::noted(const std::string& line) {
    calls.push_back(line);
    if (FAILED(answer) && !description.empty()) leaveErrorInformation(description);
    return answer;
}

HRESULT AddInStandIn::answered(const char* operation, VARIANT_BOOL* result) {
    *result = flag;
    return noted(std::string(operation) + "()");
}

HRESULT AddInStandIn::reserved(int position) { return noted("position " + std::to_string(position)); }

HRESULT AddInStandIn::SetDefaultKnowledgebase(BSTR name) {
    return noted("SetDefaultKnowledgebase(" + quoted(name) + ")");
}
HRESULT AddInStandIn::SetLogging(VARIANT_BOOL on) { return noted("SetLogging(" + std::to_string(on) + ")"); }
HRESULT AddInStandIn::NotifyKbAdded(BSTR name) { return noted("NotifyKbAdded(" + quoted(name) + ")"); }
HRESULT AddInStandIn::NotifyKbRemoved(BSTR name) { return noted("NotifyKbRemoved(" + quoted(name) + ")"); }
HRESULT AddInStandIn::NotifyKbRenamed(BSTR oldName, BSTR newName) {
    return noted("NotifyKbRenamed(" + quoted(oldName) + ", " + quoted(newName) + ")");
}
HRESULT AddInStandIn::NotifyKbRebuild(BSTR name) { return noted("NotifyKbRebuild(" + quoted(name) + ")"); }
HRESULT AddInStandIn::NotifyKbUpdate(BSTR name) { return noted("NotifyKbUpdate(" + quoted(name) + ")"); }
HRESULT AddInStandIn::IsProcessing(VARIANT_BOOL* result) { return answered("IsProcessing", result); }
HRESULT AddInStandIn::IsAutoUpdateRunning(VARIANT_BOOL* result) {
    return answered("IsAutoUpdateRunning", result);
}
HRESULT AddInStandIn::SendMail(BSTR subject, BSTR body, BSTR richBody, BSTR to, BSTR cc, long importance,
                               VARIANT_BOOL flagArgument) {
    return noted("SendMail(" + quoted(subject) + ", " + quoted(body) + ", " + quoted(richBody) + ", " +
                 quoted(to) + ", " + quoted(cc) + ", " + std::to_string(importance) + ", " +
                 std::to_string(flagArgument) + ")");
}
HRESULT AddInStandIn::SetFindShortcut(long shortcut) {
    return noted("SetFindShortcut(" + std::to_string(shortcut) + ")");
}
HRESULT AddInStandIn::IsSearching(VARIANT_BOOL* result) { return answered("IsSearching", result); }

// --- Its event --------------------------------------------------------------------------------------------

HRESULT AddInStandIn::raise(DISPID member, std::vector<VARIANTARG> reversedArguments) {
    DISPPARAMS parameters{reversedArguments.data(), nullptr, static_cast<UINT>(reversedArguments.size()), 0};
    HRESULT result = S_OK;
    const auto sinks = sinks_;  // a sink may disconnect while it is called
    for (const auto& [cookie, sink] : sinks)
        result = sink->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr,
                              nullptr, nullptr);
    return result;
}

HRESULT AddInStandIn::raiseProcessFinished(const std::wstring& project, bool keepList) {
    const com::Bstr text(project);
    VARIANTARG name{};
    name.vt = VT_BSTR;
    name.bstrVal = text.get();
    VARIANTARG keep{};
    keep.vt = VT_BOOL;
    keep.boolVal = keepList ? VARIANT_TRUE : VARIANT_FALSE;
    return raise(1, {keep, name});
}

const IID& AddInStandIn::source() const {
    return offer.renumbered ? __uuidof(_IRenumberedEvents) : __uuidof(_IOlAddInEvents);
}

HRESULT AddInStandIn::QueryInterface(REFIID iid, void** object) {
    if (iid == __uuidof(IUnknown) || iid == __uuidof(IDispatch) || iid == __uuidof(IOlAddIn))
        return give(static_cast<IOlAddIn*>(this), object);
    if (iid == __uuidof(IConnectionPointContainer) && offer.connectionPoints)
        return give(static_cast<IConnectionPointContainer*>(this), object);
    if (iid == __uuidof(IConnectionPoint)) return give(static_cast<IConnectionPoint*>(this), object);
    const bool classInformation = iid == __uuidof(IProvideClassInfo) || iid == __uuidof(IProvideClassInfo2);
    if (classInformation && offer.classInformation)
        return give(static_cast<IProvideClassInfo2*>(this), object);
    *object = nullptr;
    return E_NOINTERFACE;
}

HRESULT AddInStandIn::GetTypeInfo(UINT, LCID, ITypeInfo** information) {
    if (!offer.typeInformation) return E_NOTIMPL;
    *information = addInTypeInformation(__uuidof(IOlAddIn)).detach();
    return S_OK;
}

HRESULT AddInStandIn::EnumConnectionPoints(IEnumConnectionPoints** points) {
    *points = new OnePoint(this);
    return S_OK;
}

HRESULT AddInStandIn::FindConnectionPoint(REFIID wanted, IConnectionPoint** point) {
    *point = nullptr;
    if (wanted != source()) return CONNECT_E_NOCONNECTION;
    *point = com::Ptr<IConnectionPoint>(this).detach();
    return S_OK;
}

HRESULT AddInStandIn::GetConnectionInterface(IID* identifier) {
    *identifier = source();
    return S_OK;
}

HRESULT AddInStandIn::GetConnectionPointContainer(IConnectionPointContainer** container) {
    *container = com::Ptr<IConnectionPointContainer>(this).detach();
    return S_OK;
}

HRESULT AddInStandIn::Advise(IUnknown* sink, DWORD* cookie) {
    if (FAILED(offer.advise) && !offer.keepsWhatItRefuses) return offer.advise;
    com::Ptr<IDispatch> events;
    // As add-ins do: they ask for their own source interface.
    if (FAILED(sink->QueryInterface(source(), events.outVoid()))) return CONNECT_E_CANNOTCONNECT;
    *cookie = nextCookie_++;
    sinks_.emplace(*cookie, std::move(events));
    return offer.advise;
}

HRESULT AddInStandIn::Unadvise(DWORD cookie) {
    return sinks_.erase(cookie) == 1 ? S_OK : CONNECT_E_NOCONNECTION;
}

HRESULT AddInStandIn::GetClassInfo(ITypeInfo** information) {
    *information = nullptr;
    if (!offer.typeInformation) return E_NOTIMPL;
    *information = (offer.renumbered ? addInTypeInformation(__uuidof(RenumberedAddIn), L"11")
                                     : addInTypeInformation(__uuidof(OlAddIn)))
                       .detach();
    return *information != nullptr ? S_OK : E_FAIL;
}

HRESULT AddInStandIn::GetGUID(DWORD kind, GUID* identifier) {
    *identifier = {};
    if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID) return E_INVALIDARG;
    *identifier = source();
    return S_OK;
}

}  // namespace tests

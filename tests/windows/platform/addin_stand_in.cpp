#include "tests/windows/platform/addin_stand_in.h"

#include "RenumberedEvents.h"
#include "tests/windows/stage/variants.h"
#include "windows/com/snapshot_enumerator.h"
#include "windows/platform/module.h"

namespace tests {
namespace {

void leaveErrorInformation(const std::wstring& description) {
    com::Ptr<ICreateErrorInfo> creator;
    CreateErrorInfo(creator.out());
    std::wstring text = description;
    creator->SetDescription(text.data());
    SetErrorInfo(0, creator.as<IErrorInfo>().get());
}

template <class Interface>
HRESULT give(Interface* object, void** out) {
    object->AddRef();
    *out = object;
    return S_OK;
}

}  // namespace

void registerAddIn() {
    wchar_t classId[39];  // the text of a GUID and its end, no more: COM reads no longer value
    StringFromGUID2(__uuidof(OlAddIn), classId, 39);
    RegSetKeyValueW(HKEY_LOCAL_MACHINE, L"Software\\Classes\\Tarnwell.OlAddIn.1\\CLSID", nullptr, REG_SZ,
                    classId, sizeof classId);
}

com::Ptr<ITypeInfo> addInTypeInformation(REFGUID identifier, const wchar_t* libraryNumber) {
    com::Ptr<ITypeLib> library;
    com::Ptr<ITypeInfo> information;
    const std::wstring file = win::modulePath(win::thisModule()) + L"\\" + libraryNumber;
    if (SUCCEEDED(LoadTypeLibEx(file.c_str(), REGKIND_NONE, library.out())))
        library->GetTypeInfoOfGuid(identifier, information.out());
    return information;
}

// --- The add-in's operations ------------------------------------------------------------------------------

HRESULT AddInStandIn::called(const std::string& operation, const std::string& arguments) {
    calls.push_back(operation + "(" + arguments + ")");
    if (FAILED(answer) && !description.empty()) leaveErrorInformation(description);
    return answer;
}

std::string AddInStandIn::shown(BSTR text) {
    if (text == nullptr) return "none";
    const std::wstring wide = com::toText(text);
    return "\"" + std::string(wide.begin(), wide.end()) + "\"";
}

HRESULT AddInStandIn::answered(const char* operation, VARIANT_BOOL* result) {
    *result = flag;
    return noted(operation);
}

// --- Its event --------------------------------------------------------------------------------------------

HRESULT AddInStandIn::raise(DISPID member, std::vector<VARIANTARG> reversedArguments) const {
    DISPPARAMS parameters{reversedArguments.data(), nullptr, static_cast<UINT>(reversedArguments.size()), 0};
    std::vector<com::Ptr<IDispatch>> all = kept_;  // a sink may disconnect while it is called
    for (const auto& [cookie, sink] : connected_) all.push_back(sink);
    HRESULT result = S_OK;
    for (const auto& sink : all)
        result = sink->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr,
                              nullptr, nullptr);
    return result;
}

HRESULT AddInStandIn::raiseProcessFinished(const std::wstring& project, bool keepList) const {
    const com::Bstr name(project);
    return raise(1, {tests::flag(keepList), text(name.get())});
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
    *points = new com::SnapshotEnumerator<IEnumConnectionPoints, IConnectionPoint*>({this});
    return noted("EnumConnectionPoints");
}

HRESULT AddInStandIn::FindConnectionPoint(REFIID wanted, IConnectionPoint** point) {
    *point = nullptr;
    if (wanted != source()) return CONNECT_E_NOCONNECTION;
    *point = com::Ptr<IConnectionPoint>(this).detach();
    return noted("FindConnectionPoint");
}

HRESULT AddInStandIn::GetConnectionInterface(IID* identifier) {
    *identifier = source();
    return noted("GetConnectionInterface");
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
    connected_.emplace(*cookie, std::move(events));
    noted("Advise");
    return offer.advise;
}

HRESULT AddInStandIn::Unadvise(DWORD cookie) {
    const auto found = connected_.find(cookie);
    if (found == connected_.end()) return CONNECT_E_NOCONNECTION;
    if (offer.keepsSinks) kept_.push_back(found->second);
    connected_.erase(found);
    return noted("Unadvise");
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

#include "windows/platform/addin_sink.h"

#include <utility>

namespace win {
namespace {

constexpr UINT ARGUMENTS = 2;  // strProject, bKeepList

/// A reference that points nowhere would be followed by the conversion.
bool pointsNowhere(const VARIANTARG& argument) {
    return (argument.vt & VT_BYREF) != 0 && argument.byref == nullptr;
}

bool wellFormed(const DISPPARAMS& parameters) {
    for (UINT i = 0; i < parameters.cArgs; ++i)
        if (pointsNowhere(parameters.rgvarg[i])) return false;
    return true;
}

/// The arguments of one event, converted to their types.
struct EventArguments {
    com::Variant project;
    com::Variant keepList;

    HRESULT read(DISPPARAMS& parameters, UINT* wrongArgument) {
        UINT unused = 0;
        UINT* wrong = wrongArgument != nullptr ? wrongArgument : &unused;
        const HRESULT result = DispGetParam(&parameters, 0, VT_BSTR, &project, wrong);
        return FAILED(result) ? result : DispGetParam(&parameters, 1, VT_BOOL, &keepList, wrong);
    }
};

}  // namespace

AddInSink::AddInSink(const ProcessFinishedEvent& event, vexa::AddIn::ProcessFinished handler)
    : event_(event), handler_(std::make_shared<const vexa::AddIn::ProcessFinished>(std::move(handler))) {}

void AddInSink::disconnect() noexcept {
    connected_ = false;
    calls_.close();
    handler_.reset();
}

HRESULT AddInSink::QueryInterface(REFIID iid, void** object) noexcept {
    return Counted::QueryInterface(iid == event_.source ? __uuidof(IDispatch) : iid, object);
}

HRESULT AddInSink::GetTypeInfoCount(UINT* count) noexcept {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return S_OK;
}

HRESULT AddInSink::GetTypeInfo(UINT, LCID, ITypeInfo** information) noexcept {
    if (information != nullptr) *information = nullptr;
    return E_NOTIMPL;
}

HRESULT AddInSink::GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept {
    return DISP_E_UNKNOWNNAME;
}

HRESULT AddInSink::Invoke(DISPID member, REFIID iid, LCID, WORD flags, DISPPARAMS* parameters, VARIANT*,
                          EXCEPINFO*, UINT* wrongArgument) noexcept {
    if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (!connected_ || member != event_.member || (flags & DISPATCH_METHOD) == 0)
        return DISP_E_MEMBERNOTFOUND;
    if (parameters == nullptr || parameters->cArgs != ARGUMENTS) return DISP_E_BADPARAMCOUNT;
    if (!wellFormed(*parameters)) return DISP_E_TYPEMISMATCH;
    try {
        EventArguments arguments;
        const HRESULT result = arguments.read(*parameters, wrongArgument);
        if (FAILED(result)) return result;
        return accept({com::toText(arguments.project.bstrVal), arguments.keepList.boolVal != VARIANT_FALSE});
    } catch (...) {
        return E_FAIL;
    }
}

HRESULT AddInSink::accept(Event event) {
    // Whatever a handler does, the sink stays until it has returned.
    const com::Ptr<IDispatch> self(this);
    if (!calls_.onOwnThread())
        return calls_.post([this, self, event = std::move(event)] { static_cast<void>(handle(event)); })
                   ? S_OK
                   : DISP_E_MEMBERNOTFOUND;
    // What other threads have raised before comes first.
    calls_.runWaiting();
    return handle(event) ? S_OK : DISP_E_MEMBERNOTFOUND;
}

/// False after the end of the connection.
bool AddInSink::handle(const Event& event) {
    // Held here, because the handler may end the connection.
    const auto handler = handler_;
    if (handler) (*handler)(event.project, event.keepList);
    return handler != nullptr;
}

}  // namespace win

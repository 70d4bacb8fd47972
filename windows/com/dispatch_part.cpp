#include "windows/com/dispatch_part.h"

#include <olectl.h>

#include "windows/com/names.h"

namespace com {
namespace {

const wchar_t* describe(HRESULT code) {
    switch (code) {
        case CTL_E_SETNOTPERMITTED: return L"The container does not permit this change.";
        case E_POINTER: return L"A place for the result is missing.";
        case E_OUTOFMEMORY: return L"Out of memory.";
        case E_INVALIDARG: return L"The value is not valid for this property.";
        default: return L"The operation failed.";
    }
}

bool fits(const FUNCDESC& function, DISPID member, WORD flags) {
    return function.memid == member && (function.invkind & flags) != 0;
}

}  // namespace

void checkCount(ITypeInfo& description, DISPID member, WORD flags, UINT arguments) {
    FUNCDESC* function = nullptr;
    for (UINT index = 0; SUCCEEDED(description.GetFuncDesc(index, &function)); ++index) {
        const bool tooMany =
            fits(*function, member, flags) && arguments > static_cast<UINT>(function->cParams);
        description.ReleaseFuncDesc(function);
        if (tooMany) throw Failure(DISP_E_BADPARAMCOUNT);
    }
}

void leaveErrorInfo(REFIID iid, HRESULT code) noexcept {
    Ptr<ICreateErrorInfo> information;
    if (FAILED(CreateErrorInfo(information.out()))) return;
    information->SetGUID(iid);
    information->SetSource(const_cast<LPOLESTR>(PROG_ID));
    information->SetDescription(const_cast<LPOLESTR>(describe(code)));
    if (const auto error = information.as<IErrorInfo>()) SetErrorInfo(0, error.get());
}

}  // namespace com

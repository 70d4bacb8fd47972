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

/// The description of the member that a call of this kind reaches; it goes back with the object.
class Function {
public:
    Function(ITypeInfo& interfaceInfo, DISPID member, WORD flags) : info_(interfaceInfo) {
        for (UINT index = 0; SUCCEEDED(info_.GetFuncDesc(index, &description_)); ++index) {
            if (description_->memid == member && (description_->invkind & flags) != 0) return;
            info_.ReleaseFuncDesc(description_);
        }
        description_ = nullptr;
    }
    Function(const Function&) = delete;
    Function& operator=(const Function&) = delete;
    ~Function() {
        if (description_ != nullptr) info_.ReleaseFuncDesc(description_);
    }
    [[nodiscard]] const FUNCDESC* get() const { return description_; }

private:
    ITypeInfo& info_;
    FUNCDESC* description_ = nullptr;
};

/// Makes of a reference to a variable of any type one to a value of `type`, converting the variable.
void referToValue(VARIANTARG& argument, const TYPEDESC& type) {
    if (type.vt != VT_PTR || argument.vt != (VT_BYREF | VT_VARIANT)) return;
    VARIANT& variable = *argument.pvarVal;
    const VARTYPE wanted = type.lptdesc->vt;
    check(VariantChangeType(&variable, &variable, 0, wanted));
    argument.vt = VT_BYREF | wanted;
    argument.byref = &variable.byref;
}

}  // namespace

std::vector<VARIANTARG> fittingArguments(ITypeInfo& description, DISPID member, WORD flags,
                                         const DISPPARAMS& parameters) {
    std::vector<VARIANTARG> arguments(parameters.rgvarg, parameters.rgvarg + parameters.cArgs);
    const Function function(description, member, flags);
    if (function.get() == nullptr) return arguments;
    const auto count = static_cast<std::size_t>(function.get()->cParams);
    if (arguments.size() > count) throw Failure(DISP_E_BADPARAMCOUNT);
    // Arguments come in reverse order.
    for (std::size_t i = 0; i < arguments.size(); ++i)
        referToValue(arguments[arguments.size() - 1 - i], function.get()->lprgelemdescParam[i].tdesc);
    return arguments;
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

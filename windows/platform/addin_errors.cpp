#include "windows/platform/addin_errors.h"

#include "common/error.h"
#include "interfaces/com.h"
#include "windows/platform/text.h"

namespace win {

void throwIfFailed(HRESULT code) {
    if (SUCCEEDED(code)) return;
    com::Ptr<IErrorInfo> information;
    com::Bstr description;
    if (GetErrorInfo(0, information.out()) == S_OK) information->GetDescription(description.out());
    const std::wstring text = com::toText(description.get());
    throw vexa::Error(text.empty() ? systemErrorText(static_cast<DWORD>(code)) : text);
}

}  // namespace win

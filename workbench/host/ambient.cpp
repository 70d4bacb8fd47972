#include "workbench/host/ambient.h"

#include <olectl.h>

#include "interfaces/com.h"

namespace workbench {
namespace {

constexpr LONG SYSTEM_COLOUR = static_cast<LONG>(0x80000000);  // an OLE_COLOR that names a system colour

void setBool(VARIANT& result, bool value) {
    result.vt = VT_BOOL;
    result.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
}

void setLong(VARIANT& result, LONG value) {
    result.vt = VT_I4;
    result.lVal = value;
}

/// The font of dialogs.
HRESULT setFont(VARIANT& result) {
    wchar_t name[] = L"MS Shell Dlg 2";
    FONTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = name;
    description.cySize.int64 = 8 * 10'000;  // points, as currency
    description.sWeight = FW_NORMAL;
    description.sCharset = DEFAULT_CHARSET;
    com::Ptr<IDispatch> font;
    const HRESULT made = OleCreateFontIndirect(&description, __uuidof(IDispatch), font.outVoid());
    if (FAILED(made)) return made;
    result.vt = VT_DISPATCH;
    result.pdispVal = font.detach();
    return S_OK;
}

}  // namespace

HRESULT ambientProperty(DISPID property, VARIANT& result) {
    VariantInit(&result);
    switch (property) {
        case DISPID_AMBIENT_DISPLAYNAME:
            result.vt = VT_BSTR;
            result.bstrVal = SysAllocString(PAGE_NAME);
            return result.bstrVal != nullptr ? S_OK : E_OUTOFMEMORY;
        case DISPID_AMBIENT_FONT: return setFont(result);
        case DISPID_AMBIENT_BACKCOLOR: setLong(result, SYSTEM_COLOUR | COLOR_BTNFACE); return S_OK;
        case DISPID_AMBIENT_FORECOLOR: setLong(result, SYSTEM_COLOUR | COLOR_BTNTEXT); return S_OK;
        case DISPID_AMBIENT_LOCALEID: setLong(result, static_cast<LONG>(GetUserDefaultLCID())); return S_OK;
        case DISPID_AMBIENT_USERMODE:
        case DISPID_AMBIENT_SUPPORTSMNEMONICS: setBool(result, true); return S_OK;
        case DISPID_AMBIENT_UIDEAD:
        case DISPID_AMBIENT_SHOWGRABHANDLES:
        case DISPID_AMBIENT_SHOWHATCHING:
        case DISPID_AMBIENT_DISPLAYASDEFAULT: setBool(result, false); return S_OK;
        default: return DISP_E_MEMBERNOTFOUND;
    }
}

}  // namespace workbench

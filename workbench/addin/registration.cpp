#include "workbench/addin/registration.h"

#include <ole2.h>

#include <string>

#include "TarnwellAddIn.h"
#include "workbench/addin/contract.h"

namespace workbench {
namespace {

const std::wstring CLASSES = L"Software\\Classes\\";

std::wstring classIdentifier() {
    wchar_t text[40];
    StringFromGUID2(__uuidof(OlAddIn), text, 40);
    return text;
}

bool setDefault(const std::wstring& key, const std::wstring& text) {
    const auto size = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
    return RegSetKeyValueW(HKEY_LOCAL_MACHINE, (CLASSES + key).c_str(), nullptr, REG_SZ, text.c_str(),
                           size) == ERROR_SUCCESS;
}

}  // namespace

bool registerAddInClass() {
    const std::wstring name = L"Stand-in add-in of the Quillmark workbench";
    const std::wstring progId = ADDIN_PROG_ID;
    return setDefault(progId, name) && setDefault(progId + L"\\CLSID", classIdentifier()) &&
           setDefault(L"CLSID\\" + classIdentifier(), name) &&
           setDefault(L"CLSID\\" + classIdentifier() + L"\\ProgID", progId);
}

void unregisterAddInClass() {
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, (CLASSES + ADDIN_PROG_ID).c_str());
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, (CLASSES + L"CLSID\\" + classIdentifier()).c_str());
}

bool RunningObject::start() {
    return running() ||
           SUCCEEDED(RegisterActiveObject(&object_, __uuidof(OlAddIn), ACTIVEOBJECT_STRONG, &registration_));
}

void RunningObject::stop() {
    if (registration_ != 0) RevokeActiveObject(registration_, nullptr);
    registration_ = 0;
}

}  // namespace workbench

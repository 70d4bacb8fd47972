// The five functions that the library exports.
#include <olectl.h>
#include <windows.h>

#include "VexaPPE.h"
#include "interfaces/com.h"
#include "windows/com/boundary.h"
#include "windows/com/class_factory.h"
#include "windows/com/registration.h"
#include "windows/com/runtime.h"
#include "windows/platform/module_reference.h"

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) DisableThreadLibraryCalls(instance);
    return TRUE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, void** out) {
    return com::atBoundary([&] {
        com::required(out) = nullptr;
        if (classId != CLSID_ctlPPE) return CLASS_E_CLASSNOTAVAILABLE;
        const auto factory = com::Ptr<com::ClassFactory>::attach(new com::ClassFactory);
        return factory->QueryInterface(iid, out);
    });
}

STDAPI DllCanUnloadNow() {
    using win::ModuleReference;
    // Letting go of the add-in may run foreign code, which may make a page.
    return ModuleReference::none() && com::Runtime::shutDown() && ModuleReference::none() ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer() { return com::registerClass(HKEY_LOCAL_MACHINE); }

STDAPI DllUnregisterServer() { return com::unregisterClass(HKEY_LOCAL_MACHINE); }

/// "user" registers for the current user, without elevation; "machine", or nothing, for everybody.
STDAPI DllInstall(BOOL install, LPCWSTR commandLine) {
    const auto is = [&](const wchar_t* word) { return commandLine && _wcsicmp(commandLine, word) == 0; };
    HKEY hive = HKEY_LOCAL_MACHINE;
    if (is(L"user"))
        hive = HKEY_CURRENT_USER;
    else if (commandLine != nullptr && *commandLine != L'\0' && !is(L"machine"))
        return E_INVALIDARG;
    return install ? com::registerClass(hive) : com::unregisterClass(hive);
}

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

#ifdef VEXAPPE_TRACE
#include "windows/trace/traced_factory.h"
using Factory = trace::TracedFactory;
#else
using Factory = com::ClassFactory;
#endif

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) DisableThreadLibraryCalls(instance);
    return TRUE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, void** out) {
    return com::atBoundary([&] {
        com::required(out) = nullptr;
        if (classId != CLSID_ctlPPE) return CLASS_E_CLASSNOTAVAILABLE;
        const auto factory = com::Ptr<Factory>::attach(new Factory);
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

namespace {

using Action = HRESULT (*)(HKEY) noexcept;

struct Place {
    const wchar_t* word;
    HKEY hive;
    Action install;
    Action uninstall;
};

const Place PLACES[] = {
    {L"", HKEY_LOCAL_MACHINE, com::registerClass, com::unregisterClass},
    {L"machine", HKEY_LOCAL_MACHINE, com::registerClass, com::unregisterClass},
    {L"user", HKEY_CURRENT_USER, com::registerClass, com::unregisterClass},
    {L"check", HKEY_LOCAL_MACHINE, com::isClassRegistered, com::isClassRegistered},
    {L"check-user", HKEY_CURRENT_USER, com::isClassRegistered, com::isClassRegistered},
};

}  // namespace

/// "user" registers for the current user, without elevation; "machine", or nothing, for everybody. "check"
/// and "check-user" change nothing: they fail where this file is not, or not wholly, registered there.
STDAPI DllInstall(BOOL install, LPCWSTR commandLine) {
    const wchar_t* word = commandLine == nullptr ? L"" : commandLine;
    for (const Place& place : PLACES)
        if (_wcsicmp(word, place.word) == 0) return (install ? place.install : place.uninstall)(place.hive);
    return E_INVALIDARG;
}

#include "workbench/host/control_source.h"

#include <cwchar>

#include "workbench/addin/contract.h"

namespace workbench {
namespace {

std::wstring codeText(const wchar_t* what, HRESULT code) {
    wchar_t text[200];
    std::swprintf(text, 200, L"%ls failed with 0x%08lX.", what, static_cast<unsigned long>(code));
    return text;
}

/// The first class of the file's type library that is a control.
HRESULT controlClass(const std::wstring& file, CLSID& identifier) {
    com::Ptr<ITypeLib> library;
    const HRESULT loaded = LoadTypeLibEx(file.c_str(), REGKIND_NONE, library.out());
    if (FAILED(loaded)) return loaded;
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
        com::Ptr<ITypeInfo> information;
        TYPEATTR* attributes = nullptr;
        if (FAILED(library->GetTypeInfo(i, information.out())) ||
            FAILED(information->GetTypeAttr(&attributes)))
            continue;
        identifier = attributes->guid;
        const bool found =
            attributes->typekind == TKIND_COCLASS && (attributes->wTypeFlags & TYPEFLAG_FCONTROL) != 0;
        information->ReleaseTypeAttr(attributes);
        if (found) return S_OK;
    }
    return CLASS_E_CLASSNOTAVAILABLE;
}

/// Stays loaded as long as the process, as Outlook's pages do.
HMODULE loadFile(const std::wstring& file) {
    return LoadLibraryExW(file.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
}

HRESULT createFromFile(const std::wstring& file, com::Ptr<IUnknown>& page) {
    CLSID identifier{};
    const HRESULT known = controlClass(file, identifier);
    if (FAILED(known)) return known;
    const HMODULE library = loadFile(file);
    if (library == nullptr) return HRESULT_FROM_WIN32(GetLastError());
    const auto getClassObject = reinterpret_cast<LPFNGETCLASSOBJECT>(
        reinterpret_cast<void*>(GetProcAddress(library, "DllGetClassObject")));
    if (getClassObject == nullptr) return HRESULT_FROM_WIN32(GetLastError());
    com::Ptr<IClassFactory> factory;
    const HRESULT got = getClassObject(identifier, __uuidof(IClassFactory), factory.outVoid());
    return FAILED(got) ? got : factory->CreateInstance(nullptr, __uuidof(IUnknown), page.outVoid());
}

HRESULT createRegistered(com::Ptr<IUnknown>& page) {
    CLSID identifier{};
    const HRESULT known = CLSIDFromProgID(PAGE_PROG_ID, &identifier);
    if (FAILED(known)) return known;
    return CoCreateInstance(identifier, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IUnknown), page.outVoid());
}

/// The class's library; loaded, but not kept so.
HMODULE loadRegistered() {
    CLSID identifier{};
    com::Ptr<IClassFactory> factory;
    if (FAILED(CLSIDFromProgID(PAGE_PROG_ID, &identifier))) return nullptr;
    if (FAILED(CoGetClassObject(identifier, CLSCTX_INPROC_SERVER, nullptr, __uuidof(IClassFactory),
                                factory.outVoid())))
        return nullptr;
    return GetModuleHandleW(L"VexaPPE.ocx");
}

}  // namespace

HMODULE loadPage(const std::wstring& file) { return file.empty() ? loadRegistered() : loadFile(file); }

com::Ptr<IUnknown> createPage(const std::wstring& file, std::wstring& reason) {
    com::Ptr<IUnknown> page;
    const HRESULT created = file.empty() ? createRegistered(page) : createFromFile(file, page);
    if (SUCCEEDED(created)) return page;
    reason = codeText(file.empty() ? PAGE_PROG_ID : file.c_str(), created);
    return {};
}

}  // namespace workbench

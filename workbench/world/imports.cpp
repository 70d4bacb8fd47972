#include "workbench/world/imports.h"

namespace workbench {
namespace {

template <class Type>
Type* at(HMODULE library, DWORD offset) {
    return reinterpret_cast<Type*>(reinterpret_cast<BYTE*>(library) + offset);
}

void replace(IMAGE_THUNK_DATA& slot, void* function) {
    DWORD protection = 0;
    if (!VirtualProtect(&slot, sizeof slot, PAGE_READWRITE, &protection)) return;
    slot.u1.Function = reinterpret_cast<ULONG_PTR>(function);
    VirtualProtect(&slot, sizeof slot, protection, &protection);
}

void replaceImport(HMODULE library, const IMAGE_THUNK_DATA& name, IMAGE_THUNK_DATA& slot,
                   const std::vector<Replacement>& replacements) {
    if (IMAGE_SNAP_BY_ORDINAL(name.u1.Ordinal)) return;
    const auto* import = at<IMAGE_IMPORT_BY_NAME>(library, static_cast<DWORD>(name.u1.AddressOfData));
    for (const Replacement& replacement : replacements)
        if (replacement.name == reinterpret_cast<const char*>(import->Name))
            replace(slot, replacement.function);
}

}  // namespace

void replaceImports(HMODULE library, const std::vector<Replacement>& replacements) {
    if (library == nullptr) return;
    const auto* headers =
        at<IMAGE_NT_HEADERS>(library, static_cast<DWORD>(at<IMAGE_DOS_HEADER>(library, 0)->e_lfanew));
    const auto& directory = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    if (directory.VirtualAddress == 0) return;
    for (auto* from = at<IMAGE_IMPORT_DESCRIPTOR>(library, directory.VirtualAddress); from->Name != 0;
         ++from) {
        const auto* name = at<IMAGE_THUNK_DATA>(library, from->OriginalFirstThunk);
        auto* slot = at<IMAGE_THUNK_DATA>(library, from->FirstThunk);
        for (; name->u1.AddressOfData != 0; ++name, ++slot)
            replaceImport(library, *name, *slot, replacements);
    }
}

}  // namespace workbench

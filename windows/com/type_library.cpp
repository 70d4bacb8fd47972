#include "windows/com/type_library.h"

#include "windows/com/boundary.h"
#include "windows/platform/module.h"

namespace com {

Ptr<ITypeInfo> typeInfo(REFGUID guid) {
    // Not kept: the system holds a library's description once, however often it is asked for, and lets it go
    // with the last user.
    Ptr<ITypeLib> library;
    check(LoadTypeLibEx(win::modulePath(win::thisModule()).c_str(), REGKIND_NONE, library.out()));
    Ptr<ITypeInfo> info;
    check(library->GetTypeInfoOfGuid(guid, info.out()));
    return info;
}

}  // namespace com

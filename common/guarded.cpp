#include "common/guarded.h"

#include "common/application.h"

namespace vexa {

void logCurrentError(Application& application, const wchar_t* name, const wchar_t* procedure) noexcept {
    try {
        application.WriteLogLine(std::wstring(name) + L", Error " + procedure + L": " +
                                 currentErrorDescription());
    } catch (...) {
        return;  // no memory for the line
    }
}

}  // namespace vexa

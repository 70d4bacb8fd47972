// What happens to the windows of the control's thread: where they are, how they are scaled, who has the
// focus.
#pragma once

#include <windows.h>

namespace trace {

/// While it lives, such messages of this thread's windows are noted.
class WindowTrace {
public:
    WindowTrace();
    WindowTrace(const WindowTrace&) = delete;
    WindowTrace& operator=(const WindowTrace&) = delete;
    ~WindowTrace();

private:
    HHOOK hook_;
};

}  // namespace trace

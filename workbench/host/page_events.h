// What a hosted page asks of the dialog around it.
#pragma once

#include <windows.h>

namespace workbench {

class PageEvents {
public:
    virtual ~PageEvents() = default;
    /// The page may have become dirty.
    virtual void statusChanged() = 0;
    /// A key that the page leaves to the dialog; true where the dialog has used it.
    virtual bool leftoverKey(MSG& message) = 0;
};

}  // namespace workbench

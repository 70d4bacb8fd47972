// What the page needs of the container that shows it.
#pragma once

#include <string>

namespace vexa {

class PageSite {
public:
    virtual ~PageSite() = default;
    /// Tells the host that the page's state changed (it then asks Dirty). Does nothing where the container
    /// is no property page site. Throws Error where the call fails.
    virtual void onStatusChange() = 0;
    /// The container's name for the control; empty where it gives none.
    [[nodiscard]] virtual std::wstring displayName() = 0;
};

}  // namespace vexa

// The container as the control sees it. Everything that a container can offer is optional: a missing
// interface or a refused call changes nothing.
#pragma once

#include <ocidl.h>
#include <ole2.h>

#include "OutlookPages.h"
#include "interfaces/com.h"
#include "page/page_site.h"

namespace com {

class Container : public vexa::PageSite {
public:
    /// Null leaves the container and gives up every reference to it.
    void enter(IOleClientSite* site);
    /// Gives up the host's page site; the client site stays until the container takes it back.
    void leavePageSite() { pageSite_.reset(); }
    [[nodiscard]] const Ptr<IOleClientSite>& site() const { return site_; }

    // What the page needs of it.
    void onStatusChange() override;
    [[nodiscard]] std::wstring displayName() override;

    /// The ambient property, converted to `type`; false where the container has none.
    [[nodiscard]] bool ambient(DISPID property, VARTYPE type, VARIANT& value) const;
    /// A copy of the ambient font; empty where there is none.
    [[nodiscard]] Ptr<IFontDisp> ambientFont() const;
    /// The container wants no input to its controls.
    [[nodiscard]] bool isDead() const;

    /// True where the container has used the key.
    [[nodiscard]] bool offerKey(MSG& message) const;

private:
    Ptr<IOleClientSite> site_;
    Ptr<PropertyPageSite> pageSite_;
};

/// A font of its own with the same attributes; empty where `font` is none that can be copied.
[[nodiscard]] Ptr<IFontDisp> copyOf(IUnknown* font);

}  // namespace com

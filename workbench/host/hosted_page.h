// A property page in its place: made, shown, asked, and let go in the order in which Outlook does it.
#pragma once

#include "workbench/host/page_site.h"

namespace workbench {

class HostedPage {
public:
    /// `parent` is the window that the page is to fill.
    HostedPage(com::Ptr<IUnknown> object, HWND parent, PageEvents& events, CallList& calls);
    HostedPage(const HostedPage&) = delete;
    HostedPage& operator=(const HostedPage&) = delete;
    ~HostedPage();

    /// Activates the page in place.
    void show();
    [[nodiscard]] bool dirty();
    void apply();
    /// The caption that the control gives itself; empty where it gives none.
    [[nodiscard]] std::wstring caption();

    /// A message for a window inside the page, or an access key of the page: true where the page has used it.
    bool translate(MSG& message);

private:
    bool pressAccessKey(MSG& message);

    com::Ptr<IUnknown> object_;
    HWND parent_;
    CallList& calls_;
    com::Ptr<PageSite> site_;
    com::Ptr<IOleObject> ole_;
    com::Ptr<PropertyPage> page_;
};

}  // namespace workbench

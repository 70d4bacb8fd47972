// What the container tells the control and asks of its keys.
#pragma once

#include <ocidl.h>

#include "windows/com/in_place.h"
#include "windows/com/keyboard.h"
#include "windows/com/notifier.h"
#include "windows/com/page_host.h"
#include "windows/com/part.h"

namespace com {

class ControlEvents : public Part<IOleControl> {
public:
    ControlEvents(IUnknown& whole, PageHost& page, InPlace& inPlace, Notifier& notifier)
        : Part(whole), page_(page), inPlace_(inPlace), notifier_(notifier) {}

    STDMETHODIMP GetControlInfo(CONTROLINFO* information) noexcept override;
    STDMETHODIMP OnMnemonic(MSG* message) noexcept override;
    STDMETHODIMP OnAmbientPropertyChange(DISPID property) noexcept override;
    /// Holds the notifications of changed properties back until the container has called as often with FALSE.
    STDMETHODIMP FreezeEvents(BOOL freeze) noexcept override;

private:
    PageHost& page_;
    InPlace& inPlace_;
    Notifier& notifier_;
    AccessKeyTable keys_;
};

}  // namespace com

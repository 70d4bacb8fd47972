#include "windows/com/control_events.h"

#include <olectl.h>

#include "windows/com/boundary.h"

namespace com {

STDMETHODIMP ControlEvents::GetControlInfo(CONTROLINFO* information) noexcept {
    return atBoundary([&] {
        CONTROLINFO& place = required(information);
        if (!page_.isOpen()) return E_UNEXPECTED;
        // The table stays the same while the container may use it: the captions do not change.
        if (keys_.handle() == nullptr) keys_.make(accessKeys(page_.window()));
        place.hAccel = keys_.handle();
        place.cAccel = keys_.size();
        place.dwFlags = 0;
        return S_OK;
    });
}

STDMETHODIMP ControlEvents::OnMnemonic(MSG* message) noexcept {
    return atBoundary([&] {
        const MSG& key = required(message);
        if (!page_.isOpen()) return E_UNEXPECTED;
        pressAccessKey(page_.window(), static_cast<wchar_t>(key.wParam));
        return S_OK;
    });
}

STDMETHODIMP ControlEvents::OnAmbientPropertyChange(DISPID property) noexcept {
    return atBoundary([&] {
        // Nothing is kept of the others: each is asked for when it is needed.
        if (property == DISPID_AMBIENT_UIDEAD || property == DISPID_UNKNOWN) inPlace_.followUiDead();
        inPlace_.repaint();
        return S_OK;
    });
}

STDMETHODIMP ControlEvents::FreezeEvents(BOOL freeze) noexcept {
    return atBoundary([&] {
        if (freeze)
            notifier_.freeze();
        else
            notifier_.thaw();
        return S_OK;
    });
}

}  // namespace com

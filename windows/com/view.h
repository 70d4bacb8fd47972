// The control's picture and size for containers that show it inactive.
#pragma once

#include <ole2.h>

#include "interfaces/com.h"
#include "windows/com/part.h"

namespace com {

class View : public Part<IViewObject2> {
public:
    using Part::Part;

    // IViewObject
    /// The caption on the colour of dialogs.
    STDMETHODIMP Draw(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* target, HDC targetContext,
                      HDC context, LPCRECTL bounds, LPCRECTL metafileBounds,
                      BOOL(STDMETHODCALLTYPE* proceed)(ULONG_PTR), ULONG_PTR parameter) noexcept override;
    STDMETHODIMP GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC, LOGPALETTE**) noexcept override {
        return E_NOTIMPL;
    }
    STDMETHODIMP Freeze(DWORD, LONG, void*, DWORD*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP Unfreeze(DWORD) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP SetAdvise(DWORD aspect, DWORD flags, IAdviseSink* sink) noexcept override;
    STDMETHODIMP GetAdvise(DWORD* aspect, DWORD* flags, IAdviseSink** sink) noexcept override;

    // IViewObject2
    STDMETHODIMP GetExtent(DWORD aspect, LONG index, DVTARGETDEVICE* target, LPSIZEL size) noexcept override;

    /// Hundredths of a millimetre.
    [[nodiscard]] const SIZEL& extent() const { return extent_; }
    /// Tells the viewer where the size changes.
    void setExtent(const SIZEL& extent);
    void disconnect() { sink_.reset(); }

private:
    void tellViewer();

    SIZEL extent_{};
    Ptr<IAdviseSink> sink_;
    DWORD sinkAspect_ = 0;
    DWORD sinkFlags_ = 0;
};

/// Pixels of the screen in hundredths of a millimetre.
[[nodiscard]] SIZEL toHimetric(const SIZE& pixels);

}  // namespace com

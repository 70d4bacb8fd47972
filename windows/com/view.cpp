#include "windows/com/view.h"

#include "windows/com/boundary.h"
#include "windows/com/names.h"

namespace com {
namespace {

constexpr int HIMETRIC_PER_INCH = 2540;

void checkAspect(DWORD aspect) {
    if (aspect != DVASPECT_CONTENT) throw Failure(DV_E_DVASPECT);
}

void drawCaption(HDC context, RECT area) {
    const int saved = SaveDC(context);
    FillRect(context, &area, GetSysColorBrush(COLOR_BTNFACE));
    SelectObject(context, GetStockObject(DEFAULT_GUI_FONT));
    SetBkMode(context, TRANSPARENT);
    SetTextColor(context, GetSysColor(COLOR_BTNTEXT));
    DrawTextW(context, CAPTION, -1, &area, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
    RestoreDC(context, saved);
}

}  // namespace

SIZEL toHimetric(const SIZE& pixels) {
    const HDC screen = GetDC(nullptr);
    const SIZEL size{MulDiv(pixels.cx, HIMETRIC_PER_INCH, GetDeviceCaps(screen, LOGPIXELSX)),
                     MulDiv(pixels.cy, HIMETRIC_PER_INCH, GetDeviceCaps(screen, LOGPIXELSY))};
    ReleaseDC(nullptr, screen);
    return size;
}

STDMETHODIMP View::Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC, HDC context, LPCRECTL bounds,
                        LPCRECTL, BOOL(STDMETHODCALLTYPE*)(ULONG_PTR), ULONG_PTR) noexcept {
    return atBoundary([&] {
        checkAspect(aspect);
        const RECTL& area = required(bounds);
        if (context == nullptr) return E_INVALIDARG;
        drawCaption(context, {area.left, area.top, area.right, area.bottom});
        return S_OK;
    });
}

STDMETHODIMP View::SetAdvise(DWORD aspect, DWORD flags, IAdviseSink* sink) noexcept {
    return atBoundary([&] {
        if (sink != nullptr) checkAspect(aspect);
        sink_ = Ptr<IAdviseSink>(sink);
        sinkAspect_ = aspect;
        sinkFlags_ = flags;
        if ((flags & ADVF_PRIMEFIRST) != 0) tellViewer();
        return S_OK;
    });
}

STDMETHODIMP View::GetAdvise(DWORD* aspect, DWORD* flags, IAdviseSink** sink) noexcept {
    if (aspect != nullptr) *aspect = sinkAspect_;
    if (flags != nullptr) *flags = sinkFlags_;
    if (sink != nullptr) *sink = Ptr<IAdviseSink>(sink_).detach();
    return S_OK;
}

STDMETHODIMP View::GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*, LPSIZEL size) noexcept {
    return atBoundary([&] {
        SIZEL& place = required(size);
        checkAspect(aspect);
        place = extent_;
        return S_OK;
    });
}

void View::setExtent(const SIZEL& extent) {
    if (extent.cx == extent_.cx && extent.cy == extent_.cy) return;
    extent_ = extent;
    tellViewer();
}

void View::tellViewer() {
    const Ptr<IAdviseSink> sink = sink_;
    if (!sink) return;
    if ((sinkFlags_ & ADVF_ONLYONCE) != 0) sink_.reset();
    sink->OnViewChange(DVASPECT_CONTENT, -1);
}

}  // namespace com

#include "windows/com/page_host.h"

#include <commctrl.h>

#include "common/guarded.h"
#include "page/ctlPPE.ids.h"
#include "windows/com/boundary.h"
#include "windows/com/runtime.h"

namespace com {
namespace {

constexpr UINT_PTR WATCH = 1;

}  // namespace

// --- Life -------------------------------------------------------------------------------------------------

PageHost::Busy::Busy(PageHost& host) : host_(host) {
    host_.whole_.AddRef();
    ++host_.running_;
}

PageHost::Busy::~Busy() {
    if (--host_.running_ == 0 && !host_.open_) host_.destroyWindows();
    host_.whole_.Release();
}

void PageHost::start() {
    runtime_ = &Runtime::enter(*this);
    parking_ = std::make_unique<HostWindow>();
    page_ = std::make_unique<vexa::ctlPPE>(
        runtime_->application(), runtime_->screen().createPage(IDD_ctlPPE, parking_->handle()), site_);
    const ui::Size size = page_->window().outerSize();
    naturalSize_ = {size.width, size.height};
    open_ = true;
    const Busy busy(*this);
    watchWindows();
    page_->UserControl_Initialize();
}

void PageHost::close() noexcept {
    if (!open_) return;
    open_ = false;
    // What these two set off is no end of a handler yet.
    ++running_;
    page_->UserControl_Terminate();
    park();
    --running_;
    if (running_ == 0)
        destroyWindows();
    else
        cancelDialogs();
}

void PageHost::destroyWindows() noexcept {
    unwatchWindows();
    parking_.reset();
}

PageHost::~PageHost() {
    close();
    page_.reset();
    if (runtime_ != nullptr) runtime_->leave(*this);
}

void PageHost::cancelDialogs() noexcept {
    if (running_ == 0) return;
    vexa::attempt([&] { runtime_->screen().closeAll(); });
}

void PageHost::tellModal(bool runs) {
    if (running_ > 0 && onModal) onModal(runs);
}

// --- Windows ----------------------------------------------------------------------------------------------

HWND PageHost::window() const { return open_ ? reinterpret_cast<HWND>(page_->window().handle()) : nullptr; }

void PageHost::moveInto(HWND frame, const RECT& place) {
    const HWND page = window();
    SetParent(page, frame);
    // Access keys and focus marks show where the container shows them.
    const LRESULT cues = SendMessageW(frame, WM_QUERYUISTATE, 0, 0);
    SendMessageW(page, WM_UPDATEUISTATE, MAKEWPARAM(UIS_SET, cues), 0);
    SetWindowPos(page, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

void PageHost::park() noexcept {
    if (page_ == nullptr || parking_ == nullptr || parking_->handle() == nullptr) return;
    const auto page = reinterpret_cast<HWND>(page_->window().handle());
    ShowWindow(page, SW_HIDE);
    SetParent(page, parking_->handle());
}

void PageHost::watchWindows() {
    const HWND page = window();
    watch(page, reinterpret_cast<LPARAM>(this));
    EnumChildWindows(page, watch, reinterpret_cast<LPARAM>(this));
}

void PageHost::unwatchWindows() noexcept {
    for (const HWND window : watched_) RemoveWindowSubclass(window, watched, WATCH);
    watched_.clear();
}

BOOL CALLBACK PageHost::watch(HWND window, LPARAM host) noexcept {
    auto& self = *reinterpret_cast<PageHost*>(host);
    vexa::attempt([&] {
        self.watched_.push_back(window);
        SetWindowSubclass(window, watched, WATCH, static_cast<DWORD_PTR>(host));
    });
    return TRUE;
}

/// Every message to the page or one of its controls may run a handler that lets others run; the host may
/// close the page meanwhile.
LRESULT CALLBACK PageHost::watched(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                   DWORD_PTR host) noexcept {
    auto& self = *reinterpret_cast<PageHost*>(host);
    const Busy busy(self);
    const LRESULT result = DefSubclassProc(window, message, wParam, lParam);
    vexa::attempt([&] { self.heard(message, reinterpret_cast<HWND>(wParam)); });
    return result;
}

void PageHost::heard(UINT message, HWND other) const {
    if (message != WM_SETFOCUS && message != WM_KILLFOCUS) return;
    const bool within = other != nullptr && (other == window() || IsChild(window(), other));
    if (open_ && !within && onFocus) onFocus(message == WM_SETFOCUS);
}

}  // namespace com

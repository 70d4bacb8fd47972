#include "windows/com/page_host.h"

#include "common/guarded.h"
#include "page/ctlPPE.ids.h"
#include "windows/com/boundary.h"
#include "windows/com/runtime.h"

namespace com {

// --- Life -------------------------------------------------------------------------------------------------

void PageHost::begin() noexcept {
    whole_.AddRef();
    ++running_;
}

void PageHost::end() noexcept {
    if (--running_ == 0 && !open_) destroyWindows();
    whole_.Release();
}

void PageHost::start() {
    runtime_ = &Runtime::enter(*this);
    parking_ = std::make_unique<HostWindow>();
    page_ = std::make_unique<vexa::ctlPPE>(
        runtime_->application(), runtime_->screen().createPage(IDD_ctlPPE, parking_->handle(), this), site_);
    const ui::Size size = page_->window().outerSize();
    naturalSize_ = {size.width, size.height};
    open_ = true;
    const Busy busy(*this);
    watches_ = true;
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
    watches_ = false;
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

/// Every message to the page or one of its controls may run a handler that lets others run; the host may
/// close the page meanwhile.
bool PageHost::messageBegins() noexcept {
    if (watches_) begin();
    return watches_;
}

void PageHost::messageEnded(UINT message, WPARAM parameter) noexcept {
    vexa::attempt([&] { tellFocus(message, reinterpret_cast<HWND>(parameter)); });
    end();
}

void PageHost::tellFocus(UINT message, HWND other) const {
    if (message != WM_SETFOCUS && message != WM_KILLFOCUS) return;
    const bool within = other != nullptr && (other == window() || IsChild(window(), other));
    if (open_ && !within && onFocus) onFocus(message == WM_SETFOCUS);
}

}  // namespace com

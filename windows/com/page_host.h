// The page inside the control: its windows, its start and its end. Its window exists from the start on and
// moves between the hidden window and the container's.
#pragma once

#include <ole2.h>
#include <windows.h>

#include <functional>
#include <memory>

#include "page/ctlPPE.h"
#include "windows/com/host_window.h"
#include "windows/controls/message_hook.h"

namespace com {

class Runtime;

class PageHost : private win::MessageWatch {
public:
    /// `whole` is the control that lives at least as long as one of the page's handlers runs.
    PageHost(IUnknown& whole, vexa::PageSite& site) : whole_(whole), site_(site) {}
    PageHost(const PageHost&) = delete;
    PageHost& operator=(const PageHost&) = delete;
    ~PageHost();

    /// Makes the windows and starts the page. Throws Failure or vexa::Error.
    void start();
    /// Ends the page, once. Where one of its handlers runs, its dialogs are ended and its window goes when
    /// the handler has returned. What the page knows stays as long as this object.
    void close() noexcept;
    [[nodiscard]] bool isOpen() const { return open_; }
    /// Ends the dialogs that the page has open.
    void cancelDialogs() noexcept;

    /// Null before the start and after the end.
    [[nodiscard]] HWND window() const;
    /// Pixels: the size of the page's template.
    [[nodiscard]] SIZE naturalSize() const { return naturalSize_; }
    /// Shows the page in `frame`, at `place` in it.
    void moveInto(HWND frame, const RECT& place);
    /// Hides the page, out of the container's reach.
    void park() noexcept;

    /// Calls `use` with the page, open or ended; the control lives on meanwhile.
    template <class Use>
    void use(Use use) {
        if (page_ == nullptr) return;
        const Busy busy(*this);
        use(*page_);
    }

    /// Dialogs run modally, or have ended; heard only while the page is at work.
    std::function<void(bool)> onModal;
    /// The focus has come into the page, or has left it.
    std::function<void(bool)> onFocus;

    void tellModal(bool runs);

private:
    /// Code of the page runs: its window and the control stay until it has returned.
    class Busy {
    public:
        explicit Busy(PageHost& host) : host_(host) { host_.begin(); }
        Busy(const Busy&) = delete;
        Busy& operator=(const Busy&) = delete;
        ~Busy() { host_.end(); }

    private:
        PageHost& host_;
    };

    void begin() noexcept;
    void end() noexcept;
    [[nodiscard]] bool messageBegins() noexcept override;
    void messageEnded(UINT message, WPARAM parameter) noexcept override;
    void tellFocus(UINT message, HWND other) const;
    void destroyWindows() noexcept;

    IUnknown& whole_;
    vexa::PageSite& site_;
    Runtime* runtime_ = nullptr;
    std::unique_ptr<HostWindow> parking_;
    std::unique_ptr<vexa::ctlPPE> page_;
    SIZE naturalSize_{};
    bool open_ = false;
    /// The page has its windows, and what they are told counts.
    bool watches_ = false;
    int running_ = 0;
};

}  // namespace com

#include "windows/controls/picture.h"

#include "windows/controls/screen.h"
#include "windows/controls/template_reader.h"
#include "windows/controls/window.h"

namespace win {

Picture::Picture(Window& window, HWND handle)
    : ControlOf(window, handle),
      resource_(
          titleResource(window.screen().instance(), window.templateIdentifier(), GetDlgCtrlID(handle))) {
    load();
}

Picture::~Picture() {
    if (icon_ == nullptr) return;
    if (window() != nullptr) send(STM_SETICON, 0);
    DestroyIcon(icon_);
}

void Picture::move(const ui::Rect& bounds) {
    ControlOf::move(bounds);
    load();
}

void Picture::load() {
    const ui::Rect place = bounds();
    const ui::Size size{place.width, place.height};
    if (resource_ == 0 || size == loaded_ || size.width <= 0 || size.height <= 0) return;
    const auto icon = static_cast<HICON>(LoadImageW(dialog().screen().instance(), MAKEINTRESOURCEW(resource_),
                                                    IMAGE_ICON, size.width, size.height, LR_DEFAULTCOLOR));
    if (icon == nullptr) return;
    send(STM_SETICON, reinterpret_cast<WPARAM>(icon));
    if (icon_ != nullptr) DestroyIcon(icon_);
    icon_ = icon;
    loaded_ = size;
}

}  // namespace win

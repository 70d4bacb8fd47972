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

void Picture::move(const ui::Rect& bounds) {
    ControlOf::move(bounds);
    load();
}

void Picture::load() {
    const ui::Rect place = bounds();
    const ui::Size size{place.width, place.height};
    if (resource_ == 0 || size == loaded_ || size.width <= 0 || size.height <= 0) return;
    const HICON icon = dialog().screen().icons().icon(resource_, size.width, size.height);
    if (icon == nullptr) return;
    send(STM_SETICON, reinterpret_cast<WPARAM>(icon));
    loaded_ = size;
}

}  // namespace win

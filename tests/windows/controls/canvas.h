// Where tests draw.
#pragma once

#include <windows.h>

namespace tests {

/// A canvas in memory, of one colour at first.
class Canvas {
public:
    Canvas(int width, int height, COLORREF ground = 0) {
        const HDC screen = GetDC(nullptr);
        context = CreateCompatibleDC(screen);
        bitmap_ = CreateCompatibleBitmap(screen, width, height);
        ReleaseDC(nullptr, screen);
        before_ = SelectObject(context, bitmap_);
        const HBRUSH brush = CreateSolidBrush(ground);
        const RECT area{0, 0, width, height};
        FillRect(context, &area, brush);
        DeleteObject(brush);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    ~Canvas() {
        SelectObject(context, before_);
        DeleteObject(bitmap_);
        DeleteDC(context);
    }

    HDC context = nullptr;

private:
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ before_ = nullptr;
};

}  // namespace tests

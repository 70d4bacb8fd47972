// A top-level window that holds a page, as the dialog of a host does.
#pragma once

#include <windows.h>

#include "ui/geometry.h"

namespace tests {

class Container {
public:
    /// `size` is that of the inner area, in pixels.
    explicit Container(const ui::Size& size);
    Container(const Container&) = delete;
    Container& operator=(const Container&) = delete;
    ~Container();

    [[nodiscard]] HWND window() const { return handle_; }
    /// Fills the inner area with the page and shows both.
    void show(HWND page);

private:
    HWND handle_;
};

}  // namespace tests

// A tab control: the system's. The controls of its pages are its siblings and lie above it.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include "ui/tabstrip.h"
#include "windows/controls/control_base.h"

namespace win {

class TabStrip : public ControlOf<ui::TabStrip> {
public:
    using ControlOf::ControlOf;
    ~TabStrip() override;
    std::optional<LRESULT> onNotify(NMHDR& notification) override;
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void coloursChanged() override { forgetInside(); }
    HBRUSH backgroundFor(HDC canvas, HWND control) override;
    /// Frames fill themselves with the dialog's background, so the inside of the pages is part of it.
    bool paintBackground(HDC canvas) override;

    void addTab(const std::wstring& caption) override;
    [[nodiscard]] int count() const override { return static_cast<int>(send(TCM_GETITEMCOUNT)); }
    [[nodiscard]] std::wstring tabCaption(int index) const override;
    [[nodiscard]] int current() const override { return static_cast<int>(send(TCM_GETCURSEL)); }
    void setCurrent(int index) override;

private:
    /// The inside of the pages as the theme paints it; null without themes, where they look like the dialog.
    [[nodiscard]] HBRUSH inside();
    [[nodiscard]] RECT insideArea() const;
    void forgetInside();

    HBRUSH inside_ = nullptr;
};

}  // namespace win

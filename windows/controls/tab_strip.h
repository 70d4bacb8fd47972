// A tab control: the system's. The controls of its pages are its siblings and lie above it.
#pragma once

#include "ui/tabstrip.h"
#include "windows/controls/control_base.h"

namespace win {

class TabStrip : public ControlOf<ui::TabStrip> {
public:
    using ControlOf::ControlOf;
    ~TabStrip() override;
    std::optional<LRESULT> onNotify(NMHDR& notification) override;
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    HBRUSH backgroundFor(HDC canvas, HWND control) override;
    /// Frames fill themselves with the dialog's background, so the body is part of it.
    bool paintBackground(HDC canvas) override;

    void addTab(const std::wstring& caption) override;
    [[nodiscard]] int count() const override;
    [[nodiscard]] std::wstring tabCaption(int index) const override;
    [[nodiscard]] int current() const override;
    void setCurrent(int index) override;

private:
    /// False without themes, where the pages look like the dialog.
    [[nodiscard]] bool hasBody();
    void paintBody();
    void forgetBody();

    /// The strip and its body as the theme paints them, to be laid behind the controls of the pages.
    HBITMAP body_ = nullptr;
    HBRUSH brush_ = nullptr;
};

}  // namespace win

// A drop-down list: the system's combo box.
#pragma once

#include "ui/controls.h"
#include "windows/controls/control_base.h"

namespace win {

class ComboBox : public ControlOf<ui::ComboBox> {
public:
    using ControlOf::ControlOf;
    void onCommand(int code) override;
    void move(const ui::Rect& bounds) override;
    void clear() override { send(CB_RESETCONTENT); }
    void add(const std::wstring& item) override;
    [[nodiscard]] int count() const override { return static_cast<int>(send(CB_GETCOUNT)); }
    [[nodiscard]] std::wstring item(int index) const override;
    [[nodiscard]] int selectedIndex() const override { return static_cast<int>(send(CB_GETCURSEL)); }
    void select(int index) override;
    [[nodiscard]] bool droppedDown() const override { return send(CB_GETDROPPEDSTATE) != 0; }
    [[nodiscard]] bool pointerInside() const override;
    void draw(const ui::Strokes& strokes) override;

private:
    static constexpr int NO_ENTRY = -1;
    void tellChoice();
    void widenList();
    [[nodiscard]] int longestItem() const;

    /// What `onClick` has told since the list opened or the program selected an entry.
    int told_ = NO_ENTRY;
};

}  // namespace win

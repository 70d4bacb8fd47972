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
    void clear() override;
    void add(const std::wstring& item) override;
    [[nodiscard]] int count() const override;
    [[nodiscard]] std::wstring item(int index) const override;
    [[nodiscard]] int selectedIndex() const override;
    void select(int index) override;
    [[nodiscard]] bool droppedDown() const override;
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

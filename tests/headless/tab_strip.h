// A strip of tabs in memory.
#pragma once

#include <vector>

#include "tests/headless/plain_controls.h"
#include "ui/tabstrip.h"

namespace headless {

class TabStrip : public KeyTaking<ui::TabStrip> {
public:
    using KeyTaking::KeyTaking;
    void addTab(const std::wstring& caption) override { captions_.push_back(caption); }
    [[nodiscard]] int count() const override { return static_cast<int>(captions_.size()); }
    [[nodiscard]] std::wstring tabCaption(int index) const override {
        return captions_.at(static_cast<std::size_t>(index));
    }
    [[nodiscard]] int current() const override { return captions_.empty() ? -1 : current_; }
    void setCurrent(int index) override {
        if (index < 0 || index >= count() || index == current_) return;
        current_ = index;
        raise(onClick);
    }

    void handleKey(const ui::KeyEvent& event) override {
        if (event.key == tests::key::left) setCurrent(current_ - 1);
        if (event.key == tests::key::right) setCurrent(current_ + 1);
    }

private:
    std::vector<std::wstring> captions_;
    int current_ = 0;
};

}  // namespace headless

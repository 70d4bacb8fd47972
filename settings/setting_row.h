// The tables of the settings dialogs: which control edits which setting.
#pragma once

#include <functional>
#include <vector>

#include "common/application.h"
#include "ui/controls.h"
#include "ui/updown.h"

namespace vexa {

/// A setting and the control that shows and changes it.
class SettingRow {
public:
    SettingRow(ui::CheckBox& box, bool Settings::*flag);
    SettingRow(ui::OptionButton& option, bool Settings::*flag);
    SettingRow(ui::UpDown& upDown, std::int32_t Settings::*number);
    SettingRow(ui::Swatch& swatch, std::int32_t Settings::*colour);
    /// The setting is the index of the list's entry; -1 is none.
    SettingRow(ui::ComboBox& list, std::int32_t Settings::*index);

    [[nodiscard]] const Setting& setting() const { return *setting_; }
    /// The control shows the record's value. Throws where it cannot.
    void load(const Settings& settings) const;
    /// What the control shows, as it is stored: flags as 1 or 0.
    [[nodiscard]] std::int32_t shown() const { return shown_(); }
    /// Puts into the record what the control shows; returns whether that differed.
    bool store(Settings& settings) const;

private:
    const Setting* setting_;
    std::function<void(std::int32_t)> show_;
    std::function<std::int32_t()> shown_;
};

/// In the order in which the rows are loaded and stored.
using SettingTable = std::vector<SettingRow>;

/// A control that cannot show its setting stays as it is; the others show theirs.
void loadTable(const SettingTable& table, const Settings& settings) noexcept;

/// Stores every row in the application's record; a value that differs marks the page changed.
void storeTable(const SettingTable& table, Application& application) noexcept;

}  // namespace vexa

#include "settings/setting_row.h"

#include "common/guarded.h"

namespace vexa {

SettingRow::SettingRow(ui::CheckBox& box, bool Settings::*flag)
    : setting_(&settingOf(flag)),
      show_([&box](std::int32_t value) { box.setChecked(value != 0); }),
      shown_([&box] { return box.checked() ? 1 : 0; }) {}

SettingRow::SettingRow(ui::OptionButton& option, bool Settings::*flag)
    : setting_(&settingOf(flag)),
      show_([&option](std::int32_t value) { option.setSelected(value != 0); }),
      shown_([&option] { return option.selected() ? 1 : 0; }) {}

SettingRow::SettingRow(ui::UpDown& upDown, std::int32_t Settings::*number)
    : setting_(&settingOf(number)),
      show_([&upDown](std::int32_t value) { upDown.setValue(value); }),
      shown_([&upDown] { return upDown.value(); }) {}

SettingRow::SettingRow(ui::Swatch& swatch, std::int32_t Settings::*colour)
    : setting_(&settingOf(colour)),
      show_([&swatch](std::int32_t value) { swatch.setColour(value); }),
      shown_([&swatch] { return swatch.colour(); }) {}

SettingRow::SettingRow(ui::ComboBox& list, std::int32_t Settings::*index)
    : setting_(&settingOf(index)),
      show_([&list](std::int32_t value) { list.select(value); }),
      shown_([&list] { return list.selectedIndex(); }) {}

void SettingRow::load(const Settings& settings) const {
    show_(std::get<std::int32_t>(settingValue(settings, *setting_)));
}

bool SettingRow::store(Settings& settings) const {
    const Value before = settingValue(settings, *setting_);
    storeSetting(settings, *setting_, shown());
    return settingValue(settings, *setting_) != before;
}

void loadTable(const SettingTable& table, const Settings& settings) noexcept {
    for (const SettingRow& row : table) attempt([&] { row.load(settings); });
}

void storeTable(const SettingTable& table, Application& application) noexcept {
    for (const SettingRow& row : table)
        attempt([&] {
            if (row.store(application.settings)) application.flags.dialogChanged = true;
        });
}

}  // namespace vexa

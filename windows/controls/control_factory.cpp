#include "windows/controls/control_factory.h"

#include <stdexcept>

#include "windows/controls/combo_box.h"
#include "windows/controls/grid.h"
#include "windows/controls/list_box.h"
#include "windows/controls/picture.h"
#include "windows/controls/plain_controls.h"
#include "windows/controls/rich_text.h"
#include "windows/controls/swatch.h"
#include "windows/controls/tab_strip.h"
#include "windows/controls/text_box.h"
#include "windows/controls/toolbar.h"
#include "windows/controls/up_down.h"

namespace win {

std::unique_ptr<ControlBase> makeControl(ui::Kind kind, Window& window, HWND control) {
    switch (kind) {
        case ui::Kind::label: return std::make_unique<Label>(window, control);
        case ui::Kind::frame: return std::make_unique<Frame>(window, control);
        case ui::Kind::line: return std::make_unique<Line>(window, control);
        case ui::Kind::picture: return std::make_unique<Picture>(window, control);
        case ui::Kind::button: return std::make_unique<Button>(window, control);
        case ui::Kind::checkBox: return std::make_unique<CheckBox>(window, control);
        case ui::Kind::optionButton: return std::make_unique<OptionButton>(window, control);
        case ui::Kind::swatch: return std::make_unique<Swatch>(window, control);
        case ui::Kind::textBox: return std::make_unique<TextBox>(window, control);
        case ui::Kind::grid: return std::make_unique<Grid>(window, control);
        case ui::Kind::comboBox: return std::make_unique<ComboBox>(window, control);
        case ui::Kind::upDown: return std::make_unique<UpDown>(window, control);
        case ui::Kind::listBox: return std::make_unique<ListBox>(window, control);
        case ui::Kind::tabStrip: return std::make_unique<TabStrip>(window, control);
        case ui::Kind::richText: return std::make_unique<RichText>(window, control);
        case ui::Kind::toolbar: return std::make_unique<Toolbar>(window, control);
        default: throw std::logic_error("no wrapper for this kind of control");
    }
}

}  // namespace win

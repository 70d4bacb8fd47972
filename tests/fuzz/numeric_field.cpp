// Random edits of a number field: the value never leaves its bounds, an emptied field stands for its minimum,
// and a text within the bounds is the value. The entry point is that of libFuzzer.
#include <cstdint>
#include <iterator>
#include <string>

#include "settings/NumericEntryField.h"
#include "settings/frmSettings.ids.h"
#include "tests/fuzz/input.h"
#include "tests/headless/event_loop.h"
#include "tests/headless/locale_conversions.h"
#include "tests/headless/text_box.h"
#include "tests/headless/up_down.h"
#include "tests/headless/window.h"

namespace {

using fuzz::Input;
using fuzz::require;

constexpr vexa::Bounds BOUNDS[] = {{0, 60}, {10, 10000}, {0, 100}, {1, 65000}};

/// Mostly characters that numbers are made of.
const std::wstring COMMON = L"00123456789-+., ()$eE&HhO\t\xFF11\x0663x";

class Field {
public:
    explicit Field(vexa::Bounds bounds)
        : window_(screen_.createDialog(IDD_frmSettings, nullptr)),
          box_(dynamic_cast<headless::TextBox&>(window_->control<ui::TextBox>(IDC_txtDelay))),
          upDown_(dynamic_cast<headless::UpDown&>(window_->control<ui::UpDown>(IDC_updDelay))),
          bounds_(bounds),
          field_(box_, upDown_, bounds, conversions_) {}

    void edit(Input& input) {
        const auto place = [&] {
            return static_cast<int>(input.take(static_cast<std::size_t>(box_.text().size()) + 2));
        };
        switch (input.take(8)) {
            case 0: return box_.paste(input.takeText(24, COMMON));
            case 1: {
                const int start = place();
                return box_.select(start, place());
            }
            case 2: return box_.handleCharacter(L'\b');
            case 3: return box_.handleKey({tests::key::remove, 0});
            case 4: return upDown_.step(input.take(2) == 0);
            case 5: return box_.setText(input.takeText(24, COMMON));
            default: return box_.handleCharacter(input.takeCharacter(COMMON));
        }
    }

    /// Ends the process where a rule is broken.
    void check() {
        const std::int32_t value = upDown_.value();
        require(value >= bounds_.minimum && value <= bounds_.maximum, "the value has left its bounds");
        const std::wstring shown = box_.text();
        if (shown.empty()) return require(value == bounds_.minimum, "an emptied field is not its minimum");
        const std::int32_t number = conversions_.toInteger(shown);  // throws where the rule let a text stand
        require(number <= bounds_.maximum, "the text is above the maximum");
        require(number < bounds_.minimum || number == value, "the text is not the value");
        require(box_.selectionStart() <= static_cast<int>(shown.size()), "the caret is behind the text");
    }

private:
    headless::EventLoop loop_;
    headless::Screen screen_{loop_};
    headless::LocaleConversions conversions_;
    std::unique_ptr<ui::Window> window_;
    headless::TextBox& box_;
    headless::UpDown& upDown_;
    vexa::Bounds bounds_;
    vexa::NumericEntryField field_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    Field field(BOUNDS[input.take(std::size(BOUNDS))]);
    while (!input.atEnd()) {
        field.edit(input);
        field.check();
    }
    return 0;
}

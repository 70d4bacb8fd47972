#include "tests/lint/dialog_layout.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>

#include "tests/headless/kinds.h"
#include "tests/lint/dialog_pages.h"

namespace headless {
namespace {

// Dialog units.
constexpr int EDGE = 7;            // between a dialog's or a group's edge and what lies in it
constexpr int RESIZABLE_EDGE = 3;  // a window whose content grows with it uses its room
constexpr int UNDER_CAPTION = 11;  // from a group's top
constexpr int UNDER_TABS = 20;     // from a tab control's top
constexpr int RELATED = 4;
constexpr int UNRELATED = 7;
constexpr int LABEL_ABOVE = 3;
constexpr int INDENT = 12;
constexpr int BUTTON_WIDTH = 50;
constexpr int SHORT_CAPTION = 10;  // characters that a button of the usual width has room for

/// Controls that are laid out together.
struct Block {
    Controls controls;
    ui::Rect place;
};

ui::Rect around(const Controls& controls) {
    ui::Rect place = placeOf(*controls.front());
    for (const TemplateControl* control : controls) {
        const ui::Rect other = placeOf(*control);
        const int right = std::max(rightOf(place), rightOf(other));
        const int bottom = std::max(bottomOf(place), bottomOf(other));
        place.left = std::min(place.left, other.left);
        place.top = std::min(place.top, other.top);
        place.width = right - place.left;
        place.height = bottom - place.top;
    }
    return place;
}

/// Cuts controls apart wherever nothing is in the way: into rows, or into columns.
std::vector<Block> cut(Controls controls, bool intoRows) {
    const auto start = [=](const ui::Rect& place) { return intoRows ? place.top : place.left; };
    const auto end = [=](const ui::Rect& place) { return intoRows ? bottomOf(place) : rightOf(place); };
    std::ranges::stable_sort(controls, {}, [&](const TemplateControl* c) { return start(placeOf(*c)); });
    std::vector<Block> blocks;
    for (const TemplateControl* control : controls) {
        if (blocks.empty() || start(placeOf(*control)) >= end(blocks.back().place)) blocks.emplace_back();
        blocks.back().controls.push_back(control);
        blocks.back().place = around(blocks.back().controls);
    }
    return blocks;
}

bool isPushButton(const TemplateControl& control) {
    return control.windowClass == "Button" &&
           (control.has("BS_PUSHBUTTON") || control.has("BS_DEFPUSHBUTTON"));
}
bool isSwatch(const TemplateControl& control) { return kindOf(control) == ui::Kind::swatch; }
bool isField(const TemplateControl& control) {
    return control.windowClass == "Edit" || control.windowClass == "ComboBox";
}

/// Holds the findings while it walks a dialog.
class Layout {
public:
    explicit Layout(const DialogTemplate& dialog) : dialog_(dialog) {}

    std::vector<std::string> findings() {
        if (dialog_.styles.contains("DS_CONTROL")) return {};
        for (const TemplateControl& control : dialog_.controls) checkSize(control);
        checkSwatches();
        checkFields();
        std::map<const TemplateControl*, Controls> contents;
        for (const Controls& page : pagesOf(dialog_)) walkPage(page, contents);
        for (const auto& [container, controls] : contents) checkEdges(container, controls);
        return {findings_.begin(), findings_.end()};
    }

private:
    void find(const std::string& what) { findings_.insert(what); }
    void findUnless(bool right, const std::string& what) {
        if (!right) find(what);
    }
    static std::string name(const Block& block) { return block.controls.front()->idName; }

    // --- What takes part

    /// What lies upon another control (a field's arrows, a toolbar's combos) or is not seen has no place of
    /// its own.
    [[nodiscard]] bool takesPart(const TemplateControl& control, const Controls& page) const {
        const bool hiddenForGood = !control.has("WS_VISIBLE") && kindOf(control) == ui::Kind::label &&
                                   std::ranges::none_of(dialog_.controls, isTabStrip);
        if (isUpDown(control) || isEmpty(placeOf(control)) || hiddenForGood) return false;
        return std::ranges::none_of(page, [&](const TemplateControl* other) {
            return other != &control && isToolbar(*other) && overlap(placeOf(control), placeOf(*other));
        });
    }

    /// The smallest frame or tab control around a control; null where it lies in the dialog itself.
    static const TemplateControl* containerOf(const TemplateControl& control, const Controls& page) {
        const TemplateControl* smallest = nullptr;
        for (const TemplateControl* other : page) {
            const bool holds = other != &control && (isFrame(*other) || isTabStrip(*other)) &&
                               contains(other->units, placeOf(control));
            if (holds && (smallest == nullptr || contains(smallest->units, other->units))) smallest = other;
        }
        return smallest;
    }

    void walkPage(const Controls& page, std::map<const TemplateControl*, Controls>& all) {
        std::map<const TemplateControl*, Controls> contents;
        for (const TemplateControl* control : page)
            if (takesPart(*control, page)) contents[containerOf(*control, page)].push_back(control);
        for (auto& [container, controls] : contents) {
            checkRows(cut(controls, true), insideOf(container));
            auto& collected = all[container];
            collected.insert(collected.end(), controls.begin(), controls.end());
        }
    }

    [[nodiscard]] ui::Rect insideOf(const TemplateControl* container) const {
        const bool resizable = dialog_.styles.contains("WS_THICKFRAME");
        const int edge = resizable ? RESIZABLE_EDGE : EDGE;
        if (container == nullptr)
            return {edge, edge, dialog_.units.width - 2 * edge, dialog_.units.height - 2 * edge};
        const int top = isTabStrip(*container) ? UNDER_TABS : UNDER_CAPTION;
        const ui::Rect& place = container->units;
        return {place.left + EDGE, place.top + top, place.width - 2 * EDGE, place.height - top - EDGE};
    }

    // --- Distances

    void checkEdges(const TemplateControl* container, const Controls& controls) {
        const ui::Rect inside = insideOf(container);
        const ui::Rect place = around(controls);
        const std::string where = container ? container->idName : "the dialog";
        const auto check = [&](int is, int wanted, const char* edge) {
            findUnless(is == wanted, where + ": its content ends " + std::to_string(std::abs(is - wanted)) +
                                         (is > wanted ? " after" : " before") + " the " + edge + " margin");
        };
        check(place.left, inside.left, "left");
        check(place.top, inside.top, "upper");
        check(rightOf(place), rightOf(inside), "right");
        check(bottomOf(place), bottomOf(inside), "lower");
    }

    void checkRows(const std::vector<Block>& rows, const ui::Rect& inside) {
        for (std::size_t index = 0; index < rows.size(); ++index) {
            const Block& row = rows[index];
            if (index > 0) checkGapAbove(row, rows[index - 1], inside);
            findUnless(rightOf(row.place) == rightOf(inside),
                       name(row) + ": its row ends at " + std::to_string(rightOf(row.place)) + ", not at " +
                           std::to_string(rightOf(inside)));
            const int indent = row.place.left - inside.left;
            const bool commands = std::ranges::all_of(row.controls, [](auto* c) { return isPushButton(*c); });
            findUnless(commands || (indent % INDENT == 0 && indent <= 3 * INDENT),
                       name(row) + ": its row begins at " + std::to_string(row.place.left));
            checkColumns(cut(row.controls, false));
        }
    }

    void checkGapAbove(const Block& row, const Block& above, const ui::Rect& inside) {
        const int gap = row.place.top - bottomOf(above.place);
        const bool labels = std::ranges::all_of(above.controls, [](auto* c) { return isLabel(*c); });
        const bool usual = gap == UNRELATED || gap == (labels ? LABEL_ABOVE : RELATED);
        const bool atBottom = gap > UNRELATED && bottomOf(row.place) == bottomOf(inside);
        findUnless(usual || atBottom, name(row) + ": " + std::to_string(gap) + " units below " + name(above));
    }

    void checkColumns(const std::vector<Block>& columns) {
        for (std::size_t index = 0; index < columns.size(); ++index) {
            const Block& column = columns[index];
            if (columns.size() == 1 && column.controls.size() > 1)
                find(name(column) + " covers another control");
            if (columns.size() > 1 && column.controls.size() > 1)
                checkRows(cut(column.controls, true), column.place);
            if (index == 0) continue;
            const Block& before = columns[index - 1];
            const int gap = column.place.left - rightOf(before.place);
            findUnless(gap == RELATED || gap == UNRELATED,
                       name(column) + ": " + std::to_string(gap) + " units beside " + name(before));
            checkLevel(column, before);
        }
    }

    /// Side by side: the same middle, or the same top where one of the two is a column of its own.
    void checkLevel(const Block& column, const Block& before) {
        const auto middle = [](const Block& block) { return 2 * block.place.top + block.place.height; };
        const bool several = column.controls.size() + before.controls.size() > 2;
        const bool level = (several && column.place.top == before.place.top) ||
                           std::abs(middle(column) - middle(before)) <= 2;
        findUnless(level, name(column) + " is not level with " + name(before));
    }

    // --- Sizes

    void checkSize(const TemplateControl& control) {
        const ui::Rect place = placeOf(control);
        if (isEmpty(place)) return;
        const auto height = usualHeight(control);
        findUnless(!height || place.height == *height,
                   control.idName + " is " + std::to_string(place.height) + " high");
        if (isLabel(control)) findUnless(place.height % 8 == 0, control.idName + " holds no whole lines");
        if (hasShortCaption(control) && !standsWithLongerCaption(control))
            findUnless(place.width == BUTTON_WIDTH,
                       control.idName + " is " + std::to_string(place.width) + " wide");
    }

    static bool hasShortCaption(const TemplateControl& control) {
        return isPushButton(control) && !control.has("BS_ICON") && control.caption.size() <= SHORT_CAPTION;
    }

    /// The buttons of a column are as wide as the longest caption needs.
    [[nodiscard]] bool standsWithLongerCaption(const TemplateControl& control) const {
        return std::ranges::any_of(dialog_.controls, [&](const TemplateControl& other) {
            return isPushButton(other) && other.caption.size() > SHORT_CAPTION &&
                   other.units.left == control.units.left && other.units.width == control.units.width;
        });
    }

    static std::optional<int> usualHeight(const TemplateControl& control) {
        if (isPushButton(control) || isSwatch(control) || control.windowClass == "Edit") return 14;
        const auto kind = kindOf(control);
        if (kind == ui::Kind::checkBox || kind == ui::Kind::optionButton) return 10;
        return std::nullopt;
    }

    /// One grid: as many columns as the fullest row has swatches, all of one size.
    void checkSwatches() {
        std::set<int> columns;
        std::map<int, std::size_t> perRow;
        std::optional<ui::Size> size;
        for (const TemplateControl& control : dialog_.controls) {
            if (!isSwatch(control)) continue;
            columns.insert(control.units.left);
            ++perRow[control.units.top];
            const ui::Size own{control.units.width, control.units.height};
            findUnless(!size || *size == own, control.idName + " is of another size than the first swatch");
            if (!size) size = own;
        }
        std::size_t most = 0;
        for (const auto& [top, count] : perRow) most = std::max(most, count);
        findUnless(columns.size() <= most, "the swatches are in no grid");
    }

    /// Fields behind a label of their row begin at one line.
    void checkFields() {
        std::map<int, std::string> lefts;
        for (std::size_t index = 1; index < dialog_.controls.size(); ++index) {
            const TemplateControl& field = dialog_.controls[index];
            const TemplateControl& label = dialog_.controls[index - 1];
            if (!isField(field) || !isLabel(label) || !label.has("WS_VISIBLE")) continue;
            if (rightOf(label.units) > field.units.left) continue;
            lefts.emplace(field.units.left, field.idName);
        }
        if (lefts.size() > 1) find(lefts.rbegin()->second + " begins at another line than the other fields");
    }

    const DialogTemplate& dialog_;
    std::set<std::string> findings_;
};

}  // namespace

std::vector<std::string> layoutFindings(const DialogTemplate& dialog) { return Layout(dialog).findings(); }

}  // namespace headless

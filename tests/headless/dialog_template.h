// Reads the dialog templates of the product's resource scripts, so that headless windows have the controls,
// captions, tab order and places of the real ones.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "ui/geometry.h"

namespace headless {

/// One control of a template.
struct TemplateControl {
    std::string windowClass;  ///< as the system calls it: "Button", "Static", "Edit", ...
    std::string idName;       ///< the identifier as it is written
    int id = 0;
    std::wstring caption;
    ui::Rect units;  ///< dialog units
    std::set<std::string>
        styles;  ///< by name, the statement's own and the written ones, less those after NOT

    [[nodiscard]] bool has(const std::string& style) const { return styles.contains(style); }
};

struct DialogTemplate {
    std::string idName;
    int id = 0;
    std::string file;  ///< below the source folder
    std::wstring caption;
    ui::Size units;
    std::set<std::string> styles;
    std::vector<TemplateControl> controls;  ///< in tab order
};

/// The dialogs of a resource script. `file` is a path below `sourceFolder`, as are those of its includes.
/// Throws std::runtime_error with file and line for anything it does not know.
[[nodiscard]] std::vector<DialogTemplate> readDialogs(const std::string& sourceFolder,
                                                      const std::string& file);

/// `#define NAME number` lines of a header, in their order.
[[nodiscard]] std::vector<std::pair<std::string, int>> readIdentifiers(const std::string& path);

/// A letter, a digit or an underscore, as identifiers are made of.
[[nodiscard]] bool isWordCharacter(char character);

/// The product's dialogs.
[[nodiscard]] const std::vector<DialogTemplate>& allDialogs();

/// The product's dialog with this identifier. Throws std::logic_error where there is none.
[[nodiscard]] const DialogTemplate& dialogTemplate(int id);

/// Pixels at 96 DPI in the dialogs' font.
[[nodiscard]] ui::Rect toPixels(const ui::Rect& units);

}  // namespace headless

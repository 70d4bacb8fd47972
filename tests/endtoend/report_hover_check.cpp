// Compares what the hover timer draws upon the composer's combos, on a real display, with the computed
// drawing, pixel by pixel and state by state. Writes a line a check to the file that it is given, and a
// picture of each combo in each state into the folder that it is given; the last line is "passed" or
// "FAILED".
#include <windows.h>

#include <cstdio>
#include <map>
#include <string>
#include <utility>

#include "report/flat_combo.h"
#include "report/frmSendBugReport.h"
#include "tests/stage/stage.h"

namespace {

using vexa::FlatState;
using vexa::frmSendBugReport;
using Pixels = std::map<std::pair<int, int>, ui::ColourRole>;

constexpr int SEVERAL_TICKS = 700;  // milliseconds

COLORREF colourOf(ui::ColourRole role) {
    constexpr int colours[] = {COLOR_BTNFACE, COLOR_BTNSHADOW, COLOR_BTNHIGHLIGHT, COLOR_WINDOW};
    return GetSysColor(colours[static_cast<int>(role)]);
}

/// The last colour of each pixel that the strokes touch.
Pixels painted(const ui::Strokes& strokes) {
    Pixels pixels;
    for (const ui::Stroke& stroke : strokes)
        for (int y = stroke.top; y <= stroke.bottom; ++y)
            for (int x = stroke.left; x <= stroke.right; ++x) pixels[{x, y}] = stroke.colour;
    return pixels;
}

/// Writes what a window shows as a bitmap file.
void savePicture(HWND window, const std::string& path) {
    RECT area{};
    GetClientRect(window, &area);
    BITMAPINFOHEADER form{sizeof form, area.right, area.bottom, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* pixels = nullptr;
    const HDC screen = GetDC(window);
    const HDC canvas = CreateCompatibleDC(screen);
    const HBITMAP picture =
        CreateDIBSection(canvas, reinterpret_cast<BITMAPINFO*>(&form), DIB_RGB_COLORS, &pixels, nullptr, 0);
    const HGDIOBJ before = SelectObject(canvas, picture);
    BitBlt(canvas, 0, 0, area.right, area.bottom, screen, 0, 0, SRCCOPY);
    GdiFlush();
    const DWORD size = static_cast<DWORD>(area.right) * static_cast<DWORD>(area.bottom) * 4;
    const DWORD head = sizeof(BITMAPFILEHEADER) + sizeof form;
    const BITMAPFILEHEADER file{0x4D42, head + size, 0, 0, head};
    if (std::FILE* out = std::fopen(path.c_str(), "wb")) {
        std::fwrite(&file, sizeof file, 1, out);
        std::fwrite(&form, sizeof form, 1, out);
        std::fwrite(pixels, size, 1, out);
        std::fclose(out);
    }
    SelectObject(canvas, before);
    DeleteObject(picture);
    DeleteDC(canvas);
    ReleaseDC(window, screen);
}

class Checker {
public:
    Checker(tests::Stage& stage, frmSendBugReport& form, std::FILE* results, std::string pictures)
        : stage_(stage), form_(form), results_(results), pictures_(std::move(pictures)) {}

    void play() {
        stage_.user().moveMouse(form_.rtfBody, 20, 60);
        compareBoth("disabled", FlatState::disabled, FlatState::disabled);
        stage_.user().click(form_.rtfBody);
        compareBoth("flat", FlatState::flat, FlatState::flat);
        stage_.user().moveMouse(form_.cboFontname, 10, 8);
        compareBoth("font-hot", FlatState::hot, FlatState::flat);
        stage_.user().moveMouse(form_.cboFontsize, 10, 8);
        compareBoth("size-hot", FlatState::flat, FlatState::hot);
        // Hovering alone never leads to the pressed state.
        for (ui::ComboBox* combo : {&form_.cboFontname, &form_.cboFontsize})
            combo->draw(drawing(*combo, FlatState::pressed));
        compareNow("pressed", FlatState::pressed, FlatState::pressed);
    }
    [[nodiscard]] bool passed() const { return passed_; }

private:
    [[nodiscard]] ui::Strokes drawing(const ui::ComboBox& combo, FlatState state) {
        const ui::Rect bounds = combo.bounds();
        return vexa::flatCombo(state, {bounds.width, bounds.height},
                               stage_.application().screen.scrollThumbWidth());
    }
    void compareBoth(const char* name, FlatState font, FlatState size) {
        stage_.user().wait(SEVERAL_TICKS);
        compareNow(name, font, size);
    }
    void compareNow(const std::string& name, FlatState font, FlatState size) {
        std::fprintf(results_, "%s\n", name.c_str());
        compare("  font combo", form_.cboFontname, font);
        compare("  size combo", form_.cboFontsize, size);
        savePicture(reinterpret_cast<HWND>(form_.cboFontname.handle()),
                    pictures_ + "\\" + name + "-fontname.bmp");
        savePicture(reinterpret_cast<HWND>(form_.cboFontsize.handle()),
                    pictures_ + "\\" + name + "-fontsize.bmp");
    }
    void compare(const char* name, const ui::ComboBox& combo, FlatState state) {
        const HWND window = reinterpret_cast<HWND>(combo.handle());
        const HDC context = GetDC(window);
        int wrong = 0;
        const Pixels expected = painted(drawing(combo, state));
        for (const auto& [place, role] : expected)
            if (GetPixel(context, place.first, place.second) != colourOf(role)) ++wrong;
        ReleaseDC(window, context);
        std::fprintf(results_, "%s %s: %d of %d pixels differ\n", wrong == 0 ? "ok     " : "FAILED ", name,
                     wrong, static_cast<int>(expected.size()));
        passed_ = passed_ && wrong == 0 && !expected.empty();
    }

    tests::Stage& stage_;
    frmSendBugReport& form_;
    std::FILE* results_;
    std::string pictures_;
    bool passed_ = true;
};

}  // namespace

int main(int count, char** arguments) {
    std::FILE* results = count > 2 ? std::fopen(arguments[1], "wb") : nullptr;
    if (results == nullptr) return 2;
    const auto stage = tests::Stage::create();
    bool passed = false;
    stage->whenShown<frmSendBugReport>([&](frmSendBugReport& form) {
        Checker checker(*stage, form, results, arguments[2]);
        checker.play();
        passed = checker.passed();
        stage->user().closeWindow(form.window());
    });
    vexa::showBugReport(stage->application(), stage->owner());
    std::fprintf(results, "%s\n", passed ? "passed" : "FAILED");
    std::fclose(results);
    return passed ? 0 : 1;
}

// Text and glyphs stand out from what lies behind them, in the standard colours and in schemes of high
// contrast, also where the scheme changes while a dialog is open.
#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "tests/windows/controls/canvas.h"
#include "tests/windows/controls/product_dialogs.h"
#include "tests/windows/stage/user.h"
#include "windows/controls/screen.h"
#include "windows/controls/swatch.h"

namespace tests {
namespace {

constexpr double TEXT = 4.5;
constexpr double GLYPH = 3.0;

double linear(int part) {
    const double value = part / 255.0;
    return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double luminance(COLORREF colour) {
    return 0.2126 * linear(GetRValue(colour)) + 0.7152 * linear(GetGValue(colour)) +
           0.0722 * linear(GetBValue(colour));
}

double contrast(COLORREF one, COLORREF other) {
    const double bright = std::max(luminance(one), luminance(other)) + 0.05;
    return bright / (std::min(luminance(one), luminance(other)) + 0.05);
}

/// The colours that the product draws with.
constexpr std::array ELEMENTS{COLOR_WINDOW,   COLOR_WINDOWTEXT, COLOR_BTNFACE,      COLOR_BTNTEXT,
                              COLOR_GRAYTEXT, COLOR_HIGHLIGHT,  COLOR_HIGHLIGHTTEXT};

struct Scheme {
    const char* name;
    std::array<COLORREF, ELEMENTS.size()> colours;
};

constexpr Scheme SCHEMES[] = {
    {"Standard", {0xFFFFFF, 0x000000, 0xF0F0F0, 0x000000, 0x6D6D6D, 0xD77800, 0xFFFFFF}},
    {"HighContrast1", {0x000000, 0x00FFFF, 0x000000, 0x00FFFF, 0x00FF00, 0x008000, 0xFFFFFF}},
    {"HighContrast2", {0x000000, 0x00FF00, 0x000000, 0x00FF00, 0xC0C0C0, 0xFF0000, 0xFFFFFF}},
    {"HighContrastBlack", {0x000000, 0xFFFFFF, 0x000000, 0xFFFFFF, 0x3FF23F, 0xFFEB1A, 0x000000}},
    {"HighContrastWhite", {0xFFFFFF, 0x000000, 0xFFFFFF, 0x000000, 0x000060, 0x6E0037, 0xFFFFFF}},
};

void PrintTo(const Scheme& scheme, std::ostream* stream) { *stream << scheme.name; }

/// The system's colours are a scheme's for as long as this lives; open windows hear of it.
class SchemeInForce {
public:
    explicit SchemeInForce(const Scheme& scheme) {
        for (std::size_t index = 0; index < ELEMENTS.size(); ++index)
            before_[index] = GetSysColor(ELEMENTS[index]);
        set(scheme.colours);
    }
    SchemeInForce(const SchemeInForce&) = delete;
    SchemeInForce& operator=(const SchemeInForce&) = delete;
    ~SchemeInForce() { set(before_); }

private:
    static void set(const std::array<COLORREF, ELEMENTS.size()>& colours) {
        SetSysColors(static_cast<int>(ELEMENTS.size()), ELEMENTS.data(), colours.data());
    }
    std::array<COLORREF, ELEMENTS.size()> before_{};
};

/// What a picture looks like on a ground.
class Picture : public Canvas {
public:
    Picture(int width, int height, COLORREF ground)
        : Canvas(width, height, ground), width_(width), height_(height) {}

    /// The strongest contrast of any pixel to `ground`, without a rim at the left and a smaller one around.
    [[nodiscard]] double strongest(COLORREF ground, int left = 0, int rim = 0) const {
        double most = 1;
        for (int y = rim; y < height_ - rim; ++y)
            for (int x = left + rim; x < width_ - rim; ++x)
                most = std::max(most, contrast(GetPixel(context, x, y), ground));
        return most;
    }

private:
    int width_;
    int height_;
};

class Contrast : public ProductDialogs, public testing::WithParamInterface<Scheme> {
protected:
    /// Opens a dialog and plays `script` in the scheme, of which the dialog hears.
    template <class Form>
    void inScheme(const std::function<void(Form&)>& script) {
        open<Form>([&](Form& form) {
            const SchemeInForce scheme(GetParam());
            SendMessageW(windowOf(form.window()), WM_SYSCOLORCHANGE, 0, 0);
            script(form);
        });
    }
    /// How the list is about to draw a row in this state.
    static NMLVCUSTOMDRAW drawRow(const ui::Grid& grid, int row, UINT state) {
        const HWND list = windowOf(grid);
        NMLVCUSTOMDRAW drawing{};
        drawing.nmcd.hdr = {list, static_cast<UINT_PTR>(GetDlgCtrlID(list)),
                            static_cast<UINT>(NM_CUSTOMDRAW)};
        drawing.nmcd.dwDrawStage = CDDS_ITEMPREPAINT;
        drawing.nmcd.dwItemSpec = static_cast<DWORD_PTR>(row);
        drawing.nmcd.uItemState = state;
        drawing.clrTextBk = GetSysColor(COLOR_WINDOW);
        SendMessageW(GetParent(list), WM_NOTIFY, drawing.nmcd.hdr.idFrom, reinterpret_cast<LPARAM>(&drawing));
        return drawing;
    }

    static double ofImage(HIMAGELIST images, int index) {
        const COLORREF face = GetSysColor(COLOR_BTNFACE);
        int width = 0;
        int height = 0;
        ImageList_GetIconSize(images, &width, &height);
        const Picture canvas(width, height, face);
        ImageList_Draw(images, index, canvas.context, 0, 0, ILD_TRANSPARENT);
        return canvas.strongest(face);
    }
};

TEST_P(Contrast, ToolbarPicturesAreSeenEnabledAndDisabled) {
    inScheme<vexa::frmSendBugReport>([&](vexa::frmSendBugReport& form) {
        for (const UINT list : {TB_GETIMAGELIST, TB_GETDISABLEDIMAGELIST}) {
            const auto images =
                reinterpret_cast<HIMAGELIST>(SendMessageW(windowOf(form.tbrProperties), list, 0, 0));
            ASSERT_GT(ImageList_GetImageCount(images), 10);
            for (int index = 0; index < ImageList_GetImageCount(images); ++index)
                EXPECT_GE(ofImage(images, index), GLYPH) << index;
        }
    });
}

TEST_P(Contrast, PictureButtonsAreSeen) {
    inScheme<vexa::frmAttachment>([&](vexa::frmAttachment& form) {
        user.pickTab(form.sstAttachments, 1);
        for (const ui::Button* button : {&form.cmdAdd, &form.cmdRemove}) {
            const COLORREF face = GetSysColor(COLOR_BTNFACE);
            const auto icon =
                reinterpret_cast<HICON>(SendMessageW(windowOf(*button), BM_GETIMAGE, IMAGE_ICON, 0));
            ASSERT_NE(icon, nullptr);
            const Picture canvas(16, 16, face);
            DrawIconEx(canvas.context, 0, 0, icon, 16, 16, 0, nullptr, DI_NORMAL);
            EXPECT_GE(canvas.strongest(face), GLYPH);
        }
    });
}

TEST_P(Contrast, SwatchesHaveAnEdgeAndALegibleCaption) {
    inScheme<vexa::frmDispMatches>([&](vexa::frmDispMatches& form) {
        auto& swatch = dynamic_cast<win::Swatch&>(form.lblPenalty[0].get());
        const COLORREF face = GetSysColor(COLOR_BTNFACE);
        for (const UINT state : {0U, static_cast<UINT>(ODS_DISABLED)})
            for (const ui::Colour colour : {0x00FFFF, 0xFF0000, 0x808080, 0x0000FF, 0xFFFFFF, 0x000000}) {
                swatch.setColour(colour);
                const Picture canvas(90, 26, face);
                DRAWITEMSTRUCT item{};
                item.itemState = state;
                item.hwndItem = windowOf(form.lblPenalty[0]);
                item.hDC = canvas.context;
                item.rcItem = {0, 0, 90, 26};
                swatch.onDrawItem(item);
                EXPECT_GE(contrast(GetPixel(canvas.context, 0, 0), face), GLYPH);
                const COLORREF ground = GetPixel(canvas.context, 86, 22);
                // What is disabled may be paler, and can still be read.
                const double least = state == 0 ? TEXT : GLYPH;
                EXPECT_GE(canvas.strongest(ground, 22, 4), least) << std::hex << colour << " " << state;
            }
    });
}

TEST_P(Contrast, GreyedRowsAreLegibleAndTheSelectedOneIsTold) {
    inScheme<vexa::frmKBConfiguration>([&](vexa::frmKBConfiguration& form) {
        form.sftKBConfiguration.setCurrentRow(0);
        form.sftKBConfiguration.setAllRowsEnabled(false);
        const NMLVCUSTOMDRAW selected = drawRow(form.sftKBConfiguration, 0, CDIS_SELECTED);
        const NMLVCUSTOMDRAW other = drawRow(form.sftKBConfiguration, 1, 0);
        EXPECT_GE(contrast(selected.clrText, selected.clrTextBk), TEXT);
        EXPECT_GE(contrast(other.clrText, other.clrTextBk), TEXT);
        EXPECT_GE(contrast(selected.clrTextBk, other.clrTextBk), GLYPH) << "also without the focus";
    });
}

TEST_P(Contrast, TheCurrentRowIsToldAlsoWithoutTheFocus) {
    inScheme<vexa::frmKBConfiguration>([&](vexa::frmKBConfiguration& form) {
        form.sftKBConfiguration.setCurrentRow(0);
        form.cmdCancel.setFocus();
        const NMLVCUSTOMDRAW drawing = drawRow(form.sftKBConfiguration, 0, CDIS_SELECTED);
        EXPECT_GE(contrast(drawing.clrText, drawing.clrTextBk), TEXT);
        EXPECT_GE(contrast(drawing.clrTextBk, GetSysColor(COLOR_WINDOW)), GLYPH);
        EXPECT_EQ(drawing.nmcd.uItemState, 0U) << "the list view would show its own colours";
    });
}

INSTANTIATE_TEST_SUITE_P(Schemes, Contrast, testing::ValuesIn(SCHEMES),
                         [](const auto& scheme) { return std::string(scheme.param.name); });

}  // namespace
}  // namespace tests

#include "windows/controls/icon_cache.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace win {
namespace {

/// The colours of a 32-bit picture, blue first. Empty where it has none.
std::vector<std::uint32_t> pixelsOf(HBITMAP picture, BITMAPINFO& info) {
    BITMAP size{};
    GetObjectW(picture, sizeof size, &size);
    info.bmiHeader = {sizeof info.bmiHeader, size.bmWidth, -size.bmHeight, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(size.bmWidth * size.bmHeight));
    const HDC screen = GetDC(nullptr);
    const int lines =
        GetDIBits(screen, picture, 0, static_cast<UINT>(size.bmHeight), pixels.data(), &info, DIB_RGB_COLORS);
    ReleaseDC(nullptr, screen);
    if (lines == 0) pixels.clear();
    return pixels;
}

/// How much ink a pixel gets, 0 to 255: light parts stay open, middle tones are as strong as dark ones.
std::uint32_t strength(std::uint32_t pixel) {
    const std::uint32_t alpha = pixel >> 24;
    const std::uint32_t brightness =
        ((pixel >> 16 & 0xFF) * 54 + (pixel >> 8 & 0xFF) * 183 + (pixel & 0xFF) * 19) / 256;
    return std::min<std::uint32_t>(alpha, alpha * (255 - brightness) * 3 / 2 / 255);
}

/// A copy of the icon in one colour. The caller destroys it; null where the system makes none.
HICON tinted(HICON icon, COLORREF ink) {
    ICONINFO parts{};
    if (!GetIconInfo(icon, &parts)) return nullptr;
    BITMAPINFO info{};
    std::vector<std::uint32_t> pixels = pixelsOf(parts.hbmColor, info);
    const std::uint32_t colour = static_cast<std::uint32_t>(GetRValue(ink)) << 16 |
                                 static_cast<std::uint32_t>(GetGValue(ink)) << 8 | GetBValue(ink);
    for (std::uint32_t& pixel : pixels) pixel = strength(pixel) << 24 | colour;
    const HDC screen = GetDC(nullptr);
    void* bits = nullptr;
    const HBITMAP before = parts.hbmColor;
    parts.hbmColor = CreateDIBSection(screen, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    ReleaseDC(nullptr, screen);
    if (bits != nullptr) std::ranges::copy(pixels, static_cast<std::uint32_t*>(bits));
    const HICON result = parts.hbmColor != nullptr ? CreateIconIndirect(&parts) : nullptr;
    for (const HBITMAP bitmap : {before, parts.hbmColor, parts.hbmMask}) DeleteObject(bitmap);
    return result;
}

}  // namespace

IconCache::~IconCache() {
    for (const auto& [key, icon] : icons_) DestroyIcon(icon);
}

HICON IconCache::find(int resource, int width, int height, std::optional<COLORREF> ink) {
    HICON& icon = icons_[{resource, width, height, ink}];
    if (icon != nullptr) return icon;
    icon = load(resource, width, height);
    if (icon == nullptr || !ink) return icon;
    const HICON plain = icon;
    icon = tinted(plain, *ink);
    DestroyIcon(plain);
    return icon;
}

/// Takes the next larger picture rather than stretch a smaller one.
HICON IconCache::load(int resource, int width, int height) const {
    using Loader = HRESULT(WINAPI*)(HINSTANCE, PCWSTR, int, int, HICON*);
    const HMODULE controls = GetModuleHandleW(L"comctl32.dll");
    const auto scaleDown =
        reinterpret_cast<Loader>(reinterpret_cast<void*>(GetProcAddress(controls, "LoadIconWithScaleDown")));
    HICON icon = nullptr;
    if (scaleDown != nullptr &&
        SUCCEEDED(scaleDown(module_, MAKEINTRESOURCEW(resource), width, height, &icon)))
        return icon;
    return static_cast<HICON>(
        LoadImageW(module_, MAKEINTRESOURCEW(resource), IMAGE_ICON, width, height, LR_DEFAULTCOLOR));
}

}  // namespace win

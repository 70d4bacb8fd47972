// The module's icons, each loaded once in each size in which it is shown: loading costs far more than
// drawing.
#pragma once

#include <windows.h>

#include <map>
#include <optional>
#include <tuple>

namespace win {

class IconCache {
public:
    explicit IconCache(HINSTANCE module) noexcept : module_(module) {}
    IconCache(const IconCache&) = delete;
    IconCache& operator=(const IconCache&) = delete;
    ~IconCache();

    /// The icon of a resource number in a size in pixels, which stays the cache's and lives as long as it;
    /// null where it cannot be loaded.
    HICON icon(int resource, int width, int height) { return find(resource, width, height, std::nullopt); }

    /// The same as a glyph: drawn in one colour, the darker the picture the stronger. Glyphs take part in the
    /// system's colours.
    HICON glyph(int resource, int side, COLORREF ink) { return find(resource, side, side, ink); }

private:
    HICON find(int resource, int width, int height, std::optional<COLORREF> ink);
    [[nodiscard]] HICON load(int resource, int width, int height) const;

    HINSTANCE module_;
    /// By resource number, width, height and ink.
    std::map<std::tuple<int, int, int, std::optional<COLORREF>>, HICON> icons_;
};

}  // namespace win

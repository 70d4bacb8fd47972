// The module's icons, each loaded once in each size in which it is shown: loading costs far more than
// drawing.
#pragma once

#include <windows.h>

#include <map>
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
    HICON icon(int resource, int width, int height);

private:
    HINSTANCE module_;
    std::map<std::tuple<int, int, int>, HICON> icons_;  ///< by resource number, width and height
};

}  // namespace win

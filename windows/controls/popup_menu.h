// A menu of the system that asks for one of its entries.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace win {

class PopupMenu {
public:
    explicit PopupMenu(const std::vector<std::wstring>& entries) : menu_(CreatePopupMenu()) {
        UINT_PTR identifier = 0;
        for (const std::wstring& entry : entries) AppendMenuW(menu_, MF_STRING, ++identifier, entry.c_str());
    }
    PopupMenu(const PopupMenu&) = delete;
    PopupMenu& operator=(const PopupMenu&) = delete;
    ~PopupMenu() { DestroyMenu(menu_); }

    /// The number of the chosen entry, counted from 1; 0 for none. The menu opens below `area`, which is in
    /// screen pixels, or above it.
    [[nodiscard]] int ask(HWND owner, const RECT& area) const {
        TPMPARAMS aside{sizeof aside, area};
        return TrackPopupMenuEx(menu_, TPM_RETURNCMD | TPM_LEFTALIGN | TPM_TOPALIGN | TPM_VERTICAL, area.left,
                                area.bottom, owner, &aside);
    }

private:
    HMENU menu_;
};

}  // namespace win

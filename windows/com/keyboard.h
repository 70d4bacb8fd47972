// Access keys and tab order of the page's controls, as a container asks for them.
#pragma once

#include <windows.h>

#include <vector>

namespace com {

/// The letter after "&" in a control's caption.
struct AccessKey {
    wchar_t letter;  ///< upper case
    HWND control;
};

/// Of all controls of `page`, in tab order.
[[nodiscard]] std::vector<AccessKey> accessKeys(HWND page);

/// Focuses and presses the control with this access key; false where no usable control has it.
bool pressAccessKey(HWND page, wchar_t letter);

/// Owns the table that containers read the access keys from; it stays until it is made anew.
class AccessKeyTable {
public:
    AccessKeyTable() = default;
    AccessKeyTable(const AccessKeyTable&) = delete;
    AccessKeyTable& operator=(const AccessKeyTable&) = delete;
    ~AccessKeyTable() { clear(); }

    void make(const std::vector<AccessKey>& keys);
    [[nodiscard]] HACCEL handle() const { return handle_; }
    [[nodiscard]] USHORT size() const { return size_; }

private:
    void clear();

    HACCEL handle_ = nullptr;
    USHORT size_ = 0;
};

/// Tab would leave the page: `control` is its last stop, or its first one going backwards.
[[nodiscard]] bool isOutermostStop(HWND page, HWND control, bool backwards);

/// Sets the focus on the page's first stop, or its last one where Shift is held.
void focusOutermostStop(HWND page);

}  // namespace com

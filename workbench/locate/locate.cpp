// locate.exe: says where the controls of a window are, so that a script can reach them with the real mouse,
// at any scaling.
//   locate WINDOW            every visible control: number, class, left, top, width, height, state, and its
//   text
//                            on the same line: a return shows as \r, a line feed as \n
//   locate WINDOW CONTROL    left, top, width and height of one control: "#number", or its text without "&"
// WINDOW is the title of a visible window. Positions are pixels of the screen. Ends with 1 where there is no
// such window or control, with 2 where the control is disabled.
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

struct WindowSearch {
    std::wstring title;
    HWND found = nullptr;
};

std::wstring textOf(HWND window) {
    wchar_t text[512];
    return {text, static_cast<std::size_t>(GetWindowTextW(window, text, 512))};
}

/// What is in the control: a text box of another program tells it only when it is asked itself.
std::wstring contentOf(HWND control) {
    constexpr UINT PATIENCE = 5000;  // milliseconds
    wchar_t text[512];
    DWORD_PTR length = 0;
    SendMessageTimeoutW(control, WM_GETTEXT, 512, reinterpret_cast<LPARAM>(text), SMTO_ABORTIFHUNG, PATIENCE,
                        &length);
    return {text, static_cast<std::size_t>(length)};
}

std::wstring withoutAccessKey(std::wstring text) {
    std::erase(text, L'&');
    return text;
}

BOOL CALLBACK compareTitle(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<WindowSearch*>(parameter);
    if (IsWindowVisible(window) && textOf(window) == search.title) search.found = window;
    return search.found == nullptr;
}

HWND windowWithTitle(const std::wstring& title) {
    WindowSearch search{title};
    EnumWindows(compareTitle, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

BOOL CALLBACK collect(HWND window, LPARAM parameter) {
    if (IsWindowVisible(window)) reinterpret_cast<std::vector<HWND>*>(parameter)->push_back(window);
    return TRUE;
}

std::vector<HWND> visibleControls(HWND window) {
    std::vector<HWND> controls;
    EnumChildWindows(window, collect, reinterpret_cast<LPARAM>(&controls));
    return controls;
}

bool matches(HWND control, const std::wstring& wanted) {
    if (wanted.starts_with(L'#'))
        return GetDlgCtrlID(control) == std::wcstol(wanted.c_str() + 1, nullptr, 10);
    return withoutAccessKey(textOf(control)) == wanted;
}

std::string utf8(const std::wstring& text) {
    char bytes[2048];
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), bytes,
                                         sizeof bytes, nullptr, nullptr);
    return {bytes, static_cast<std::size_t>(size)};
}

std::wstring onOneLine(const std::wstring& text) {
    std::wstring line;
    for (const wchar_t character : text) {
        if (character == L'\r' || character == L'\n')
            line += character == L'\r' ? L"\\r" : L"\\n";
        else
            line += character;
    }
    return line;
}

void printPlace(HWND control) {
    RECT place;
    GetWindowRect(control, &place);
    std::printf("%ld %ld %ld %ld", place.left, place.top, place.right - place.left, place.bottom - place.top);
}

void printLine(HWND control) {
    wchar_t className[64];
    GetClassNameW(control, className, 64);
    std::printf("#%d %s ", GetDlgCtrlID(control), utf8(className).c_str());
    printPlace(control);
    std::printf(" %s %s\n", IsWindowEnabled(control) ? "enabled" : "disabled",
                utf8(onOneLine(contentOf(control))).c_str());
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    constexpr int MISSING = 1;
    constexpr int DISABLED = 2;
    const HWND window = count > 1 ? windowWithTitle(arguments[1]) : nullptr;
    if (window == nullptr) return MISSING;
    for (const HWND control : visibleControls(window)) {
        if (count < 3) {
            printLine(control);
        } else if (matches(control, arguments[2])) {
            printPlace(control);
            std::printf("\n");
            return IsWindowEnabled(control) ? 0 : DISABLED;
        }
    }
    return count < 3 ? 0 : MISSING;
}

// The ANSI code page of a western machine: 1252.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>

#include "common/platform.h"

namespace headless {

/// What the page lacks becomes "?"; surrogate pairs become two of them, as on the system.
class CodePage1252 : public vexa::AnsiCodec {
public:
    [[nodiscard]] std::string toAnsi(const std::wstring& text) override {
        std::string bytes;
        for (const wchar_t character : text) {
            const auto point = static_cast<std::uint32_t>(character);
            bytes += byteOf(point);
            if (point > 0xFFFF) bytes += '?';
        }
        return bytes;
    }
    [[nodiscard]] std::wstring fromAnsi(const std::string& bytes) override {
        std::wstring text;
        for (const char byte : bytes) text += characterOf(static_cast<std::uint8_t>(byte));
        return text;
    }

private:
    /// The characters of bytes 0x80 to 0x9F; the five unassigned bytes stand for control characters.
    static constexpr std::array<wchar_t, 32> UPPER_ROWS{
        0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
        0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
        0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
    static constexpr unsigned FIRST_OF_ROWS = 0x80;

    static char byteOf(std::uint32_t character) {
        if (character < FIRST_OF_ROWS || (character >= 0xA0 && character <= 0xFF))
            return static_cast<char>(character);
        const auto found = std::ranges::find(UPPER_ROWS, static_cast<wchar_t>(character));
        if (found == UPPER_ROWS.end()) return '?';
        return static_cast<char>(FIRST_OF_ROWS + static_cast<unsigned>(found - UPPER_ROWS.begin()));
    }
    static wchar_t characterOf(std::uint8_t byte) {
        if (byte < FIRST_OF_ROWS || byte >= 0xA0) return byte;
        return UPPER_ROWS[byte - FIRST_OF_ROWS];
    }
};

}  // namespace headless

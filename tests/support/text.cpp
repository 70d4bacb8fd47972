#include "tests/support/text.h"

#include <cstdint>

namespace tests {
namespace {

constexpr std::uint32_t FIRST_SUPPLEMENTARY = 0x10000;

bool isHighSurrogate(std::uint32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool isLowSurrogate(std::uint32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

void appendUtf8(std::string& bytes, std::uint32_t point) {
    constexpr std::uint32_t FIRST_MARKS[] = {0, 0xC0, 0xE0, 0xF0};
    const int tails = (point >= 0x80) + (point >= 0x800) + (point >= FIRST_SUPPLEMENTARY);
    bytes.push_back(static_cast<char>(FIRST_MARKS[tails] | (point >> (6 * tails))));
    for (int left = tails - 1; left >= 0; --left)
        bytes.push_back(static_cast<char>(0x80 | ((point >> (6 * left)) & 0x3F)));
}

void appendWide(std::wstring& text, std::uint32_t point) {
    if (sizeof(wchar_t) > 2 || point < FIRST_SUPPLEMENTARY) {
        text.push_back(static_cast<wchar_t>(point));
        return;
    }
    const std::uint32_t offset = point - FIRST_SUPPLEMENTARY;
    text.push_back(static_cast<wchar_t>(0xD800 + (offset >> 10)));
    text.push_back(static_cast<wchar_t>(0xDC00 + (offset & 0x3FF)));
}

/// The number of bytes that follow this first byte of a sequence.
int followers(std::uint8_t first) { return first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : first >= 0xC0 ? 1 : 0; }

}  // namespace

std::vector<std::string> splitLines(const std::string& content) {
    std::vector<std::string> lines;
    std::size_t begin = 0;
    while (begin < content.size()) {
        const std::size_t end = content.find("\r\n", begin);
        lines.push_back(content.substr(begin, end == std::string::npos ? end : end - begin));
        begin = end == std::string::npos ? content.size() : end + 2;
    }
    return lines;
}

std::string narrow(const std::wstring& text) {
    std::string ascii;
    for (const wchar_t letter : text) ascii += letter < 0x80 ? static_cast<char>(letter) : '?';
    return ascii;
}

std::string toUtf8(std::wstring_view text) {
    std::string bytes;
    for (std::size_t index = 0; index < text.size(); ++index) {
        auto point = static_cast<std::uint32_t>(text[index]);
        if (isHighSurrogate(point) && index + 1 < text.size()) {
            const auto low = static_cast<std::uint32_t>(text[index + 1]);
            if (isLowSurrogate(low)) {
                point = FIRST_SUPPLEMENTARY + ((point - 0xD800) << 10) + (low - 0xDC00);
                ++index;
            }
        }
        appendUtf8(bytes, point);
    }
    return bytes;
}

std::wstring fromUtf8(std::string_view bytes) {
    std::wstring text;
    for (std::size_t index = 0; index < bytes.size(); ++index) {
        const auto first = static_cast<std::uint8_t>(bytes[index]);
        const int more = followers(first);
        std::uint32_t point = more == 0 ? first : first & (0x3Fu >> more);
        for (int count = 0; count < more && index + 1 < bytes.size(); ++count)
            point = (point << 6) | (static_cast<std::uint8_t>(bytes[++index]) & 0x3F);
        appendWide(text, point);
    }
    return text;
}

}  // namespace tests

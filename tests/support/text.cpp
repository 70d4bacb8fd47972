#include "tests/support/text.h"

namespace tests {

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

}  // namespace tests

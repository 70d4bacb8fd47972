// The bytes of one fuzz input, taken one by one, and the end of a target whose rule is broken.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace fuzz {

class Input {
public:
    Input(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

    [[nodiscard]] bool atEnd() const { return position_ >= size_; }
    /// 0 when all bytes are used up.
    std::uint8_t take() { return atEnd() ? std::uint8_t{0} : data_[position_++]; }
    /// 0 to `limit` - 1.
    std::size_t take(std::size_t limit) { return take() % limit; }
    std::uint32_t takeNumber() {
        std::uint32_t number = 0;
        for (int count = 0; count < 4; ++count) number = number << 8 | take();
        return number;
    }

    /// Most of the time one of `common`.
    wchar_t takeCharacter(const std::wstring& common) {
        const std::size_t index = take(common.size() + 2);
        return index < common.size() ? common[index] : static_cast<wchar_t>(take() * 256 + take());
    }

    /// A text of fewer than `limit` characters, most of them out of `common`.
    std::wstring takeText(std::size_t limit, const std::wstring& common) {
        std::wstring text;
        for (std::size_t length = take(limit); length > 0; --length) text += takeCharacter(common);
        return text;
    }

private:
    const std::uint8_t* data_;
    std::size_t size_;
    std::size_t position_ = 0;
};

/// Ends the process where a rule is broken.
inline void require(bool holds, const char* rule) {
    if (holds) return;
    std::fprintf(stderr, "%s\n", rule);
    std::abort();
}

}  // namespace fuzz

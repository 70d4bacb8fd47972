#include "windows/controls/template_reader.h"

#include <cstdint>
#include <cstring>

namespace win {
namespace {

constexpr std::uint16_t EXTENDED = 0xFFFF;  // in the second word of an extended template
constexpr std::uint16_t ORDINAL = 0xFFFF;   // before a number in place of a text

/// Walks the words of a template; every read is checked against its end.
class Reader {
public:
    Reader(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

    std::uint16_t word() { return read<std::uint16_t>(); }
    std::uint32_t doubleWord() { return read<std::uint32_t>(); }
    void skip(std::size_t bytes) { position_ += bytes; }
    void align() { position_ = (position_ + 3) & ~std::size_t{3}; }
    [[nodiscard]] bool atEnd() const { return position_ >= size_; }

    /// A text or a number; the number, or 0 for a text.
    std::uint16_t textOrOrdinal() {
        std::uint16_t first = word();
        if (first == ORDINAL) return word();
        while (first != 0 && !atEnd()) first = word();
        return 0;
    }

private:
    template <class T>
    T read() {
        T value{};
        if (position_ + sizeof value <= size_) std::memcpy(&value, data_ + position_, sizeof value);
        position_ += sizeof value;
        return value;
    }

    const std::uint8_t* data_;
    std::size_t size_;
    std::size_t position_ = 0;
};

/// Skips the head of the template; the number of its controls.
int readHead(Reader& reader) {
    reader.skip(2);  // version
    if (reader.word() != EXTENDED) return 0;
    reader.skip(8);  // help, extended style
    const std::uint32_t style = reader.doubleWord();
    const int count = reader.word();
    reader.skip(8);          // place
    reader.textOrOrdinal();  // menu
    reader.textOrOrdinal();  // class
    reader.textOrOrdinal();  // caption
    if ((style & DS_SETFONT) != 0) {
        reader.skip(6);          // size, weight, italic and character set
        reader.textOrOrdinal();  // face
    }
    return count;
}

}  // namespace

int titleResource(HINSTANCE module, int templateIdentifier, int controlIdentifier) {
    const HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(templateIdentifier), RT_DIALOG);
    const HGLOBAL loaded = found ? LoadResource(module, found) : nullptr;
    if (loaded == nullptr) return 0;
    Reader reader(static_cast<const std::uint8_t*>(LockResource(loaded)), SizeofResource(module, found));
    for (int left = readHead(reader); left > 0 && !reader.atEnd(); --left) {
        reader.align();
        reader.skip(20);  // help, styles, place
        const auto identifier = static_cast<int>(reader.doubleWord());
        reader.textOrOrdinal();  // class
        const int title = reader.textOrOrdinal();
        reader.skip(reader.word());  // creation data
        if (identifier == controlIdentifier) return title;
    }
    return 0;
}

}  // namespace win

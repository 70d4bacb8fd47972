#include "windows/controls/template_reader.h"

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

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

    /// A text or a number; the number, or 0 for a text, which goes to `text`.
    std::uint16_t textOrOrdinal(std::wstring* text = nullptr) {
        std::uint16_t first = word();
        if (first == ORDINAL) return word();
        for (; first != 0 && !atEnd(); first = word())
            if (text != nullptr) *text += static_cast<wchar_t>(first);
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

/// What a template says of one control.
struct Entry {
    int identifier = 0;
    std::wstring windowClass;  ///< empty for one of the system's first six
    int title = 0;             ///< 0 for a text
};

Entry readEntry(Reader& reader) {
    Entry entry;
    reader.align();
    reader.skip(20);  // help, styles, place
    entry.identifier = static_cast<int>(reader.doubleWord());
    reader.textOrOrdinal(&entry.windowClass);
    entry.title = reader.textOrOrdinal();
    reader.skip(reader.word());  // creation data
    return entry;
}

/// The controls of a template; none where there is no such template.
std::vector<Entry> entries(HINSTANCE module, int templateIdentifier) {
    std::vector<Entry> all;
    const HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(templateIdentifier), RT_DIALOG);
    const HGLOBAL loaded = found ? LoadResource(module, found) : nullptr;
    if (loaded == nullptr) return all;
    Reader reader(static_cast<const std::uint8_t*>(LockResource(loaded)), SizeofResource(module, found));
    for (int left = readHead(reader); left > 0 && !reader.atEnd(); --left) all.push_back(readEntry(reader));
    return all;
}

}  // namespace

int titleResource(HINSTANCE module, int templateIdentifier, int controlIdentifier) {
    for (const Entry& entry : entries(module, templateIdentifier))
        if (entry.identifier == controlIdentifier) return entry.title;
    return 0;
}

bool usesClass(HINSTANCE module, int templateIdentifier, const wchar_t* windowClass) {
    for (const Entry& entry : entries(module, templateIdentifier))
        if (entry.windowClass == windowClass) return true;
    return false;
}

}  // namespace win

#include "page/property_bytes.h"

#include <type_traits>
#include <utility>

#include "common/error.h"

namespace vexa {
namespace {

constexpr std::uint32_t MARK = 0x45505056;  // "VPPE"
constexpr std::uint32_t VERSION = 1;
/// Characters: longer than any name, short enough that a broken length asks for no absurd memory.
constexpr std::uint32_t LONGEST_NAME = 1 << 20;
/// The automation value of true.
constexpr std::int16_t TRUE_VALUE = -1;

class Writer {
public:
    template <class Number>
    void put(Number number) {
        static_assert(std::is_integral_v<Number> && !std::is_same_v<Number, bool>);
        const auto* bytes = reinterpret_cast<const std::uint8_t*>(&number);
        bytes_.insert(bytes_.end(), bytes, bytes + sizeof number);
    }
    void put(bool flag) { put(flag ? TRUE_VALUE : std::int16_t{0}); }
    void put(const std::optional<StoredFont>& font) {
        putByte(font.has_value());
        if (font) putAttributes(*font);
    }
    [[nodiscard]] std::vector<std::uint8_t> take() { return std::move(bytes_); }

private:
    void putByte(bool flag) { bytes_.push_back(flag ? 1 : 0); }
    void putAttributes(const StoredFont& font) {
        put(font.size);
        put(font.weight);
        put(font.charset);
        for (const bool flag : {font.italic, font.underline, font.strikethrough}) putByte(flag);
        put(static_cast<std::uint32_t>(font.name.size()));
        for (const wchar_t character : font.name) put(static_cast<std::uint16_t>(character));
    }

    std::vector<std::uint8_t> bytes_;
};

class Reader {
public:
    explicit Reader(const ByteReader& read) : read_(read) {}

    template <class Number>
    void get(Number& number) {
        static_assert(std::is_integral_v<Number> && !std::is_same_v<Number, bool>);
        read_(&number, sizeof number);
    }
    void get(bool& flag) {
        std::int16_t number = 0;
        get(number);
        flag = number != 0;
    }
    void get(std::optional<StoredFont>& font) {
        bool any = false;
        getByte(any);
        if (any) getAttributes(font.emplace());
    }

private:
    void getByte(bool& flag) {
        std::uint8_t byte = 0;
        get(byte);
        flag = byte != 0;
    }
    void getAttributes(StoredFont& font) {
        get(font.size);
        get(font.weight);
        get(font.charset);
        for (bool* flag : {&font.italic, &font.underline, &font.strikethrough}) getByte(*flag);
        std::uint32_t length = 0;
        get(length);
        if (length > LONGEST_NAME) throw Error(L"The name is too long");
        std::vector<std::uint16_t> characters(length);
        read_(characters.data(), length * sizeof(std::uint16_t));
        font.name.assign(characters.begin(), characters.end());
    }

    const ByteReader& read_;
};

}  // namespace

std::vector<std::uint8_t> propertiesToBytes(const std::vector<PropertyValue>& values) {
    Writer writer;
    writer.put(MARK);
    writer.put(VERSION);
    for (const PropertyValue& value : values) std::visit([&](const auto& kind) { writer.put(kind); }, value);
    return writer.take();
}

void readProperties(const ByteReader& read, std::vector<PropertyValue>& values) {
    Reader reader(read);
    std::uint32_t mark = 0;
    std::uint32_t version = 0;
    reader.get(mark);
    if (mark != MARK) throw Error(L"Another kind of data");
    reader.get(version);
    if (version > VERSION) throw Error(L"A newer version");
    for (PropertyValue& value : values) std::visit([&](auto& kind) { reader.get(kind); }, value);
}

}  // namespace vexa

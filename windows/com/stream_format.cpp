#include "windows/com/stream_format.h"

#include <olectl.h>

#include <cstring>
#include <string>
#include <type_traits>

#include "windows/com/boundary.h"

namespace com {
namespace {

constexpr std::uint32_t MARK = 0x45505056;  // "VPPE"
constexpr std::uint32_t VERSION = 1;
/// Characters: longer than any name, short enough that a broken length asks for no absurd memory.
constexpr std::uint32_t LONGEST_NAME = 1 << 20;

/// What a font stores beside its name.
struct FontAttributes {
    std::int64_t size = 0;  // ten-thousandths of a point
    std::int16_t weight = 0;
    std::int16_t charset = 0;
    std::uint8_t italic = 0;
    std::uint8_t underline = 0;
    std::uint8_t strikethrough = 0;
};

class Writer {
public:
    template <class Number>
    void put(Number number) {
        static_assert(std::is_integral_v<Number>);
        const auto* bytes = reinterpret_cast<const std::uint8_t*>(&number);
        bytes_.insert(bytes_.end(), bytes, bytes + sizeof number);
    }
    void putText(const std::wstring& text) {
        put(static_cast<std::uint32_t>(text.size()));
        for (const wchar_t character : text) put(static_cast<std::uint16_t>(character));
    }
    [[nodiscard]] std::vector<std::uint8_t> take() { return std::move(bytes_); }

private:
    std::vector<std::uint8_t> bytes_;
};

class Reader {
public:
    explicit Reader(IStream& stream) : stream_(stream) {}
    template <class Number>
    Number get() {
        static_assert(std::is_integral_v<Number>);
        Number number{};
        read(&number, sizeof number);
        return number;
    }
    std::wstring getText() {
        const auto length = get<std::uint32_t>();
        if (length > LONGEST_NAME) throw Failure(E_FAIL);
        std::vector<std::uint16_t> characters(length);
        read(characters.data(), length * sizeof(std::uint16_t));
        return {characters.begin(), characters.end()};
    }

private:
    void read(void* bytes, std::size_t count) {
        ULONG got = 0;
        check(stream_.Read(bytes, static_cast<ULONG>(count), &got));
        if (got != count) throw Failure(E_FAIL);
    }
    IStream& stream_;
};

void putFont(Writer& writer, IFont& font) {
    Bstr name;
    CY size{};
    SHORT weight = 0;
    SHORT charset = 0;
    BOOL italic = FALSE;
    BOOL underline = FALSE;
    BOOL strikethrough = FALSE;
    check(font.get_Name(name.out()));
    check(font.get_Size(&size));
    check(font.get_Weight(&weight));
    check(font.get_Charset(&charset));
    check(font.get_Italic(&italic));
    check(font.get_Underline(&underline));
    check(font.get_Strikethrough(&strikethrough));
    writer.put(static_cast<std::int64_t>(size.int64));
    writer.put(static_cast<std::int16_t>(weight));
    writer.put(static_cast<std::int16_t>(charset));
    for (const BOOL flag : {italic, underline, strikethrough})
        writer.put(static_cast<std::uint8_t>(flag != FALSE));
    writer.putText(toText(name.get()));
}

FontAttributes getAttributes(Reader& reader) {
    FontAttributes attributes;
    attributes.size = reader.get<std::int64_t>();
    attributes.weight = reader.get<std::int16_t>();
    attributes.charset = reader.get<std::int16_t>();
    attributes.italic = reader.get<std::uint8_t>();
    attributes.underline = reader.get<std::uint8_t>();
    attributes.strikethrough = reader.get<std::uint8_t>();
    return attributes;
}

Ptr<IFontDisp> getFont(Reader& reader) {
    const FontAttributes attributes = getAttributes(reader);
    std::wstring name = reader.getText();
    FONTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = name.data();
    description.cySize.int64 = attributes.size;
    description.sWeight = attributes.weight;
    description.sCharset = attributes.charset;
    description.fItalic = attributes.italic != 0;
    description.fUnderline = attributes.underline != 0;
    description.fStrikethrough = attributes.strikethrough != 0;
    Ptr<IFontDisp> font;
    check(OleCreateFontIndirect(&description, IID_IFontDisp, font.outVoid()));
    return font;
}

void putValue(Writer& writer, const VARIANT& value) {
    switch (value.vt) {
        case VT_I4: return writer.put(static_cast<std::int32_t>(value.lVal));
        case VT_I2: return writer.put(static_cast<std::int16_t>(value.iVal));
        case VT_BOOL: return writer.put(static_cast<std::int16_t>(value.boolVal));
        default: break;
    }
    const auto font = Ptr<IUnknown>(value.punkVal).as<IFont>();
    writer.put(static_cast<std::uint8_t>(font ? 1 : 0));
    if (font) putFont(writer, *font.get());
}

void getValue(Reader& reader, StoredValues& values, std::size_t row) {
    VARIANT& value = values.at(row);
    switch (value.vt) {
        case VT_I4: value.lVal = reader.get<std::int32_t>(); break;
        case VT_I2: value.iVal = reader.get<std::int16_t>(); break;
        case VT_BOOL: value.boolVal = reader.get<std::int16_t>() != 0 ? VARIANT_TRUE : VARIANT_FALSE; break;
        default:
            if (reader.get<std::uint8_t>() != 0) values.setFont(getFont(reader));
    }
}

}  // namespace

std::vector<std::uint8_t> toBytes(const StoredValues& values) {
    Writer writer;
    writer.put(MARK);
    writer.put(VERSION);
    for (std::size_t row = 0; row < STORED_PROPERTIES; ++row) putValue(writer, values.at(row));
    return writer.take();
}

StoredValues fromStream(IStream& stream) {
    Reader reader(stream);
    if (reader.get<std::uint32_t>() != MARK) throw Failure(E_FAIL);
    if (reader.get<std::uint32_t>() > VERSION) throw Failure(E_FAIL);
    StoredValues values;
    for (std::size_t row = 0; row < STORED_PROPERTIES; ++row) getValue(reader, values, row);
    return values;
}

}  // namespace com

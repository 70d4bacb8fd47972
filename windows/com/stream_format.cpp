#include "windows/com/stream_format.h"

#include <olectl.h>

#include "page/property_bytes.h"
#include "windows/com/boundary.h"

namespace com {
namespace {

using vexa::PropertyValue;
using vexa::StoredFont;

StoredFont attributesOf(IFont& font) {
    Bstr name;
    CY size{};
    StoredFont stored;
    BOOL italic = FALSE;
    BOOL underline = FALSE;
    BOOL strikethrough = FALSE;
    check(font.get_Name(name.out()));
    check(font.get_Size(&size));
    check(font.get_Weight(&stored.weight));
    check(font.get_Charset(&stored.charset));
    check(font.get_Italic(&italic));
    check(font.get_Underline(&underline));
    check(font.get_Strikethrough(&strikethrough));
    stored.size = size.int64;
    stored.italic = italic != FALSE;
    stored.underline = underline != FALSE;
    stored.strikethrough = strikethrough != FALSE;
    stored.name = toText(name.get());
    return stored;
}

Ptr<IFontDisp> makeFont(StoredFont stored) {
    FONTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = stored.name.data();
    description.cySize.int64 = stored.size;
    description.sWeight = stored.weight;
    description.sCharset = stored.charset;
    description.fItalic = stored.italic;
    description.fUnderline = stored.underline;
    description.fStrikethrough = stored.strikethrough;
    Ptr<IFontDisp> font;
    check(OleCreateFontIndirect(&description, IID_IFontDisp, font.outVoid()));
    return font;
}

PropertyValue toProperty(const VARIANT& value) {
    switch (value.vt) {
        case VT_I4: return std::int32_t{value.lVal};
        case VT_I2: return std::int16_t{value.iVal};
        case VT_BOOL: return value.boolVal != VARIANT_FALSE;
        default: break;
    }
    const auto font = Ptr<IUnknown>(value.punkVal).as<IFont>();
    return font ? std::optional(attributesOf(*font.get())) : std::nullopt;
}

std::vector<PropertyValue> toProperties(const StoredValues& values) {
    std::vector<PropertyValue> properties;
    for (std::size_t row = 0; row < STORED_PROPERTIES; ++row)
        properties.push_back(toProperty(values.at(row)));
    return properties;
}

void fromProperty(StoredValues& values, std::size_t row, const PropertyValue& property) {
    VARIANT& value = values.at(row);
    if (const auto* number = std::get_if<std::int32_t>(&property)) value.lVal = *number;
    if (const auto* number = std::get_if<std::int16_t>(&property)) value.iVal = *number;
    if (const auto* flag = std::get_if<bool>(&property)) value.boolVal = *flag ? VARIANT_TRUE : VARIANT_FALSE;
    const auto* font = std::get_if<std::optional<StoredFont>>(&property);
    if (font && *font) values.setFont(makeFont(**font));
}

}  // namespace

std::vector<std::uint8_t> toBytes(const StoredValues& values) {
    return vexa::propertiesToBytes(toProperties(values));
}

StoredValues fromStream(IStream& stream) {
    StoredValues values;
    std::vector<PropertyValue> properties = toProperties(values);
    vexa::readProperties(
        [&](void* bytes, std::size_t count) {
            ULONG got = 0;
            check(stream.Read(bytes, static_cast<ULONG>(count), &got));
            if (got != count) throw Failure(E_FAIL);
        },
        properties);
    for (std::size_t row = 0; row < STORED_PROPERTIES; ++row) fromProperty(values, row, properties[row]);
    return values;
}

}  // namespace com

// The stored properties as bytes, to the letter.
#include "page/property_bytes.h"

#include <gmock/gmock.h>

#include <cstring>

#include "common/error.h"

namespace tests {
namespace {

using Bytes = std::vector<std::uint8_t>;
using Values = std::vector<vexa::PropertyValue>;

const vexa::StoredFont FONT{82500, 700, 1, true, false, true, L"a\x3b1"};

Values oneOfEach() {
    return {std::int32_t{0x04030201},         std::int16_t{-2}, true, std::optional(FONT), false,
            std::optional<vexa::StoredFont>()};
}

const Bytes MARK_AND_VERSION{'V', 'P', 'P', 'E', 1, 0, 0, 0};
const Bytes ONE_OF_EACH{
    'V',  'P',  'P', 'E', 1,   0, 0,    0,  // mark, version
    1,    2,    3,   4,                     // the number
    0xFE, 0xFF,                             // the short one
    0xFF, 0xFF,                             // true
    1,                                      // a font:
    0x44, 0x42, 1,   0,   0,   0, 0,    0,  // its size,
    0xBC, 2,    1,   0,                     // weight and character set,
    1,    0,    1,                          // italic and struck through,
    2,    0,    0,   0,   'a', 0, 0xB1, 3,  // its name
    0,    0,                                // false
    0,                                      // no font
};

/// What was read, and how many bytes of all were left.
std::size_t read(const Bytes& bytes, Values& values) {
    std::size_t position = 0;
    vexa::readProperties(
        [&](void* to, std::size_t count) {
            if (count > bytes.size() - position) throw vexa::Error(L"The end");
            if (count > 0) std::memcpy(to, bytes.data() + position, count);
            position += count;
        },
        values);
    return bytes.size() - position;
}

TEST(PropertyBytes, HoldEachKindInItsOwnWidth) {
    EXPECT_EQ(vexa::propertiesToBytes(oneOfEach()), ONE_OF_EACH);
    EXPECT_EQ(vexa::propertiesToBytes({}), MARK_AND_VERSION);
}

TEST(PropertyBytes, AreReadBackAndNothingBehindThem) {
    Bytes bytes = ONE_OF_EACH;
    bytes.push_back(7);
    Values values{std::int32_t{}, std::int16_t{},
                  bool{},         std::optional<vexa::StoredFont>(),
                  true,           std::optional<vexa::StoredFont>()};
    EXPECT_EQ(read(bytes, values), 1U);
    EXPECT_EQ(values, oneOfEach());
}

TEST(PropertyBytes, AnyNumberButZeroIsTrue) {
    for (const auto& [low, high, flag] :
         {std::tuple{0, 0, false}, std::tuple{1, 0, true}, std::tuple{0, 1, true}}) {
        Bytes bytes = MARK_AND_VERSION;
        bytes.insert(bytes.end(), {static_cast<std::uint8_t>(low), static_cast<std::uint8_t>(high)});
        Values values{!flag};
        EXPECT_EQ(read(bytes, values), 0U);
        EXPECT_EQ(values, Values{flag});
    }
}

struct Stored {
    const char* name;
    std::size_t at;
    std::uint8_t byte;
    bool accepted;
};

class PropertyHeads : public testing::TestWithParam<Stored> {};

TEST_P(PropertyHeads, AreThoseOfThisKindAndOfNoNewerVersion) {
    Bytes bytes = MARK_AND_VERSION;
    bytes[GetParam().at] = GetParam().byte;
    Values none;
    if (GetParam().accepted)
        EXPECT_EQ(read(bytes, none), 0U);
    else
        EXPECT_THROW(read(bytes, none), vexa::Error);
}

INSTANTIATE_TEST_SUITE_P(
    Bytes, PropertyHeads,
    testing::Values(Stored{"AnotherMark", 0, 'W', false}, Stored{"AnotherEndOfTheMark", 3, 'F', false},
                    Stored{"AnOlderVersion", 4, 0, true}, Stored{"ThisVersion", 4, 1, true},
                    Stored{"TheNextVersion", 4, 2, false}, Stored{"AMuchNewerVersion", 7, 1, false}),
    [](const auto& one) { return std::string(one.param.name); });

TEST(PropertyBytes, AreRefusedWhereverTheyAreCutOff) {
    for (std::size_t length = 0; length < ONE_OF_EACH.size(); ++length) {
        Values values = oneOfEach();
        EXPECT_THROW(read(Bytes(ONE_OF_EACH.begin(), ONE_OF_EACH.begin() + static_cast<int>(length)), values),
                     vexa::Error)
            << length;
    }
}

/// A font whose name has so many characters, all of them zero.
Bytes withName(std::uint32_t length) {
    constexpr std::size_t ATTRIBUTES = 15;
    Bytes bytes = MARK_AND_VERSION;
    bytes.push_back(1);
    bytes.resize(bytes.size() + ATTRIBUTES);
    for (int shift = 0; shift < 32; shift += 8) bytes.push_back(static_cast<std::uint8_t>(length >> shift));
    bytes.resize(bytes.size() + 2 * length);
    return bytes;
}

// A broken length must not ask for absurd memory.
TEST(PropertyBytes, ANameHasAMillionCharactersAtMost) {
    constexpr std::uint32_t MOST = 1 << 20;
    Values values{std::optional<vexa::StoredFont>()};
    EXPECT_EQ(read(withName(MOST), values), 0U);
    EXPECT_EQ(std::get<std::optional<vexa::StoredFont>>(values[0])->name.size(), MOST);
    EXPECT_THROW(read(withName(MOST + 1), values), vexa::Error);
}

}  // namespace
}  // namespace tests

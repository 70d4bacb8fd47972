#include "common/modRegistry.h"

#include <algorithm>
#include <cstring>

#include "common/error.h"

namespace vexa {
namespace {

constexpr std::uint32_t KEY_READ_ACCESS = 0x20019;
constexpr std::uint32_t KEY_WRITE_ACCESS = 0x20006;
constexpr std::uint32_t KEY_READ_WRITE_ACCESS = 0x2001F;
constexpr RegistryApi::Status SUCCESS = 0;

/// An open key; it closes with the object.
class OpenKey {
public:
    explicit OpenKey(RegistryApi& api) : api_(api) {}
    OpenKey(const OpenKey&) = delete;
    OpenKey& operator=(const OpenKey&) = delete;
    ~OpenKey() {
        if (opened_) api_.closeKey(key_);
    }
    bool open(RegistryApi::Key hive, const std::string& path, std::uint32_t access) {
        return opened_ = api_.openKey(hive, path, access, key_) == SUCCESS;
    }
    bool create(RegistryApi::Key hive, const std::string& path, std::uint32_t access) {
        return opened_ = api_.createKey(hive, path, access, key_) == SUCCESS;
    }
    [[nodiscard]] RegistryApi::Key get() const { return key_; }

private:
    RegistryApi& api_;
    RegistryApi::Key key_ = 0;
    bool opened_ = false;
};

/// The value that bytes of this type stand for.
Value decoded(ValueType type, const Bytes& bytes, AnsiCodec& ansi) {
    if (type == ValueType::binary) return bytes;
    if (type == ValueType::text) return ansi.fromAnsi({bytes.begin(), std::ranges::find(bytes, 0)});
    std::int32_t number = 0;
    std::memcpy(&number, bytes.data(), sizeof number);
    return number;
}

}  // namespace

std::int32_t asInteger(const Value& value, Conversions& conversions) {
    if (const auto* number = std::get_if<std::int32_t>(&value)) return *number;
    if (const auto* text = std::get_if<std::wstring>(&value)) return conversions.toInteger(*text);
    throw Error(description::typeMismatch);
}

std::wstring asText(const Value& value) {
    if (const auto* text = std::get_if<std::wstring>(&value)) return *text;
    if (const auto* number = std::get_if<std::int32_t>(&value)) return std::to_wstring(*number);
    throw Error(description::typeMismatch);
}

Value modRegistry::RegistryRead(RegistryApi::Key hive, const std::wstring& keyPath, const std::wstring& name,
                                const Value& defaultValue) noexcept try {
    OpenKey key(api_);
    if (!key.open(hive, ansi_.toAnsi(keyPath), KEY_READ_ACCESS)) return defaultValue;

    const std::string ansiName = ansi_.toAnsi(name);
    std::uint32_t type = 0;
    std::uint32_t size = 0;
    if (api_.queryValue(key.get(), ansiName, type, nullptr, size) != SUCCESS) return defaultValue;

    const auto kind = static_cast<ValueType>(type);
    switch (kind) {
        case ValueType::text:
            if (size == 0) return std::wstring();
            break;
        case ValueType::integer: size = sizeof(std::int32_t); break;
        case ValueType::binary:
            if (size == 0) return defaultValue;
            break;
        default: return defaultValue;
    }
    Bytes bytes(size);
    if (api_.queryValue(key.get(), ansiName, type, bytes.data(), size) != SUCCESS) return defaultValue;
    return decoded(kind, bytes, ansi_);
} catch (...) {
    try {
        return defaultValue;
    } catch (...) {
        return {};  // no memory even for the default
    }
}

void modRegistry::RegistryWrite(RegistryApi::Key hive, const std::wstring& keyPath, const std::wstring& name,
                                ValueType type, const Value& value) noexcept try {
    OpenKey key(api_);
    if (!key.create(hive, ansi_.toAnsi(keyPath), KEY_READ_WRITE_ACCESS)) return;

    const std::string ansiName = ansi_.toAnsi(name);
    const auto set = [&](const std::uint8_t* data, std::size_t size) {
        api_.setValue(key.get(), ansiName, static_cast<std::uint32_t>(type), data,
                      static_cast<std::uint32_t>(size));
    };
    switch (type) {
        case ValueType::text: {
            const std::wstring text = asText(value);
            const std::string ansi = ansi_.toAnsi(text);
            // The length is a count of characters even where the code page needs more bytes; the buffer is
            // never shorter than what is said of it.
            const std::size_t length = text.size() + 1;
            Bytes buffer(std::max(length, ansi.size() + 1));
            std::copy(ansi.begin(), ansi.end(), buffer.begin());
            set(buffer.data(), length);
            break;
        }
        case ValueType::binary: {
            const auto& bytes = std::get<Bytes>(value);
            if (!bytes.empty()) set(bytes.data(), bytes.size());
            break;
        }
        case ValueType::integer: {
            const std::int32_t number = asInteger(value, conversions_);
            set(reinterpret_cast<const std::uint8_t*>(&number), sizeof number);
            break;
        }
    }
} catch (...) {
    return;  // a write that fails does not happen
}

void modRegistry::RegistryDelete(RegistryApi::Key hive, const std::wstring& keyPath,
                                 const std::wstring& name) noexcept try {
    OpenKey key(api_);
    if (key.open(hive, ansi_.toAnsi(keyPath), KEY_WRITE_ACCESS))
        api_.deleteValue(key.get(), ansi_.toAnsi(name));
} catch (...) {
    return;  // a delete that fails does not happen
}

}  // namespace vexa

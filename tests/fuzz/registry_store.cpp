// Random values in the registry, random calls that fail, random texts to convert: what is read is the stored
// value or the default, nothing is thrown, no key stays open. The entry point is that of libFuzzer.
#include <algorithm>
#include <cmath>
#include <optional>

#include "common/error.h"
#include "common/modRegistry.h"
#include "tests/fuzz/input.h"
#include "tests/headless/machine.h"
#include "tests/support/recording_ports.h"

namespace {

using fuzz::Input;
using fuzz::require;
using vexa::Bytes;
using vexa::Value;
using vexa::ValueType;

constexpr const wchar_t* KEY = L"Software\\Norvane\\Quillmark";
constexpr const wchar_t* NAME = L"Value";
constexpr std::int32_t DEFAULT = 4711;
const std::wstring NUMBER_CHARACTERS = L"00123456789-+., ()$eE&HhO\t\xA0x";

class Store {
public:
    void act(Input& input) {
        switch (input.take(4)) {
            case 0: return putRaw(input);
            case 1: return write(input);
            case 2: return remove(input);
            default: return convert(input);
        }
    }

    /// A read with a call that may fail, and one without.
    void check(Input& input) {
        planFault(input);
        const Value disturbed = read();
        calls_.forgetFaults();
        const Value undisturbed = read();
        require(undisturbed == expected(), "a read value is neither the stored one nor the default");
        require(disturbed == undisturbed || disturbed == Value(DEFAULT), "a failing call made up a value");
        require(recording_.openKeys() == 0, "a key stays open");
    }

private:
    void putRaw(Input& input) {
        constexpr std::uint32_t MOST_TYPES = 13;
        Bytes data(input.take(12));
        for (std::uint8_t& byte : data) byte = input.take();
        machine_.registry.put(KEY, NAME, {static_cast<std::uint32_t>(input.take(MOST_TYPES)), data});
    }

    void write(Input& input) {
        planFault(input);
        const Value value = takeValue(input);
        const auto type = static_cast<ValueType>(input.take(6));
        const auto before = machine_.registry.get(KEY, NAME);
        store_.RegistryWrite(vexa::HKEY_CURRENT_USER_HIVE, KEY, NAME, type, value);
        calls_.forgetFaults();
        const auto after = machine_.registry.get(KEY, NAME);
        const bool unchanged = before.has_value() == after.has_value() &&
                               (!after || (before->type == after->type && before->data == after->data));
        require(unchanged || static_cast<ValueType>(after->type) == type, "a write stored another type");
    }

    void remove(Input& input) {
        planFault(input);
        store_.RegistryDelete(vexa::HKEY_CURRENT_USER_HIVE, KEY, NAME);
        calls_.forgetFaults();
    }

    void convert(Input& input) {
        machine_.conversions.locale = input.take(2) == 0 ? headless::english() : headless::german();
        const std::wstring text = input.takeText(16, NUMBER_CHARACTERS);
        const auto number = integerOf(text);
        require(integerOf(L" " + text + L" ") == number, "blanks around a number count");
        if (!number) return;
        require(integerOf(std::to_wstring(*number)) == number, "a number does not come back from its text");
        require(std::abs(machine_.conversions.toNumber(text) - *number) <= 0.5,
                "an integer is not the nearest one");
    }

    std::optional<std::int32_t> integerOf(const std::wstring& text) {
        try {
            return machine_.conversions.toInteger(text);
        } catch (const vexa::Error&) {
            return {};
        }
    }

    Value takeValue(Input& input) {
        switch (input.take(3)) {
            case 0: return static_cast<std::int32_t>(input.takeNumber());
            case 1: return Bytes(input.take(5), input.take());
            default: return input.takeText(16, NUMBER_CHARACTERS);
        }
    }

    /// Half of the time one of the next calls fails.
    void planFault(Input& input) {
        const std::size_t failing = input.take(8);
        if (failing < 4) calls_.failCall(failing);
    }

    Value read() { return store_.RegistryRead(vexa::HKEY_CURRENT_USER_HIVE, KEY, NAME, DEFAULT); }

    /// What the documented rules make of the stored value.
    [[nodiscard]] Value expected() {
        const auto stored = machine_.registry.get(KEY, NAME);
        if (!stored) return DEFAULT;
        const Bytes& data = stored->data;
        switch (static_cast<ValueType>(stored->type)) {
            case ValueType::text: {
                const std::string text(data.begin(), std::ranges::find(data, 0));
                return machine_.ansi.fromAnsi(text);
            }
            case ValueType::integer: {
                std::int32_t number = 0;
                if (data.size() > sizeof number) return DEFAULT;
                std::ranges::copy(data, reinterpret_cast<std::uint8_t*>(&number));
                return number;
            }
            case ValueType::binary: return data.empty() ? Value(DEFAULT) : Value(data);
        }
        return DEFAULT;
    }

    headless::Machine machine_;
    tests::CallLog calls_;
    tests::RecordingRegistry recording_{calls_, machine_.registry, machine_.ansi};
    vexa::modRegistry store_{recording_, machine_.ansi, machine_.conversions};
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    Store store;
    while (!input.atEnd()) {
        store.act(input);
        store.check(input);
    }
    return 0;
}

// The ANSI code page and the automation conversions of the user's locale.
#pragma once

#include "common/platform.h"
#include "windows/platform/text.h"

namespace win {

class AnsiCodec : public vexa::AnsiCodec {
public:
    [[nodiscard]] std::string toAnsi(const std::wstring& text) override { return win::toAnsi(text); }
    [[nodiscard]] std::wstring fromAnsi(const std::string& bytes) override { return win::fromAnsi(bytes); }
};

class Conversions : public vexa::Conversions {
public:
    /// Conversions of another locale than the user's are for tests.
    explicit Conversions(std::uint32_t locale = 0x0400) : locale_(locale) {}
    [[nodiscard]] std::int32_t toInteger(const std::wstring& text) override;
    [[nodiscard]] double toDate(const std::wstring& text) override;
    [[nodiscard]] std::wstring lower(const std::wstring& text) override;

private:
    std::uint32_t locale_;
};

}  // namespace win

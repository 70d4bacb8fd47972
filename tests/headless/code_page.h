// The ANSI code page of a western machine: 1252.
#pragma once

#include "common/platform.h"

namespace headless {

/// What the page lacks becomes "?"; surrogate pairs become two of them, as on the system.
class CodePage1252 : public vexa::AnsiCodec {
public:
    [[nodiscard]] std::string toAnsi(const std::wstring& text) override;
    [[nodiscard]] std::wstring fromAnsi(const std::string& bytes) override;
};

}  // namespace headless

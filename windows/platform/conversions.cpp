#include "windows/platform/conversions.h"

#include <windows.h>

#include <oleauto.h>

#include <new>

#include "common/error.h"

namespace win {
namespace {

void check(HRESULT result) {
    if (SUCCEEDED(result)) return;
    if (result == E_OUTOFMEMORY) throw std::bad_alloc();
    throw vexa::Error(result == DISP_E_OVERFLOW ? vexa::description::overflow
                                                : vexa::description::typeMismatch);
}

/// The bounds of a date serial: the years 100 to 9999.
constexpr double FIRST_DATE = -657434.0;
constexpr double END_OF_DATES = 2958466.0;

}  // namespace

std::int32_t Conversions::toInteger(const std::wstring& text) {
    LONG number = 0;
    check(VarI4FromStr(const_cast<wchar_t*>(text.c_str()), locale_, 0, &number));
    return number;
}

double Conversions::toDate(const std::wstring& text) {
    DATE date = 0;
    if (SUCCEEDED(VarDateFromStr(const_cast<wchar_t*>(text.c_str()), locale_, 0, &date))) return date;
    double serial = 0;
    check(VarR8FromStr(const_cast<wchar_t*>(text.c_str()), locale_, 0, &serial));
    if (!(serial > FIRST_DATE - 1 && serial < END_OF_DATES))
        throw vexa::Error(vexa::description::typeMismatch);
    return serial;
}

std::wstring Conversions::lower(const std::wstring& text) {
    std::wstring result = text;
    if (!result.empty()) CharLowerBuffW(result.data(), static_cast<DWORD>(result.size()));
    return result;
}

}  // namespace win

// Tables of the settings dialogs: every setting as it was before x what the user does x OK or Cancel.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <tuple>
#include <vector>

#include "common/settings.h"
#include "tests/stage/user.h"

namespace tests {

/// A record to start from.
struct Before {
    const char* name;
    std::function<void(vexa::Settings&)> prepare;
};

/// What the user does, and what OK makes of the record.
template <class Form>
struct Deed {
    const char* name;
    std::function<void(User&, Form&)> act;
    std::function<void(vexa::Settings&)> result;
};

/// The last: whether the dialog ends with OK.
template <class Form>
using DialogRow = std::tuple<Before, Deed<Form>, bool>;

template <class Form>
[[nodiscard]] auto everyRow(const std::vector<Before>& before, const std::vector<Deed<Form>>& deeds) {
    return testing::Combine(testing::ValuesIn(before), testing::ValuesIn(deeds), testing::Bool());
}

template <class Form>
[[nodiscard]] std::string rowName(const testing::TestParamInfo<DialogRow<Form>>& row) {
    const auto& [before, deed, confirmed] = row.param;
    return std::string(before.name) + "_" + deed.name + (confirmed ? "_Ok" : "_Cancel");
}

}  // namespace tests

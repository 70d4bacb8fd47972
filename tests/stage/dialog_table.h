// Tables of the settings dialogs: every setting as it was before x what the user does x Cancel, then OK.
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

template <class Form>
using DialogRow = std::tuple<Before, Deed<Form>>;

template <class Form>
[[nodiscard]] auto everyRow(const std::vector<Before>& before, const std::vector<Deed<Form>>& deeds) {
    return testing::Combine(testing::ValuesIn(before), testing::ValuesIn(deeds));
}

template <class Form>
[[nodiscard]] std::string rowName(const testing::TestParamInfo<DialogRow<Form>>& row) {
    const auto& [before, deed] = row.param;
    return std::string(before.name) + "_" + deed.name;
}

/// A script: the deed, then OK or Cancel, which closes the dialog.
template <class Form>
[[nodiscard]] auto playRow(User& user, const Deed<Form>& deed, bool confirmed) {
    return [&user, &deed, confirmed](Form& form) {
        deed.act(user, form);
        user.click(confirmed ? form.cmdOk : form.cmdCancel);
        EXPECT_FALSE(form.window().isOpen());
    };
}

}  // namespace tests

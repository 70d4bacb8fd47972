// Base of the form tests: a fresh stage for each test.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/stage/stage.h"

namespace tests {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

/// Names the tests of a table whose rows have names.
inline constexpr auto namedRow = [](const auto& row) { return std::string(row.param.name); };

class FormTest : public testing::Test {
public:
    std::unique_ptr<Stage> stage = Stage::create();
    vexa::Application& application = stage->application();
    User& user = stage->user();
    CallLog& calls = stage->calls();
};

}  // namespace tests

// Base of the form tests: a fresh stage for each test.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/stage/stage.h"

namespace tests {

class FormTest : public testing::Test {
protected:
    std::unique_ptr<Stage> stage = Stage::create();
    vexa::Application& application = stage->application();
    User& user = stage->user();
    CallLog& calls = stage->calls();
};

}  // namespace tests

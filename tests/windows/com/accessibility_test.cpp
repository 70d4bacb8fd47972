// What screen readers are told of the built control's page and of each of its dialogs.
#include "tests/windows/controls/reader_table.h"
#include "tests/windows/matrix/hostile_world.h"
#include "tests/windows/matrix/tables.h"

namespace tests {
namespace {

class AccessibleControl : public HostileWorld {
protected:
    /// The page takes its words back from the stand-in, which therefore outlives it.
    ~AccessibleControl() override { finish(); }
    AnnotationsStandIn annotations;
};

class AccessibleDialogs : public AccessibleControl, public testing::WithParamInterface<Situation> {};

TEST_F(AccessibleControl, EveryButtonOfThePageIsToldByAName) {
    prepare();
    expectEachNamed("ctlPPE", pageWindow(), annotations);
}

TEST_P(AccessibleDialogs, EveryControlThatCanHaveTheFocusIsToldByAName) {
    prepare();
    play(GetParam(), [&] { expectEachNamed(GetParam().name, openDialogs().back(), annotations); });
}

INSTANTIATE_TEST_SUITE_P(Each, AccessibleDialogs, testing::ValuesIn(ownDialogs()), situationName);

}  // namespace
}  // namespace tests

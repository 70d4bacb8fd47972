// What the pages of a process share, and the one thread that they live on.
#include "windows/com/runtime.h"

#include <thread>

#include "tests/windows/com/control_test.h"
#include "windows/com/boundary.h"
#include "windows/com/page_host.h"

namespace tests {
namespace {

class NoSite : public vexa::PageSite {
public:
    void onStatusChange() override {}
    [[nodiscard]] std::wstring displayName() override { return {}; }
};

/// A page that has not been started: all that counts here is that it is there.
class RuntimeTest : public ControlTest {
protected:
    ~RuntimeTest() override { EXPECT_TRUE(com::Runtime::shutDown()); }

    NoSite site;
    com::PageHost page{container, site};
    com::PageHost other{container, site};
};

HRESULT enter(com::PageHost& page) {
    try {
        com::Runtime::enter(page).leave(page);
        return S_OK;
    } catch (const com::Failure& failure) {
        return failure.code();
    }
}

HRESULT enterOnAnotherThread(com::PageHost& page) {
    HRESULT result = E_FAIL;
    std::thread([&] { result = enter(page); }).join();
    return result;
}

TEST_F(RuntimeTest, MovesToAnotherThreadOnlyWhenTheFirstHasNoPageLeft) {
    com::Runtime& runtime = com::Runtime::enter(page);
    EXPECT_EQ(enter(other), S_OK);
    EXPECT_EQ(enterOnAnotherThread(other), RPC_E_WRONG_THREAD);
    runtime.leave(page);
    EXPECT_EQ(enterOnAnotherThread(other), S_OK);
    EXPECT_EQ(enter(page), S_OK);
}

TEST_F(RuntimeTest, TakesItsMemoryAlong) {
    com::Runtime& runtime = com::Runtime::enter(page);
    runtime.application().flags.shortcutChanged = true;
    runtime.leave(page);
    EXPECT_EQ(enterOnAnotherThread(other), S_OK);
    com::Runtime& again = com::Runtime::enter(page);
    EXPECT_TRUE(again.application().flags.shortcutChanged);
    again.leave(page);
}

TEST_F(RuntimeTest, AnotherThreadsControlIsRefusedWhileAPageLives) {
    create();
    close();
    HRESULT made = S_OK;
    std::thread([&] {
        com::Ptr<IUnknown> second;
        made = library.factory()->CreateInstance(nullptr, IID_IUnknown, second.outVoid());
    }).join();
    EXPECT_EQ(made, RPC_E_WRONG_THREAD);
}

}  // namespace
}  // namespace tests

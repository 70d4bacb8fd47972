// Finding the running add-in by its name in the running object table.
#include <gtest/gtest.h>

#include "tests/windows/platform/addin_stand_in.h"
#include "tests/windows/stage/local.h"
#include "windows/platform/addin.h"

namespace tests {
namespace {

class AddInLocatorTest : public testing::Test {
protected:
    AddInLocatorTest() { registerAddIn(); }
    ~AddInLocatorTest() override { stopRunning(); }

    void startRunning(IUnknown& running) {
        ASSERT_EQ(RegisterActiveObject(&running, __uuidof(OlAddIn), ACTIVEOBJECT_STRONG, &registration_),
                  S_OK);
    }
    void stopRunning() {
        if (registration_ != 0) RevokeActiveObject(registration_, nullptr);
        registration_ = 0;
    }

    AddInStandIn object;
    win::AddInLocator locator;

private:
    struct Com {
        Com() { OleInitialize(nullptr); }
        ~Com() { OleUninitialize(); }
    } com_;
    DWORD registration_ = 0;
};

TEST_F(AddInLocatorTest, FindsTheRunningAddIn) {
    startRunning(static_cast<IOlAddIn&>(object));
    const auto addIn = locator.running();
    ASSERT_TRUE(addIn);
    addIn->NotifyKbAdded(L"Mail");
    EXPECT_EQ(object.calls, std::vector<std::string>{"NotifyKbAdded(\"Mail\")"});
}

TEST_F(AddInLocatorTest, WithoutARunningAddInThereIsNone) { EXPECT_FALSE(locator.running()); }

TEST_F(AddInLocatorTest, AnAddInThatStoppedIsNotFoundAgainButAnOldReferenceStaysValid) {
    startRunning(static_cast<IOlAddIn&>(object));
    const auto addIn = locator.running();
    stopRunning();
    EXPECT_FALSE(locator.running());
    ASSERT_TRUE(addIn);
    EXPECT_NO_THROW(addIn->SetLogging(true));
}

TEST_F(AddInLocatorTest, AnObjectWithoutTheAddInsInterfaceIsNone) {
    Local<IUnknown> foreign;
    startRunning(foreign);
    EXPECT_FALSE(locator.running());
    stopRunning();  // while the object still lives
}

TEST_F(AddInLocatorTest, WithoutARegisteredNameThereIsNone) {
    startRunning(static_cast<IOlAddIn&>(object));
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, L"Software\\Classes\\Tarnwell.OlAddIn.1");
    EXPECT_FALSE(locator.running());
}

}  // namespace
}  // namespace tests

// Finding the running add-in by its name in the running object table.
#include <gtest/gtest.h>

#include "tests/windows/platform/addin_stand_in.h"
#include "windows/platform/addin.h"

namespace tests {
namespace {

constexpr const wchar_t* CLASSES = L"Software\\Classes\\";
constexpr const wchar_t* PROG_ID = L"Tarnwell.OlAddIn.1";

void setDefault(const std::wstring& key, const std::wstring& text) {
    RegSetKeyValueW(HKEY_LOCAL_MACHINE, (CLASSES + key).c_str(), nullptr, REG_SZ, text.c_str(),
                    static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

class AddInLocatorTest : public testing::Test {
protected:
    AddInLocatorTest() {
        wchar_t classId[40];
        StringFromGUID2(__uuidof(OlAddIn), classId, 40);
        setDefault(std::wstring(PROG_ID) + L"\\CLSID", classId);
    }
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

/// Answers every question for an interface but IUnknown with no.
class ForeignObject final : public IUnknown {
public:
    ~ForeignObject() = default;
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override {
        *out = iid == __uuidof(IUnknown) ? this : nullptr;
        return *out != nullptr ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
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
    ForeignObject foreign;
    startRunning(foreign);
    EXPECT_FALSE(locator.running());
    stopRunning();  // while the object still lives
}

TEST_F(AddInLocatorTest, WithoutARegisteredNameThereIsNone) {
    startRunning(static_cast<IOlAddIn&>(object));
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, (std::wstring(CLASSES) + PROG_ID).c_str());
    EXPECT_FALSE(locator.running());
}

}  // namespace
}  // namespace tests

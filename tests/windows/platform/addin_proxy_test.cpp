// The proxy of the add-in against a stand-in: every operation by its place, its arguments and its failures.
#include <gmock/gmock.h>

#include <algorithm>

#include "common/error.h"
#include "tests/windows/platform/addin_stand_in.h"
#include "windows/platform/addin.h"
#include "windows/platform/text.h"

namespace tests {
namespace {

using testing::ElementsAre;

class AddInProxyTest : public testing::Test {
protected:
    AddInStandIn object;
    win::AddIn addIn{com::Ptr<IOlAddIn>(&object)};

    /// The description of the error that the call throws; "no error" where it throws none.
    template <class Call>
    std::wstring errorOf(Call call) {
        try {
            call();
        } catch (const vexa::Error& error) {
            return error.description();
        }
        return L"no error";
    }
};

TEST_F(AddInProxyTest, EveryOperationArrivesAtItsMethodWithItsArguments) {
    addIn.SetDefaultKnowledgebase(L"Mail");
    addIn.SetLogging(true);
    addIn.SetLogging(false);
    addIn.NotifyKbAdded(L"added");
    addIn.NotifyKbRemoved(L"removed");
    addIn.NotifyKbRenamed(L"old", L"new");
    addIn.NotifyKbRebuild(L"rebuilt");
    addIn.NotifyKbUpdate(L"updated");
    EXPECT_FALSE(addIn.IsProcessing());
    EXPECT_FALSE(addIn.IsAutoUpdateRunning());
    addIn.SetFindShortcut(-3);
    EXPECT_FALSE(addIn.IsSearching());
    EXPECT_THAT(object.calls,
                ElementsAre("SetDefaultKnowledgebase(\"Mail\")", "SetLogging(-1)", "SetLogging(0)",
                            "NotifyKbAdded(\"added\")", "NotifyKbRemoved(\"removed\")",
                            "NotifyKbRenamed(\"old\", \"new\")", "NotifyKbRebuild(\"rebuilt\")",
                            "NotifyKbUpdate(\"updated\")", "IsProcessing()", "IsAutoUpdateRunning()",
                            "SetFindShortcut(-3)", "IsSearching()"));
}

TEST_F(AddInProxyTest, AReportIsSentWithItsSevenArgumentsInOrder) {
    addIn.SendMail({L"subject", L"body", L"{\\rtf1 body}", L"to@example.org", L"", 2, true});
    EXPECT_THAT(object.calls, ElementsAre("SendMail(\"subject\", \"body\", \"{\\rtf1 body}\", "
                                          "\"to@example.org\", \"\", 2, -1)"));
}

TEST_F(AddInProxyTest, AnyAnswerButFalseIsTrue) {
    for (const VARIANT_BOOL answer : {VARIANT_TRUE, VARIANT_BOOL{1}}) {
        object.flag = answer;
        EXPECT_TRUE(addIn.IsProcessing());
        EXPECT_TRUE(addIn.IsAutoUpdateRunning());
        EXPECT_TRUE(addIn.IsSearching());
    }
}

// --- Places of the interface's table ----------------------------------------------------------------------

/// Calls the method at a position of the interface's table; its own methods count from 1, after the seven of
/// IUnknown and IDispatch.
template <class... Arguments>
void callAtPosition(IOlAddIn& object, int position, Arguments... arguments) {
    constexpr int ENTRIES_BEFORE = 7;
    using Method = HRESULT(STDMETHODCALLTYPE*)(IOlAddIn*, Arguments...);
    auto** const table = *reinterpret_cast<void***>(&object);
    reinterpret_cast<Method>(table[ENTRIES_BEFORE + position - 1])(&object, arguments...);
}

TEST_F(AddInProxyTest, EachOperationStandsAtItsPositionOfTheInterface) {
    const com::Bstr text(L"x");
    const BSTR x = text.get();
    VARIANT_BOOL result = VARIANT_FALSE;
    IOlAddIn& table = object;
    callAtPosition(table, 6, x);
    callAtPosition(table, 10, VARIANT_TRUE);
    for (const int position : {12, 13}) callAtPosition(table, position, x);
    callAtPosition(table, 14, x, x);
    for (const int position : {15, 16}) callAtPosition(table, position, x);
    for (const int position : {21, 23}) callAtPosition(table, position, &result);
    callAtPosition(table, 33, x, x, x, x, x, 1L, VARIANT_TRUE);
    callAtPosition(table, 39, 4L);
    callAtPosition(table, 48, &result);
    EXPECT_THAT(object.calls,
                ElementsAre("SetDefaultKnowledgebase(\"x\")", "SetLogging(-1)", "NotifyKbAdded(\"x\")",
                            "NotifyKbRemoved(\"x\")", "NotifyKbRenamed(\"x\", \"x\")",
                            "NotifyKbRebuild(\"x\")", "NotifyKbUpdate(\"x\")", "IsProcessing()",
                            "IsAutoUpdateRunning()", "SendMail(\"x\", \"x\", \"x\", \"x\", \"x\", 1, -1)",
                            "SetFindShortcut(4)", "IsSearching()"));
}

TEST_F(AddInProxyTest, EveryOtherPositionIsReserved) {
    const std::vector<int> used{6, 10, 12, 13, 14, 15, 16, 21, 23, 33, 39, 48};
    std::vector<std::string> expected;
    for (int position = 1; position <= 48; ++position) {
        if (std::ranges::count(used, position) > 0) continue;
        callAtPosition(object, position);
        expected.push_back("reserved(" + std::to_string(position) + ")");
    }
    EXPECT_EQ(object.calls, expected);
}

// --- Failures ---------------------------------------------------------------------------------------------

TEST_F(AddInProxyTest, AFailureBearsTheDescriptionThatTheAddInLeft) {
    object.answer = E_FAIL;
    object.description = L"The index is damaged: Übersicht";
    EXPECT_EQ(errorOf([&] { addIn.NotifyKbRebuild(L"x"); }), object.description);
    EXPECT_EQ(errorOf([&] { addIn.SetLogging(true); }), object.description);
    EXPECT_EQ(errorOf([&] { addIn.NotifyKbRenamed(L"x", L"y"); }), object.description);
    EXPECT_EQ(errorOf([&] { (void)addIn.IsSearching(); }), object.description);
    EXPECT_EQ(errorOf([&] { addIn.SetFindShortcut(1); }), object.description);
    EXPECT_EQ(errorOf([&] { addIn.SendMail({}); }), object.description);
}

TEST_F(AddInProxyTest, AFailureWithoutADescriptionBearsTheSystemsText) {
    object.answer = E_ACCESSDENIED;
    EXPECT_EQ(errorOf([&] { addIn.NotifyKbUpdate(L"x"); }),
              win::systemErrorText(static_cast<DWORD>(E_ACCESSDENIED)));
}

TEST_F(AddInProxyTest, ADescriptionLeftByAnEarlierCallIsNotTaken) {
    com::Ptr<ICreateErrorInfo> creator;
    ASSERT_EQ(CreateErrorInfo(creator.out()), S_OK);
    std::wstring stale = L"stale";
    creator->SetDescription(stale.data());
    SetErrorInfo(0, creator.as<IErrorInfo>().get());
    object.answer = E_NOTIMPL;
    EXPECT_EQ(errorOf([&] { addIn.NotifyKbUpdate(L"x"); }),
              win::systemErrorText(static_cast<DWORD>(E_NOTIMPL)));
}

TEST_F(AddInProxyTest, AnAddInThatGoesAwayBetweenTwoCallsIsAnErrorOfTheSecond) {
    EXPECT_EQ(errorOf([&] { (void)addIn.IsProcessing(); }), L"no error");
    object.answer = RPC_E_DISCONNECTED;
    const std::wstring text = errorOf([&] { (void)addIn.IsProcessing(); });
    EXPECT_EQ(text, win::systemErrorText(static_cast<DWORD>(RPC_E_DISCONNECTED)));
    EXPECT_FALSE(text.empty());
}

TEST_F(AddInProxyTest, ASuccessCodeIsNoError) {
    object.answer = S_FALSE;
    EXPECT_EQ(errorOf([&] { addIn.NotifyKbAdded(L"x"); }), L"no error");
}

TEST_F(AddInProxyTest, TextsOutsideAsciiAndEmptyTextsArrive) {
    object.answer = E_FAIL;
    object.description = L"\u03A9\U0001F600";
    EXPECT_EQ(errorOf([&] { addIn.NotifyKbAdded(L""); }), object.description);
    EXPECT_THAT(object.calls, ElementsAre("NotifyKbAdded(\"\")"));
}

TEST(AddInProxyLifetime, TheProxyHoldsTheObjectAndLetsItGo) {
    AddInStandIn object;
    {
        const win::AddIn addIn{com::Ptr<IOlAddIn>(&object)};
        EXPECT_EQ(object.references(), 2u);
    }
    EXPECT_EQ(object.references(), 1u);
}

}  // namespace
}  // namespace tests

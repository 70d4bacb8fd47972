// The connection to the add-in's event: found in several ways, tolerant in its arguments, harmless at its
// end.
#include <gmock/gmock.h>
#include <windows.h>

#include <olectl.h>

#include <thread>

#include "common/error.h"
#include "tests/windows/platform/addin_stand_in.h"
#include "tests/windows/stage/messages.h"
#include "tests/windows/stage/variants.h"
#include "windows/platform/addin.h"
#include "windows/platform/addin_sink.h"

namespace tests {
namespace {

using testing::ElementsAre;
using testing::Pair;

class AddInEventsTest : public testing::Test {
protected:
    AddInStandIn object;
    win::AddIn addIn{com::Ptr<IOlAddIn>(&object)};
    std::vector<std::pair<std::wstring, bool>> received;

    std::unique_ptr<vexa::EventConnection> connect() {
        return addIn.connect(
            [this](const std::wstring& project, bool keepList) { received.emplace_back(project, keepList); });
    }
};

com::Ptr<win::AddInSink> newSink(vexa::AddIn::ProcessFinished handler) {
    return com::Ptr<win::AddInSink>::attach(
        new win::AddInSink({__uuidof(_IOlAddInEvents), 1}, std::move(handler)));
}

/// An event without arguments.
HRESULT raiseBare(IDispatch& sink) {
    DISPPARAMS none{};
    return sink.Invoke(1, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr);
}

// --- Finding the event ------------------------------------------------------------------------------------

TEST_F(AddInEventsTest, TheTypeLibraryOfTheAddInIsThere) {
    EXPECT_TRUE(addInTypeInformation(__uuidof(_IOlAddInEvents)));
}

TEST_F(AddInEventsTest, ConnectsToTheDefaultSourceOfTheClass) {
    const auto connection = connect();
    object.raiseProcessFinished(L"Mail", true);
    object.raiseProcessFinished(L"", false);
    EXPECT_THAT(received, ElementsAre(Pair(L"Mail", true), Pair(L"", false)));
}

TEST_F(AddInEventsTest, ConnectsToTheFirstConnectionPointOfAnObjectWithoutClassInformation) {
    object.offer.classInformation = false;
    const auto connection = connect();
    object.raiseProcessFinished(L"Mail", false);
    EXPECT_THAT(received, ElementsAre(Pair(L"Mail", false)));
}

TEST_F(AddInEventsTest, WithoutTypeInformationTheEventIsTheMemberOne) {
    object.offer.classInformation = false;
    object.offer.typeInformation = false;
    const auto connection = connect();
    object.raiseProcessFinished(L"Mail", false);
    EXPECT_THAT(received, ElementsAre(Pair(L"Mail", false)));
}

TEST_F(AddInEventsTest, TheEventIsFoundByItsNameWhateverItsNumber) {
    object.offer.renumbered = true;
    const auto connection = connect();
    EXPECT_EQ(object.raise(1, {integer(0), integer(0)}), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(object.raise(7, {integer(1), integer(12)}), S_OK);
    EXPECT_THAT(received, ElementsAre(Pair(L"12", true)));
}

TEST_F(AddInEventsTest, AnObjectWithoutConnectionPointsIsAnError) {
    object.offer.connectionPoints = false;
    EXPECT_THROW((void)connect(), vexa::Error);
}

TEST_F(AddInEventsTest, ARefusedConnectionIsAnErrorAndLeavesNoReference) {
    object.offer.advise = CONNECT_E_ADVISELIMIT;
    EXPECT_THROW((void)connect(), vexa::Error);
    EXPECT_EQ(object.references(), 2u);  // the test's own and the proxy's
}

TEST_F(AddInEventsTest, OtherMembersOfTheSourceAreNotTheEvent) {
    const auto connection = connect();
    EXPECT_EQ(object.raise(2, {integer(0), integer(0)}), DISP_E_MEMBERNOTFOUND);
    EXPECT_TRUE(received.empty());
}

// --- Arguments --------------------------------------------------------------------------------------------

TEST_F(AddInEventsTest, ArgumentsMayComeByReference) {
    const auto connection = connect();
    const com::Bstr name(L"Mail");
    BSTR nameTarget = name.get();
    VARIANT_BOOL keepTarget = VARIANT_TRUE;
    EXPECT_EQ(object.raise(1, {reference(VT_BOOL, &keepTarget), reference(VT_BSTR, &nameTarget)}), S_OK);
    VARIANT inner = text(name.get());
    EXPECT_EQ(object.raise(1, {integer(0), reference(VT_VARIANT, &inner)}), S_OK);
    EXPECT_THAT(received, ElementsAre(Pair(L"Mail", true), Pair(L"Mail", false)));
}

TEST_F(AddInEventsTest, ArgumentsOfOtherTypesAreConverted) {
    const auto connection = connect();
    const com::Bstr yes(L"True");
    EXPECT_EQ(object.raise(1, {integer(5), integer(12)}), S_OK);
    EXPECT_EQ(object.raise(1, {text(yes.get()), integer(-1)}), S_OK);
    EXPECT_THAT(received, ElementsAre(Pair(L"12", true), Pair(L"-1", true)));
}

TEST_F(AddInEventsTest, ANameThatIsNoStringAtAllIsTheEmptyText) {
    const auto connection = connect();
    EXPECT_EQ(object.raise(1, {integer(0), text(nullptr)}), S_OK);
    EXPECT_THAT(received, ElementsAre(Pair(L"", false)));
}

TEST_F(AddInEventsTest, ArgumentsThatDoNotConvertAreRefused) {
    const auto connection = connect();
    const com::Bstr name(L"Mail");
    EXPECT_EQ(object.raise(1, {text(name.get()), text(name.get())}), DISP_E_TYPEMISMATCH);
    VARIANTARG nothing{};
    nothing.vt = VT_UNKNOWN;
    EXPECT_TRUE(FAILED(object.raise(1, {integer(0), nothing})));
    EXPECT_TRUE(received.empty());
}

TEST_F(AddInEventsTest, AReferenceToNowhereIsRefused) {
    const auto connection = connect();
    EXPECT_EQ(object.raise(1, {integer(0), reference(VT_BSTR, nullptr)}), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(object.raise(1, {integer(0), reference(VT_VARIANT, nullptr)}), DISP_E_TYPEMISMATCH);
    EXPECT_TRUE(received.empty());
}

TEST_F(AddInEventsTest, AWrongNumberOfArgumentsIsRefused) {
    const auto connection = connect();
    EXPECT_EQ(object.raise(1, {}), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(object.raise(1, {integer(1)}), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(object.raise(1, {integer(1), integer(2), integer(3)}), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(object.sink().Invoke(1, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr),
              DISP_E_BADPARAMCOUNT);
    EXPECT_TRUE(received.empty());
}

// --- The end ----------------------------------------------------------------------------------------------

TEST_F(AddInEventsTest, TheConnectionEndsWithItsObject) {
    auto connection = connect();
    EXPECT_EQ(object.connections(), 1u);
    connection.reset();
    EXPECT_EQ(object.connections(), 0u);
    EXPECT_EQ(object.references(), 2u);  // the test's own and the proxy's
}

TEST_F(AddInEventsTest, EventsAfterTheEndAreHarmless) {
    auto connection = connect();
    com::Ptr<IDispatch> sink(&object.sink());
    connection.reset();
    EXPECT_EQ(raiseBare(*sink.get()), DISP_E_MEMBERNOTFOUND);
    EXPECT_TRUE(received.empty());
}

TEST_F(AddInEventsTest, TheHandlerMayEndItsOwnConnection) {
    std::unique_ptr<vexa::EventConnection> connection;
    std::wstring last;
    connection = addIn.connect([&](const std::wstring& project, bool) {
        connection.reset();
        last = project;  // the handler itself still lives
    });
    object.raiseProcessFinished(L"Mail", false);
    object.raiseProcessFinished(L"more", false);
    EXPECT_EQ(last, L"Mail");
}

TEST_F(AddInEventsTest, AnErrorInTheHandlerDoesNotReachTheAddIn) {
    const auto connection =
        addIn.connect([](const std::wstring&, bool) { throw vexa::Error(L"inside the handler"); });
    EXPECT_EQ(object.raiseProcessFinished(L"Mail", false), E_FAIL);
}

TEST_F(AddInEventsTest, SeveralConnectionsHearTheSameEvent) {
    const auto first = connect();
    const auto second = connect();
    object.raiseProcessFinished(L"Mail", false);
    EXPECT_EQ(received.size(), 2u);
}

TEST_F(AddInEventsTest, AnAddInThatRefusesTheConnectionButKeepsTheSinkIsNotHeard) {
    object.offer.keepsWhatItRefuses = true;
    object.offer.advise = CONNECT_E_ADVISELIMIT;
    EXPECT_THROW((void)connect(), vexa::Error);
    object.raiseProcessFinished(L"Mail", false);
    EXPECT_TRUE(received.empty());
}

// --- Other threads ----------------------------------------------------------------------------------------

/// Runs on another thread while this one waits without dispatching anything, as a busy page does.
template <class Action>
void onAnotherThread(Action action) {
    std::thread(action).join();
}

TEST_F(AddInEventsTest, AnEventOfAnotherThreadIsHandledOnThePagesThread) {
    DWORD handledOn = 0;
    const auto connection = addIn.connect([&](const std::wstring& project, bool keepList) {
        handledOn = GetCurrentThreadId();
        received.emplace_back(project, keepList);
    });
    HRESULT raised = E_FAIL;
    onAnotherThread([&] { raised = object.raiseProcessFinished(L"Mail", true); });
    EXPECT_EQ(raised, S_OK);
    EXPECT_TRUE(received.empty()) << "handled before the page's thread dispatches messages";
    deliverMessages();
    EXPECT_THAT(received, ElementsAre(Pair(L"Mail", true)));
    EXPECT_EQ(handledOn, GetCurrentThreadId());
}

TEST_F(AddInEventsTest, EventsKeepTheirOrderWhateverTheirThread) {
    const auto connection = connect();
    onAnotherThread([&] {
        object.raiseProcessFinished(L"1", false);
        object.raiseProcessFinished(L"2", true);
    });
    object.raiseProcessFinished(L"3", false);
    onAnotherThread([&] { object.raiseProcessFinished(L"4", false); });
    deliverMessages();
    EXPECT_THAT(received,
                ElementsAre(Pair(L"1", false), Pair(L"2", true), Pair(L"3", false), Pair(L"4", false)));
}

TEST_F(AddInEventsTest, ArgumentsThatDoNotConvertAreRefusedOnAnyThread) {
    const auto connection = connect();
    HRESULT raised = S_OK;
    onAnotherThread([&] { raised = object.raise(1, {integer(1)}); });
    EXPECT_EQ(raised, DISP_E_BADPARAMCOUNT);
    deliverMessages();
    EXPECT_TRUE(received.empty());
}

TEST_F(AddInEventsTest, AnEventOfAnotherThreadThatWaitsAtTheEndIsDropped) {
    auto connection = connect();
    const com::Ptr<IDispatch> sink(&object.sink());
    onAnotherThread([&] { object.raiseProcessFinished(L"Mail", false); });
    connection.reset();
    deliverMessages();
    EXPECT_TRUE(received.empty());
    HRESULT raised = S_OK;
    onAnotherThread([&] { raised = raiseBare(*sink.get()); });
    EXPECT_EQ(raised, DISP_E_MEMBERNOTFOUND);
}

TEST_F(AddInEventsTest, AHandlerThatEndsTheConnectionHearsNothingOfWhatWaits) {
    std::unique_ptr<vexa::EventConnection> connection;
    connection = addIn.connect([&](const std::wstring& project, bool keepList) {
        connection.reset();
        received.emplace_back(project, keepList);
    });
    onAnotherThread([&] {
        object.raiseProcessFinished(L"1", false);
        object.raiseProcessFinished(L"2", false);
    });
    deliverMessages();
    EXPECT_THAT(received, ElementsAre(Pair(L"1", false)));
}

TEST_F(AddInEventsTest, AnErrorInTheHandlerOfACarriedEventGoesNowhere) {
    const auto connection =
        addIn.connect([](const std::wstring&, bool) { throw vexa::Error(L"inside the handler"); });
    onAnotherThread([&] { object.raiseProcessFinished(L"Mail", false); });
    deliverMessages();
}

TEST(AddInSinkTest, AnEventForAThreadThatHasEndedIsRefused) {
    com::Ptr<win::AddInSink> sink;
    onAnotherThread([&] { sink = newSink([](const std::wstring&, bool) { FAIL() << "on a dead thread"; }); });
    VARIANTARG arguments[] = {integer(1), integer(2)};
    DISPPARAMS parameters{arguments, nullptr, 2, 0};
    EXPECT_TRUE(
        FAILED(sink->Invoke(1, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr)));
}

TEST_F(AddInEventsTest, ManyThreadsAtOnceLoseNothing) {
    const auto connection = connect();
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread)
        threads.emplace_back([&] {
            for (int event = 0; event < 100; ++event) object.raiseProcessFinished(L"Mail", false);
        });
    for (std::thread& thread : threads) thread.join();
    deliverMessages();
    EXPECT_EQ(received.size(), 400u);
}

// --- The sink by itself -----------------------------------------------------------------------------------

TEST(AddInSinkTest, OffersItselfAsItsSourceInterfaceOnly) {
    const auto sink = newSink([](const std::wstring&, bool) {});
    EXPECT_TRUE(sink.as<IDispatch>());
    EXPECT_TRUE(sink.as<_IOlAddInEvents>());
    EXPECT_FALSE(sink.as<IOlAddIn>());
    EXPECT_EQ(sink->QueryInterface(__uuidof(IUnknown), nullptr), E_POINTER);
}

TEST(AddInSinkTest, HasNoTypeInformation) {
    const auto sink = newSink([](const std::wstring&, bool) {});
    UINT count = 7;
    ITypeInfo* information = reinterpret_cast<ITypeInfo*>(1);
    EXPECT_EQ(sink->GetTypeInfoCount(&count), S_OK);
    EXPECT_EQ(count, 0u);
    EXPECT_EQ(sink->GetTypeInfoCount(nullptr), E_POINTER);
    EXPECT_EQ(sink->GetTypeInfo(0, 0, &information), E_NOTIMPL);
    EXPECT_EQ(information, nullptr);
}

}  // namespace
}  // namespace tests

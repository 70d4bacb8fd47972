// The library as a server: its class object, its count of users, its registration.
#include <algorithm>
#include <cstddef>
#include <map>
#include <thread>
#include <vector>

#include "page/ctlPPE.ids.h"
#include "product_version.h"
#include "tests/windows/com/control_test.h"
#include "tests/windows/stage/messages.h"
#include "tests/windows/stage/scratch_folder.h"

namespace tests {
namespace {

constexpr wchar_t CLASS[] = L"CLSID\\{A415E37F-A60D-4C4B-A34D-44D056493DA9}";
constexpr wchar_t TYPE_LIBRARY[] = L"TypeLib\\{4EC83D7F-A3B5-42BE-A4D5-7625D0FA59DB}";
constexpr wchar_t INTERFACE[] = L"Interface\\{197AF41F-62A7-4E90-B1AD-4E5BBB872D61}";

/// "key|name" to the text there, of everything below `key`.
using Content = std::map<std::wstring, std::wstring>;

void collect(HKEY root, const std::wstring& path, Content& content) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return;
    wchar_t name[512];
    for (DWORD index = 0;; ++index) {
        BYTE data[2048] = {};
        DWORD nameLength = 512;
        DWORD size = sizeof data - sizeof(wchar_t);
        if (RegEnumValueW(key, index, name, &nameLength, nullptr, nullptr, data, &size) != ERROR_SUCCESS)
            break;
        content[path + L"|" + name] = reinterpret_cast<wchar_t*>(data);
    }
    for (DWORD index = 0;; ++index) {
        DWORD nameLength = 512;
        if (RegEnumKeyExW(key, index, name, &nameLength, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
            break;
        content.try_emplace(path + L"\\" + name);
        collect(root, path + L"\\" + name, content);
    }
    RegCloseKey(key);
}

/// Stands in for a hive while it lives.
class ScratchHive {
public:
    explicit ScratchHive(HKEY hive) : hive_(hive) {
        RegCreateKeyExW(HKEY_CURRENT_USER, PATH, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key_, nullptr);
        EXPECT_EQ(RegOverridePredefKey(hive_, key_), ERROR_SUCCESS);
    }
    ~ScratchHive() {
        RegOverridePredefKey(hive_, nullptr);
        RegDeleteTreeW(key_, nullptr);
        RegCloseKey(key_);
    }
    [[nodiscard]] Content content() const {
        Content all;
        collect(hive_, L"Software\\Classes", all);
        return all;
    }
    [[nodiscard]] std::wstring value(const std::wstring& key, const std::wstring& name = L"") const {
        const Content all = content();
        const auto found = all.find(L"Software\\Classes\\" + key + L"|" + name);
        return found == all.end() ? L"(missing)" : found->second;
    }
    void put(const std::wstring& key, const std::wstring& text) const {
        RegSetKeyValueW(hive_, (L"Software\\Classes\\" + key).c_str(), nullptr, REG_SZ, text.c_str(),
                        static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
    }

private:
    static constexpr wchar_t PATH[] = L"Software\\VexaPPE tests\\hive";
    HKEY hive_;
    HKEY key_ = nullptr;
};

using Server = ControlTest;

int occurrences(const std::string& text, const std::string& part) {
    int count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
    return count;
}

// --- Class object -----------------------------------------------------------------------------------------

// Statement 2: unknown classes and interfaces are refused, a missing place for the result does no harm.
TEST_F(Server, UnknownClassGivesClassNotAvailable) {
    void* out = &out;
    EXPECT_EQ(library.getClassObject(IID_IUnknown, IID_IClassFactory, &out), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(out, nullptr);
}

TEST_F(Server, ClassObjectLacksForeignInterfaces) {
    void* out = &out;
    EXPECT_EQ(library.getClassObject(__uuidof(::ctlPPE), IID_IOleObject, &out), E_NOINTERFACE);
    EXPECT_EQ(out, nullptr);
}

TEST_F(Server, ClassObjectNeedsAPlaceForTheResult) {
    EXPECT_EQ(library.getClassObject(__uuidof(::ctlPPE), IID_IClassFactory, nullptr), E_POINTER);
}

// Statement 3: no aggregation.
TEST_F(Server, RefusesAggregation) {
    const auto factory = library.factory();
    void* out = &out;
    EXPECT_EQ(factory->CreateInstance(&container, IID_IUnknown, &out), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IStorage, &out), E_NOINTERFACE);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
}

// --- Unloading --------------------------------------------------------------------------------------------

// Statement 4: the library can be unloaded at the start and after everything is gone, not in between.
TEST_F(Server, CanBeUnloadedAtTheStart) { EXPECT_EQ(library.canUnloadNow(), S_OK); }

TEST_F(Server, StaysWhileAControlLives) {
    create();
    EXPECT_EQ(library.canUnloadNow(), S_FALSE);
    end();
    EXPECT_EQ(library.canUnloadNow(), S_OK);
}

TEST_F(Server, StaysWhileAClosedControlIsHeld) {
    create();
    close();
    EXPECT_EQ(library.canUnloadNow(), S_FALSE);
}

TEST_F(Server, StaysWhileAnEnumeratorLives) {
    create();
    com::Ptr<IEnumConnectionPoints> points;
    ASSERT_EQ(as<IConnectionPointContainer>()->EnumConnectionPoints(points.out()), S_OK);
    EXPECT_EQ(library.canUnloadNow(), S_FALSE);
    points.reset();
}

TEST_F(Server, StaysWhileItIsLockedOrItsClassObjectLives) {
    auto factory = library.factory();
    EXPECT_EQ(library.canUnloadNow(), S_FALSE);
    factory->LockServer(TRUE);
    factory.reset();
    EXPECT_EQ(library.canUnloadNow(), S_FALSE);
    library.factory()->LockServer(FALSE);
    EXPECT_EQ(library.canUnloadNow(), S_OK);
}

TEST_F(Server, LeavesNoWindowClassWhenItCanBeUnloaded) {
    create();
    end();
    ASSERT_EQ(library.canUnloadNow(), S_OK);
    WNDCLASSW found{};
    EXPECT_FALSE(GetClassInfoW(GetModuleHandleW(L"VexaPPE.ocx"), L"VexaPPE.HostWindow", &found));
}

// COM's own way: registered, created by name, unloaded, created again.
TEST_F(Server, IsCreatedUnloadedAndCreatedAgainByCom) {
    ASSERT_EQ(library.registerServer(), S_OK);
    CLSID classId{};
    ASSERT_EQ(CLSIDFromProgID(L"VexaPPE.ctlPPE", &classId), S_OK);
    for (int round = 0; round < 2; ++round) {
        ASSERT_EQ(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, control.outVoid()),
                  S_OK);
        end();
        CoFreeUnusedLibrariesEx(0, 0);
    }
    EXPECT_EQ(library.unregisterServer(), S_OK);
}

// An add-in may hold its sink long after the connection has ended, and let go of it on any thread.
TEST_F(Server, StaysLoadedWhileSomebodyHoldsTheSinkOfAnEvent) {
    ASSERT_EQ(library.registerServer(), S_OK);
    library.unload();
    ASSERT_EQ(GetModuleHandleW(L"VexaPPE.ocx"), nullptr);
    ASSERT_EQ(
        CoCreateInstance(__uuidof(::ctlPPE), nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, control.outVoid()),
        S_OK);
    container.acceptAnything();
    enterSite();
    ASSERT_EQ(doVerb(OLEIVERB_SHOW), S_OK);
    addIn.offer.keepsSinks = true;
    inDialog(IDC_cmdKnowledgeBase, [](HWND dialog) { SendMessageW(dialog, WM_CLOSE, 0, 0); });
    end();
    ASSERT_EQ(addIn.sinks(), 1u);

    CoFreeUnusedLibrariesEx(0, 0);
    ASSERT_NE(GetModuleHandleW(L"VexaPPE.ocx"), nullptr);
    EXPECT_TRUE(FAILED(addIn.raiseProcessFinished(L"Mail", false)));
    std::thread([&] { addIn.releaseKeptSinks(); }).join();
    CoFreeUnusedLibrariesEx(0, 0);
    EXPECT_EQ(GetModuleHandleW(L"VexaPPE.ocx"), nullptr);
    EXPECT_EQ(Library().unregisterServer(), S_OK);
}

// The log of a process begins once, and the settings that were not applied stay, even where the library was
// free to go between two pages.
TEST_F(Server, RemembersTheProcessBetweenTwoPages) {
    const std::wstring root = L"Software\\Norvane\\Quillmark";
    const ScratchFolder folder;
    registry.put(root, L"AppVer", L"3.1.4");
    registry.put(root + L"\\", L"LogPath", folder.path() + L"\\");
    for (int round = 0; round < 2; ++round) {
        create();
        end();
        ASSERT_EQ(library.canUnloadNow(), S_OK);
    }
    const std::string log = ScratchFolder::read(folder.path() + L"\\VexaPPE.log").value_or("");
    EXPECT_EQ(occurrences(log, "3.1.4"), 1);
    EXPECT_EQ(occurrences(log, "initialized."), 2);
}

// --- Registration -----------------------------------------------------------------------------------------

/// A machine's hive of the test's own, in which the library is registered.
class Registration : public Server {
protected:
    void SetUp() override { ASSERT_EQ(library.registerServer(), S_OK); }

    const ScratchHive hive{HKEY_LOCAL_MACHINE};
};

// Statement 5: all keys of a control.
TEST_F(Registration, RegistersAllKeysForTheMachine) {
    const std::wstring key = CLASS;
    EXPECT_EQ(hive.value(key), L"Quillmark options page");
    EXPECT_EQ(_wcsicmp(hive.value(key + L"\\InprocServer32").c_str(), Library::path().c_str()), 0);
    EXPECT_EQ(hive.value(key + L"\\InprocServer32", L"ThreadingModel"), L"Apartment");
    EXPECT_EQ(hive.value(key + L"\\ProgID"), L"VexaPPE.ctlPPE");
    EXPECT_EQ(hive.value(key + L"\\VersionIndependentProgID"), L"VexaPPE.ctlPPE");
    EXPECT_EQ(hive.value(key + L"\\TypeLib"), L"{4EC83D7F-A3B5-42BE-A4D5-7625D0FA59DB}");
    EXPECT_EQ(hive.value(key + L"\\ToolboxBitmap32"), hive.value(key + L"\\InprocServer32") + L", 1");
    EXPECT_EQ(hive.value(key + L"\\Control"), L"");
    EXPECT_EQ(hive.value(key + L"\\Programmable"), L"");
    EXPECT_EQ(hive.value(L"VexaPPE.ctlPPE\\CLSID"), L"{A415E37F-A60D-4C4B-A34D-44D056493DA9}");
    EXPECT_EQ(hive.value(INTERFACE), L"IctlPPE");
    EXPECT_EQ(hive.value(key + L"\\Implemented Categories\\{40FC6ED4-2438-11CF-A3DB-080036F12502}"), L"");
}

TEST_F(Server, RegistersForOneUserInTheUsersHiveAlone) {
    const ScratchHive machine(HKEY_LOCAL_MACHINE);
    ASSERT_EQ(library.install(TRUE, L"user"), S_OK);
    EXPECT_TRUE(machine.content().empty());
    Content user;
    collect(HKEY_CURRENT_USER, std::wstring(L"Software\\Classes\\") + CLASS, user);
    EXPECT_FALSE(user.empty());
    ASSERT_EQ(library.install(FALSE, L"user"), S_OK);
    user.clear();
    collect(HKEY_CURRENT_USER, L"Software\\Classes\\CLSID", user);
    EXPECT_TRUE(user.empty());
}

TEST_F(Server, InstallsForTheMachineByDefaultAndRefusesOtherWords) {
    const ScratchHive hive(HKEY_LOCAL_MACHINE);
    EXPECT_EQ(library.install(TRUE, L""), S_OK);
    EXPECT_NE(hive.value(CLASS), L"(missing)");
    EXPECT_EQ(library.install(FALSE, L"machine"), S_OK);
    EXPECT_EQ(hive.value(CLASS), L"(missing)");
    EXPECT_EQ(library.install(TRUE, L"everybody"), E_INVALIDARG);
}

TEST_F(Registration, RegisteringTwiceChangesNothing) {
    const Content once = hive.content();
    ASSERT_EQ(library.registerServer(), S_OK);
    EXPECT_EQ(hive.content(), once);
}

TEST_F(Server, UnregisteringRemovesItsOwnKeysAndTwiceIsNoFault) {
    const ScratchHive hive(HKEY_LOCAL_MACHINE);
    hive.put(L"CLSID\\{00000000-0000-0000-0000-00000000AAAA}", L"somebody else");
    hive.put(L"TypeLib\\{00000000-0000-0000-0000-00000000BBBB}", L"somebody else's");
    hive.put(L"Interface\\{00000000-0000-0000-0000-00000000CCCC}", L"somebody else's");
    const Content before = hive.content();
    ASSERT_EQ(library.registerServer(), S_OK);
    EXPECT_EQ(library.unregisterServer(), S_OK);
    EXPECT_EQ(hive.content(), before);
    EXPECT_EQ(library.unregisterServer(), S_OK);
    EXPECT_EQ(hive.content(), before);
}

TEST_F(Registration, UnregisteringLeavesANameThatSomebodyElseTookOver) {
    hive.put(L"VexaPPE.ctlPPE\\CLSID", L"{00000000-0000-0000-0000-00000000AAAA}");
    EXPECT_EQ(library.unregisterServer(), S_OK);
    EXPECT_EQ(hive.value(L"VexaPPE.ctlPPE\\CLSID"), L"{00000000-0000-0000-0000-00000000AAAA}");
}

TEST_F(Registration, UnregisteringLeavesTheTypeLibraryOfTheOtherBitness) {
    const std::wstring other = sizeof(void*) == 8 ? L"win32" : L"win64";
    const std::wstring key = std::wstring(TYPE_LIBRARY) + L"\\1.0\\0\\" + other;
    hive.put(key, L"C:\\other\\VexaPPE.ocx");
    EXPECT_EQ(library.unregisterServer(), S_OK);
    EXPECT_EQ(hive.value(key), L"C:\\other\\VexaPPE.ocx");
}

/// The other bitness's view of the class's server key in the real registry of the machine, empty again at the
/// end. A system of one bitness shows it in the own view, too.
class OtherBitness {
public:
    OtherBitness() {
        HKEY key = nullptr;
        RegCreateKeyExW(HKEY_LOCAL_MACHINE, server().c_str(), 0, nullptr, 0, KEY_WRITE | VIEW, nullptr, &key,
                        nullptr);
        RegCloseKey(key);
    }
    OtherBitness(const OtherBitness&) = delete;
    OtherBitness& operator=(const OtherBitness&) = delete;
    ~OtherBitness() {
        HKEY key = nullptr;
        if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"Software\\Classes\\CLSID", 0, KEY_ALL_ACCESS | VIEW, &key) !=
            0)
            return;
        RegDeleteTreeW(key, L"{A415E37F-A60D-4C4B-A34D-44D056493DA9}");
        RegCloseKey(key);
    }
    [[nodiscard]] static bool exists() { return opens(VIEW); }
    [[nodiscard]] static bool isAViewOfItsOwn() { return !opens(0); }

private:
    static constexpr REGSAM VIEW = sizeof(void*) == 8 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;
    static std::wstring server() {
        return std::wstring(L"Software\\Classes\\") + CLASS + L"\\InprocServer32";
    }
    static bool opens(REGSAM view) {
        HKEY key = nullptr;
        const LSTATUS opened = RegOpenKeyExW(HKEY_LOCAL_MACHINE, server().c_str(), 0, KEY_READ | view, &key);
        if (opened == ERROR_SUCCESS) RegCloseKey(key);
        return opened == ERROR_SUCCESS;
    }
};

bool machineHas(const wchar_t* key) {
    Content found;
    collect(HKEY_LOCAL_MACHINE, std::wstring(L"Software\\Classes\\") + key, found);
    return !found.empty();
}

TEST_F(Server, UnregisteringLeavesWhatTheOtherBitnessNeeds) {
    {
        const OtherBitness other;
        const bool stays = OtherBitness::isAViewOfItsOwn();
        ASSERT_EQ(library.registerServer(), S_OK);
        EXPECT_EQ(library.unregisterServer(), S_OK);
        EXPECT_EQ(machineHas(L"VexaPPE.ctlPPE"), stays);
        EXPECT_EQ(machineHas(TYPE_LIBRARY), stays);
        EXPECT_EQ(OtherBitness::exists(), stays);
        EXPECT_FALSE(machineHas(CLASS));
    }
    EXPECT_EQ(library.unregisterServer(), S_OK);
    EXPECT_FALSE(machineHas(L"VexaPPE.ctlPPE"));
    EXPECT_FALSE(machineHas(TYPE_LIBRARY));
}

TEST_F(Server, SaysWhetherItIsRegisteredWholly) {
    const ScratchHive hive(HKEY_LOCAL_MACHINE);
    EXPECT_EQ(library.install(TRUE, L"check"), REGDB_E_CLASSNOTREG);
    ASSERT_EQ(library.registerServer(), S_OK);
    EXPECT_EQ(library.install(TRUE, L"check"), S_OK);
    EXPECT_EQ(library.install(TRUE, L"check-user"), REGDB_E_CLASSNOTREG);
    hive.put(std::wstring(CLASS) + L"\\InprocServer32", L"C:\\elsewhere\\VexaPPE.ocx");
    EXPECT_EQ(library.install(TRUE, L"check"), REGDB_E_CLASSNOTREG);
}

/// A text of the library's version resource; "(missing)" where it has none.
std::wstring versionText(const wchar_t* name) {
    std::vector<std::byte> resource(GetFileVersionInfoSizeW(Library::path().c_str(), nullptr));
    GetFileVersionInfoW(Library::path().c_str(), 0, static_cast<DWORD>(resource.size()), resource.data());
    void* text = nullptr;
    UINT length = 0;
    const std::wstring path = std::wstring(L"\\StringFileInfo\\040904B0\\") + name;
    if (!VerQueryValueW(resource.data(), path.c_str(), &text, &length)) return L"(missing)";
    return static_cast<wchar_t*>(text);
}

TEST_F(Server, TellsItsVersionAndThatItRegistersItself) {
    EXPECT_EQ(versionText(L"FileVersion"), L"" PRODUCT_FILE_VERSION);
    EXPECT_EQ(versionText(L"ProductVersion"), L"" PRODUCT_FILE_VERSION);
    EXPECT_EQ(versionText(L"OLESelfRegister"), L"");
}

// Statement 6: registry and object agree on the class's kind and version.
TEST_F(Registration, RegistersTheStatusAndVersionThatTheObjectTells) {
    create();
    DWORD status = 0;
    ASSERT_EQ(as<IOleObject>()->GetMiscStatus(DVASPECT_CONTENT, &status), S_OK);
    EXPECT_EQ(hive.value(std::wstring(CLASS) + L"\\MiscStatus\\1"), std::to_wstring(status));
    EXPECT_EQ(hive.value(std::wstring(CLASS) + L"\\MiscStatus"), L"0");
    ASSERT_EQ(as<IOleObject>()->GetMiscStatus(DVASPECT_ICON, &status), S_OK);
    EXPECT_EQ(status, 0u);

    com::Ptr<ITypeLib> types;
    ASSERT_EQ(LoadTypeLibEx(Library::path().c_str(), REGKIND_NONE, types.out()), S_OK);
    TLIBATTR* attributes = nullptr;
    ASSERT_EQ(types->GetLibAttr(&attributes), S_OK);
    EXPECT_EQ(hive.value(std::wstring(CLASS) + L"\\Version"),
              std::to_wstring(attributes->wMajorVerNum) + L"." + std::to_wstring(attributes->wMinorVerNum));
    types->ReleaseTLibAttr(attributes);
}

// Statement 7: the control runs with access to mail; it never declares itself safe for scripting.
TEST_F(Registration, IsNeitherInsertableNorSafeForScripting) {
    for (const auto& [key, value] : hive.content()) {
        EXPECT_EQ(key.find(L"Insertable"), std::wstring::npos);
        EXPECT_EQ(key.find(L"{7DD95801-9882-11CF-9FA9-00AA006C42C4}"), std::wstring::npos);
        EXPECT_EQ(key.find(L"{7DD95802-9882-11CF-9FA9-00AA006C42C4}"), std::wstring::npos);
    }
    create();
    constexpr IID objectSafety{0xCB5BDC81, 0x93C1, 0x11CF, {0x8F, 0x20, 0x00, 0x80, 0x5F, 0x2C, 0xD0, 0x64}};
    void* out = nullptr;
    EXPECT_EQ(control->QueryInterface(objectSafety, &out), E_NOINTERFACE);
}

}  // namespace
}  // namespace tests

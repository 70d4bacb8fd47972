// What tests of the built control share: the library, loaded by its path; a running add-in; a registry of
// their own; a window for containers.
#pragma once

#include <gtest/gtest.h>
#include <ole2.h>

#include <functional>
#include <memory>

#include "VexaPPE.h"
#include "interfaces/com.h"
#include "tests/windows/com/fake_container.h"
#include "tests/windows/com/running_addin.h"
#include "tests/windows/stage/scratch_registry.h"

namespace tests {

/// The control's library, as COM loads it.
class Library {
public:
    /// Beside the folder of the test program. Throws std::runtime_error where it cannot be loaded.
    Library();
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
    ~Library() { unload(); }

    /// As a host that has asked whether it may.
    void unload();

    [[nodiscard]] static std::wstring path();
    [[nodiscard]] HRESULT getClassObject(REFCLSID classId, REFIID iid, void** out) const;
    [[nodiscard]] HRESULT canUnloadNow() const;
    [[nodiscard]] HRESULT registerServer() const;
    [[nodiscard]] HRESULT unregisterServer() const;
    [[nodiscard]] HRESULT install(BOOL install, const wchar_t* commandLine) const;
    /// Empty where the library refuses it.
    [[nodiscard]] com::Ptr<IClassFactory> factory() const;
    /// A control, as clients get it. Its start takes 100 ms.
    [[nodiscard]] com::Ptr<IUnknown> create() const;

private:
    template <class Function>
    [[nodiscard]] Function find(const char* name) const;
    HMODULE module_;
};

/// A visible top-level window.
[[nodiscard]] HWND createContainerWindow();

/// A font as containers and scripts make it.
[[nodiscard]] com::Ptr<IFontDisp> makeFont(const std::wstring& name, LONGLONG points = 9,
                                           BOOL italic = FALSE);

/// A control in a container of the test, whoever the add-in is.
class ContainerTest : public testing::Test {
protected:
    ~ContainerTest() override { endAll(); }

    /// A control without a site.
    void create();
    /// A control in the container, not active.
    void createWithSite();
    /// A control that lies in the container's window.
    void createActive();
    /// Closes the control and takes it out of its container; the last release must be the last one.
    void end();
    /// Ends what is there, and looks for what is left of it. Who owns what the control uses does so first.
    void endAll();

    template <class Interface>
    [[nodiscard]] com::Ptr<Interface> as() const {
        return control.as<Interface>();
    }
    /// Where sinks hear of changed properties.
    [[nodiscard]] com::Ptr<IConnectionPoint> notifications() const;
    /// What the page tells the host.
    [[nodiscard]] bool dirty() const;
    HRESULT doVerb(LONG verb);
    HRESULT enterSite() { return as<IOleObject>()->SetClientSite(container.site()); }
    HRESULT leaveSite() const { return as<IOleObject>()->SetClientSite(nullptr); }
    HRESULT close() const { return as<IOleObject>()->Close(OLECLOSE_NOSAVE); }
    HRESULT deactivate() const { return as<IOleInPlaceObject>()->InPlaceDeactivate(); }
    /// Presses a button of the page and runs `act` once its dialog is there; returns when the dialog has
    /// ended. Fails the test where no dialog comes up.
    void inDialog(int button, const std::function<void(HWND dialog)>& act) const;
    /// The control's window in the container; null where it is not active.
    [[nodiscard]] HWND frame() const;
    /// The page's window, in the frame.
    [[nodiscard]] HWND page() const;
    /// A control of the page.
    [[nodiscard]] HWND child(int identifier) const { return GetDlgItem(page(), identifier); }

    struct Apartment {
        Apartment() { OleInitialize(nullptr); }
        ~Apartment() { OleUninitialize(); }
    } apartment;
    ScratchRegistry registry;
    Library library;
    HWND window = createContainerWindow();
    FakeContainer container{window};
    com::Ptr<IUnknown> control;
};

/// With an add-in that is running.
class ControlTest : public ContainerTest {
protected:
    ~ControlTest() override { endAll(); }

    RunningAddIn addIn;
};

}  // namespace tests

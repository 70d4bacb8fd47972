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
    /// A control, as clients get it. Its start takes 100 ms.
    [[nodiscard]] com::Ptr<IUnknown> create() const;

private:
    template <class Function>
    [[nodiscard]] Function find(const char* name) const;
    HMODULE module_;
};

/// A visible top-level window.
[[nodiscard]] HWND createContainerWindow();

class ControlTest : public testing::Test {
protected:
    ControlTest();
    ~ControlTest() override;

    /// A control without a site.
    void create();
    /// A control in the container, not active.
    void createWithSite();
    /// A control that lies in the container's window.
    void createActive();
    /// Closes the control and takes it out of its container; the last release must be the last one.
    void end();

    template <class Interface>
    [[nodiscard]] com::Ptr<Interface> as() const {
        return control.as<Interface>();
    }
    HRESULT doVerb(LONG verb);
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
    RunningAddIn addIn;
    Library library;
    HWND window = createContainerWindow();
    FakeContainer container{window};
    com::Ptr<IUnknown> control;
};

}  // namespace tests

// Wrappers around the ports of the machine: each call leaves its line in a CallLog and fails where the log
// says so, in the way in which that kind of call fails. Everything else is passed on to the wrapped port.
#pragma once

#include <map>

#include "common/platform.h"
#include "tests/support/call_log.h"

namespace tests {

/// A call that shall fail answers "access denied" and does nothing; a close fails after it has closed.
class RecordingRegistry : public vexa::RegistryApi {
public:
    RecordingRegistry(CallLog& calls, vexa::RegistryApi& api, vexa::AnsiCodec& ansi)
        : calls_(calls), api_(api), ansi_(ansi) {}

    Status openKey(Key hive, const std::string& path, std::uint32_t access, Key& key) override;
    Status createKey(Key hive, const std::string& path, std::uint32_t access, Key& key) override;
    Status queryValue(Key key, const std::string& name, std::uint32_t& type, std::uint8_t* data,
                      std::uint32_t& size) override;
    Status setValue(Key key, const std::string& name, std::uint32_t type, const std::uint8_t* data,
                    std::uint32_t size) override;
    Status deleteValue(Key key, const std::string& name) override;
    Status closeKey(Key key) override;

    /// The number of keys that were opened and not closed yet.
    [[nodiscard]] std::size_t openKeys() const { return paths_.size(); }

private:
    [[nodiscard]] std::string utf8(const std::string& ansi);
    [[nodiscard]] std::string valuePath(Key key, const std::string& name);
    [[nodiscard]] std::string display(std::uint32_t type, const std::uint8_t* data, std::uint32_t size);

    CallLog& calls_;
    vexa::RegistryApi& api_;
    vexa::AnsiCodec& ansi_;
    std::map<Key, std::string> paths_;
};

/// A call that shall fail throws Error; the questions whether something exists answer
/// no, and no drive is found.
class RecordingFiles : public vexa::FileSystem {
public:
    RecordingFiles(CallLog& calls, vexa::FileSystem& files) : calls_(calls), files_(files) {}

    [[nodiscard]] bool folderExists(const std::wstring& path) override;
    [[nodiscard]] bool fileExists(const std::wstring& path) override;
    [[nodiscard]] std::vector<std::wstring> filesWithContent(const std::wstring& folder,
                                                             const std::wstring& extension) override;
    void createFolder(const std::wstring& path) override;
    void deleteFile(const std::wstring& path) override;
    [[nodiscard]] std::vector<std::wstring> drives() override;
    [[nodiscard]] std::vector<std::wstring> subfolders(const std::wstring& path) override;
    [[nodiscard]] std::unique_ptr<vexa::AppendFile> openForAppending(const std::wstring& path) override;
    [[nodiscard]] std::wstring installationFolder() override { return files_.installationFolder(); }

private:
    class RecordingFile;
    [[nodiscard]] bool fails(const char* operation, const std::wstring& path);
    /// Throws where the call shall fail.
    void call(const char* operation, const std::wstring& path);

    CallLog& calls_;
    vexa::FileSystem& files_;
};

/// A sleep that shall fail returns at once, like every sleep of a test's clock.
class RecordingClock : public vexa::Clock {
public:
    RecordingClock(CallLog& calls, vexa::Clock& clock) : calls_(calls), clock_(clock) {}
    [[nodiscard]] vexa::LocalTime localTime() override { return clock_.localTime(); }
    [[nodiscard]] std::int64_t milliseconds() override { return clock_.milliseconds(); }
    void sleep(int milliseconds) override;

private:
    CallLog& calls_;
    vexa::Clock& clock_;
};

/// A look-up that shall fail finds nothing.
class RecordingLocator : public vexa::AddInLocator {
public:
    RecordingLocator(CallLog& calls, vexa::AddInLocator& locator) : calls_(calls), locator_(locator) {}
    [[nodiscard]] std::shared_ptr<vexa::AddIn> running() override;

private:
    CallLog& calls_;
    vexa::AddInLocator& locator_;
};

/// The handle of a window that takes every message, on every back end.
inline constexpr std::intptr_t LISTENING_WINDOW = 4711;

/// A message that shall fail finds a receiver that hangs; the other calls do nothing.
class RecordingDesktop : public vexa::Desktop {
public:
    RecordingDesktop(CallLog& calls, vexa::Desktop& desktop) : calls_(calls), desktop_(desktop) {}
    bool sendMessage(std::intptr_t window, std::uint32_t message, std::uintptr_t wParam,
                     std::intptr_t lParam) override;
    void setPointer(vexa::PointerShape shape) override;
    void doEvents() override;

private:
    CallLog& calls_;
    vexa::Desktop& desktop_;
};

/// A timer that shall fail is not had: the identifier is 0. A kill that shall fail leaves the timer running.
class RecordingTimers : public vexa::SystemTimers {
public:
    RecordingTimers(CallLog& calls, vexa::SystemTimers& timers) : calls_(calls), timers_(timers) {}
    std::uintptr_t setTimer(std::uint32_t milliseconds, Callback callback) override;
    void killTimer(std::uintptr_t identifier) override;

private:
    CallLog& calls_;
    vexa::SystemTimers& timers_;
};

/// All ports of a machine, wrapped. The log and the machine outlive it.
class RecordingPorts {
public:
    RecordingPorts(CallLog& calls, vexa::Platform machine)
        : ansi_(machine.ansi),
          conversions_(machine.conversions),
          registry_(calls, machine.registry, machine.ansi),
          files_(calls, machine.files),
          clock_(calls, machine.clock),
          addIns_(calls, machine.addIns),
          desktop_(calls, machine.desktop),
          timers_(calls, machine.timers) {}

    [[nodiscard]] vexa::Platform platform() {
        return {registry_, ansi_, conversions_, files_, clock_, addIns_, desktop_, timers_};
    }
    [[nodiscard]] const RecordingRegistry& registry() const { return registry_; }

private:
    vexa::AnsiCodec& ansi_;
    vexa::Conversions& conversions_;
    RecordingRegistry registry_;
    RecordingFiles files_;
    RecordingClock clock_;
    RecordingLocator addIns_;
    RecordingDesktop desktop_;
    RecordingTimers timers_;
};

}  // namespace tests

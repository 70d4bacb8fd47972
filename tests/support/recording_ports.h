// Wrappers around the ports of the machine: each call leaves its line in a CallLog and fails where the log
// says so, in the way in which that kind of call fails. Everything else is passed on to the wrapped port.
#pragma once

#include <algorithm>
#include <cstring>
#include <map>

#include "common/error.h"
#include "common/modRegistry.h"
#include "common/platform.h"
#include "tests/support/call_log.h"
#include "tests/support/text.h"

namespace tests {

/// One port and the log.
template <class Port>
class Recording : public Port {
public:
    Recording(CallLog& calls, Port& port) : calls_(calls), port_(port) {}

protected:
    CallLog& calls_;
    Port& port_;
};

/// A call that shall fail answers "access denied" and does nothing; a close fails after it has closed.
class RecordingRegistry : public Recording<vexa::RegistryApi> {
public:
    RecordingRegistry(CallLog& calls, vexa::RegistryApi& api, vexa::AnsiCodec& ansi)
        : Recording(calls, api), ansi_(ansi) {}

    Status openKey(Key hive, const std::string& path, std::uint32_t access, Key& key) override {
        if (calls_.enter("registry open " + utf8(path))) return ACCESS_DENIED;
        return opened(path, key, port_.openKey(hive, path, access, key));
    }
    Status createKey(Key hive, const std::string& path, std::uint32_t access, Key& key) override {
        if (calls_.enter("registry create " + utf8(path))) return ACCESS_DENIED;
        return opened(path, key, port_.createKey(hive, path, access, key));
    }
    Status queryValue(Key key, const std::string& name, std::uint32_t& type, std::uint8_t* data,
                      std::uint32_t& size) override {
        if (calls_.enter("registry query " + valuePath(key, name))) return ACCESS_DENIED;
        return port_.queryValue(key, name, type, data, size);
    }
    Status setValue(Key key, const std::string& name, std::uint32_t type, const std::uint8_t* data,
                    std::uint32_t size) override {
        if (calls_.enter("registry set " + valuePath(key, name) + " = " + display(type, data, size)))
            return ACCESS_DENIED;
        return port_.setValue(key, name, type, data, size);
    }
    Status deleteValue(Key key, const std::string& name) override {
        if (calls_.enter("registry delete " + valuePath(key, name))) return ACCESS_DENIED;
        return port_.deleteValue(key, name);
    }
    Status closeKey(Key key) override {
        const bool fails = calls_.enter("registry close " + paths_[key]);
        paths_.erase(key);
        const Status status = port_.closeKey(key);
        return fails ? ACCESS_DENIED : status;
    }

    /// The number of keys that were opened and not closed yet.
    [[nodiscard]] std::size_t openKeys() const { return paths_.size(); }

private:
    static constexpr Status ACCESS_DENIED = 5;

    Status opened(const std::string& path, const Key& key, Status status) {
        if (status == 0) paths_[key] = utf8(path);
        return status;
    }
    [[nodiscard]] std::string utf8(const std::string& ansi) {
        const bool ascii = std::ranges::all_of(ansi, [](char letter) { return (letter & 0x80) == 0; });
        return ascii ? ansi : toUtf8(ansi_.fromAnsi(ansi));
    }
    [[nodiscard]] std::string valuePath(Key key, const std::string& name) {
        const std::string& path = paths_[key];
        return path + (path.ends_with('\\') ? "" : "\\") + utf8(name);
    }
    [[nodiscard]] std::string display(std::uint32_t type, const std::uint8_t* data, std::uint32_t size) {
        switch (static_cast<vexa::ValueType>(type)) {
            case vexa::ValueType::text: {
                const std::string bytes(data, data + size);
                return utf8(bytes.substr(0, bytes.find('\0')));
            }
            case vexa::ValueType::integer: {
                std::int32_t number = 0;
                std::memcpy(&number, data, std::min<std::size_t>(size, sizeof number));
                return std::to_string(number);
            }
            default: return hexText(data, size);
        }
    }

    static std::string hexText(const std::uint8_t* data, std::uint32_t size) {
        constexpr char digits[] = "0123456789ABCDEF";
        std::string text;
        for (std::uint32_t index = 0; index < size; ++index) {
            if (index > 0) text += ' ';
            text += digits[data[index] >> 4];
            text += digits[data[index] & 15];
        }
        return text;
    }

    vexa::AnsiCodec& ansi_;
    std::map<Key, std::string> paths_;
};

/// A call that shall fail throws Error; the questions whether something exists answer no, and no drive is
/// found.
class RecordingFiles : public Recording<vexa::FileSystem> {
public:
    using Recording::Recording;

    [[nodiscard]] bool folderExists(const std::wstring& path) override {
        return !fails("folderExists", path) && port_.folderExists(path);
    }
    [[nodiscard]] bool fileExists(const std::wstring& path) override {
        return !fails("fileExists", path) && port_.fileExists(path);
    }
    [[nodiscard]] std::vector<std::wstring> filesWithContent(const std::wstring& folder,
                                                             const std::wstring& extension) override {
        return called("filesWithContent", folder).filesWithContent(folder, extension);
    }
    void createFolder(const std::wstring& path) override { called("createFolder", path).createFolder(path); }
    void deleteFile(const std::wstring& path) override { called("deleteFile", path).deleteFile(path); }
    [[nodiscard]] std::vector<std::wstring> drives() override {
        return calls_.enter("files drives") ? std::vector<std::wstring>() : port_.drives();
    }
    [[nodiscard]] std::vector<std::wstring> subfolders(const std::wstring& path) override {
        return called("subfolders", path).subfolders(path);
    }
    [[nodiscard]] std::unique_ptr<vexa::AppendFile> openForAppending(const std::wstring& path) override {
        return std::make_unique<File>(*this, path, called("openForAppending", path).openForAppending(path));
    }
    [[nodiscard]] std::wstring installationFolder() override { return port_.installationFolder(); }

private:
    class File : public vexa::AppendFile {
    public:
        File(RecordingFiles& files, std::wstring path, std::unique_ptr<vexa::AppendFile> file)
            : files_(files), path_(std::move(path)), file_(std::move(file)) {}
        void write(const std::string& bytes) override {
            files_.called("write", path_);
            file_->write(bytes);
        }

    private:
        RecordingFiles& files_;
        std::wstring path_;
        std::unique_ptr<vexa::AppendFile> file_;
    };

    [[nodiscard]] bool fails(const char* operation, const std::wstring& path) {
        return calls_.enter(std::string("files ") + operation + " " + toUtf8(path));
    }
    /// The port, once the call is noted. Throws where it shall fail.
    vexa::FileSystem& called(const char* operation, const std::wstring& path) {
        if (fails(operation, path)) throw vexa::Error(L"The file system failed");
        return port_;
    }
};

/// A sleep that shall fail returns at once, like every sleep of a test's clock.
class RecordingClock : public Recording<vexa::Clock> {
public:
    using Recording::Recording;
    [[nodiscard]] vexa::LocalTime localTime() override { return port_.localTime(); }
    [[nodiscard]] std::int64_t milliseconds() override { return port_.milliseconds(); }
    void sleep(int milliseconds) override {
        if (!calls_.enter("clock sleep " + std::to_string(milliseconds))) port_.sleep(milliseconds);
    }
};

/// A look-up that shall fail finds nothing.
class RecordingLocator : public Recording<vexa::AddInLocator> {
public:
    using Recording::Recording;
    [[nodiscard]] std::shared_ptr<vexa::AddIn> running() override {
        return calls_.enter("locate addin") ? nullptr : port_.running();
    }
};

/// The handle of a window that takes every message, on every back end.
inline constexpr std::intptr_t LISTENING_WINDOW = 4711;

/// A message that shall fail finds a receiver that hangs; the other calls do nothing.
class RecordingDesktop : public Recording<vexa::Desktop> {
public:
    using Recording::Recording;
    bool sendMessage(std::intptr_t window, std::uint32_t message, std::uintptr_t wParam,
                     std::intptr_t lParam) override {
        if (calls_.enter("message " + std::to_string(window) + " " + std::to_string(message) + " " +
                         std::to_string(wParam) + " " + std::to_string(lParam)))
            throw vexa::Error(L"The window does not respond");
        return window == LISTENING_WINDOW || port_.sendMessage(window, message, wParam, lParam);
    }
    void setPointer(vexa::PointerShape shape) override {
        if (!calls_.enter("pointer " + std::to_string(static_cast<int>(shape)))) port_.setPointer(shape);
    }
    void doEvents() override {
        if (!calls_.enter("doevents")) port_.doEvents();
    }
};

/// A timer that shall fail is not had: the identifier is 0. A kill that shall fail leaves the timer running.
class RecordingTimers : public Recording<vexa::SystemTimers> {
public:
    using Recording::Recording;
    std::uintptr_t setTimer(std::uint32_t milliseconds, Callback callback) override {
        if (calls_.enter("timer set " + std::to_string(milliseconds))) return 0;
        return port_.setTimer(milliseconds, callback);
    }
    void killTimer(std::uintptr_t identifier) override {
        if (!calls_.enter("timer kill " + std::to_string(identifier))) port_.killTimer(identifier);
    }
};

/// All ports of a machine, wrapped. The log and the machine outlive it.
class RecordingPorts {
public:
    RecordingPorts(CallLog& calls, vexa::Platform machine)
        : machine_(machine),
          registry_(calls, machine.registry, machine.ansi),
          files_(calls, machine.files),
          clock_(calls, machine.clock),
          addIns_(calls, machine.addIns),
          desktop_(calls, machine.desktop),
          timers_(calls, machine.timers) {}

    [[nodiscard]] vexa::Platform platform() {
        return {registry_, machine_.ansi, machine_.conversions, files_, clock_, addIns_, desktop_, timers_};
    }
    [[nodiscard]] const RecordingRegistry& registry() const { return registry_; }

private:
    vexa::Platform machine_;
    RecordingRegistry registry_;
    RecordingFiles files_;
    RecordingClock clock_;
    RecordingLocator addIns_;
    RecordingDesktop desktop_;
    RecordingTimers timers_;
};

}  // namespace tests

// What the program needs of the machine. Each class is a port: the product has one implementation on the
// Windows API, the tests have one in memory and one that makes any single call fail.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vexa {

/// The narrow registry functions, one method each. A result of 0 is success, anything else the system's
/// error code. Never throws.
class RegistryApi {
public:
    using Key = std::uintptr_t;
    using Status = std::int32_t;
    virtual ~RegistryApi() = default;
    virtual Status openKey(Key hive, const std::string& path, std::uint32_t access, Key& key) = 0;
    /// Creates missing intermediate keys.
    virtual Status createKey(Key hive, const std::string& path, std::uint32_t access, Key& key) = 0;
    /// With `data` null only `type` and `size` (bytes) are set; else at most `size` bytes are copied.
    virtual Status queryValue(Key key, const std::string& name, std::uint32_t& type, std::uint8_t* data,
                              std::uint32_t& size) = 0;
    virtual Status setValue(Key key, const std::string& name, std::uint32_t type, const std::uint8_t* data,
                            std::uint32_t size) = 0;
    virtual Status deleteValue(Key key, const std::string& name) = 0;
    virtual Status closeKey(Key key) = 0;
};

/// Text to and from the system's ANSI code page. Characters that it lacks become the system's default
/// character. Never fails.
class AnsiCodec {
public:
    virtual ~AnsiCodec() = default;
    [[nodiscard]] virtual std::string toAnsi(const std::wstring& text) = 0;
    [[nodiscard]] virtual std::wstring fromAnsi(const std::string& bytes) = 0;
};

/// The system's locale-aware automation conversions.
class Conversions {
public:
    virtual ~Conversions() = default;
    /// As VarI4FromStr: surrounding blanks allowed, a fraction is rounded, halves to even. Throws Error
    /// ("Type mismatch", "Overflow").
    [[nodiscard]] virtual std::int32_t toInteger(const std::wstring& text) = 0;
    /// As VarDateFromStr: a date serial, days since 30 December 1899. Also takes a plain number as a serial.
    [[nodiscard]] virtual double toDate(const std::wstring& text) = 0;
    /// Every letter in lower case, in any script.
    [[nodiscard]] virtual std::wstring lower(const std::wstring& text) = 0;
};

/// A file that was opened for appending; it closes with the object.
class AppendFile {
public:
    virtual ~AppendFile() = default;
    /// Throws Error where the bytes cannot be written.
    virtual void write(const std::string& bytes) = 0;
};

/// Paths are in Windows form.
class FileSystem {
public:
    virtual ~FileSystem() = default;
    [[nodiscard]] virtual bool folderExists(const std::wstring& path) = 0;
    [[nodiscard]] virtual bool fileExists(const std::wstring& path) = 0;
    /// The names of the files in a folder that end in `extension` and hold at least one byte, in no
    /// particular order; one question, however many there are. Throws Error where the folder cannot be read.
    [[nodiscard]] virtual std::vector<std::wstring> filesWithContent(const std::wstring& folder,
                                                                     const std::wstring& extension) = 0;
    /// One level; throws Error where that fails (a missing parent, an invalid name).
    virtual void createFolder(const std::wstring& path) = 0;
    virtual void deleteFile(const std::wstring& path) = 0;
    /// The names of the machine's drives, as "C:", in alphabetical order; ready or not.
    [[nodiscard]] virtual std::vector<std::wstring> drives() = 0;
    /// The names of the folders in a folder (without hidden ones), in no particular order. Throws Error where
    /// the folder cannot be read (it does not exist, the drive is not ready).
    [[nodiscard]] virtual std::vector<std::wstring> subfolders(const std::wstring& path) = 0;
    /// Creates a missing file. Throws Error.
    [[nodiscard]] virtual std::unique_ptr<AppendFile> openForAppending(const std::wstring& path) = 0;
    /// The folder of the component, without a final backslash.
    [[nodiscard]] virtual std::wstring installationFolder() = 0;
};

struct LocalTime {
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    int milliseconds = 0;
};

class Clock {
public:
    virtual ~Clock() = default;
    [[nodiscard]] virtual LocalTime localTime() = 0;
    /// Time that passed since some moment in the past; never goes back.
    [[nodiscard]] virtual std::int64_t milliseconds() = 0;
    virtual void sleep(int milliseconds) = 0;
};

/// The running connection to an event; it ends with the object.
class EventConnection {
public:
    virtual ~EventConnection() = default;
};

/// A report that the add-in is asked to send.
struct MailReport {
    std::wstring subject;
    std::wstring body;
    std::wstring richBody;
    std::wstring to;
    std::wstring cc;
    std::int32_t importance = 0;  ///< 2 high, 1 low, 0 normal
    bool flag = true;             ///< always true
};

/// The running add-in. Each operation throws Error, with the add-in's own description where it gives one.
class AddIn {
public:
    virtual ~AddIn() = default;
    virtual void SetDefaultKnowledgebase(const std::wstring& name) = 0;
    virtual void SetLogging(bool on) = 0;
    virtual void NotifyKbAdded(const std::wstring& name) = 0;
    virtual void NotifyKbRemoved(const std::wstring& name) = 0;
    virtual void NotifyKbRenamed(const std::wstring& oldName, const std::wstring& newName) = 0;
    virtual void NotifyKbRebuild(const std::wstring& name) = 0;
    virtual void NotifyKbUpdate(const std::wstring& name) = 0;
    [[nodiscard]] virtual bool IsProcessing() = 0;
    [[nodiscard]] virtual bool IsAutoUpdateRunning() = 0;
    [[nodiscard]] virtual bool IsSearching() = 0;
    virtual void SetFindShortcut(std::int32_t shortcut) = 0;
    virtual void SendMail(const MailReport& report) = 0;

    using ProcessFinished = std::function<void(const std::wstring& project, bool keepList)>;
    /// Calls `handler` at each ProcessFinished event while the connection lives. Throws Error where the
    /// add-in offers no such event.
    [[nodiscard]] virtual std::unique_ptr<EventConnection> connect(ProcessFinished handler) = 0;
};

class AddInLocator {
public:
    virtual ~AddInLocator() = default;
    /// The running object "Tarnwell.OlAddIn.1", or null. Never throws.
    [[nodiscard]] virtual std::shared_ptr<AddIn> running() = 0;
};

/// The shapes of the mouse pointer that the program uses, by their numbers.
enum class PointerShape { standard = 0, hourglass = 11, arrowHourglass = 13 };

/// What a program shares with others through the system: windows' messages, the pointer, pending events.
class Desktop {
public:
    virtual ~Desktop() = default;
    /// Synchronous; true once the receiver has handled the message. A receiver that lives is waited for,
    /// however long it takes. False where there is no such window; throws Error where it hangs and was given
    /// up.
    virtual bool sendMessage(std::intptr_t window, std::uint32_t message, std::uintptr_t wParam,
                             std::intptr_t lParam) = 0;
    virtual void setPointer(PointerShape shape) = 0;
    /// Lets the events of this thread run that wait when it begins: input, events of the add-in, and timers,
    /// each at most once. What comes up meanwhile waits for the host's own loop, and so does the end of the
    /// thread.
    virtual void doEvents() = 0;
};

/// Thread timers without a window.
class SystemTimers {
public:
    using Callback = void (*)();
    virtual ~SystemTimers() = default;
    /// The identifier of the new timer; 0 where none can be had.
    virtual std::uintptr_t setTimer(std::uint32_t milliseconds, Callback callback) = 0;
    virtual void killTimer(std::uintptr_t identifier) = 0;
};

/// All ports together, as the program gets them.
struct Platform {
    RegistryApi& registry;
    AnsiCodec& ansi;
    Conversions& conversions;
    FileSystem& files;
    Clock& clock;
    AddInLocator& addIns;
    Desktop& desktop;
    SystemTimers& timers;
};

}  // namespace vexa

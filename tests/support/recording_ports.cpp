#include "tests/support/recording_ports.h"

#include <algorithm>
#include <cstring>

#include "common/error.h"
#include "common/modRegistry.h"
#include "tests/support/text.h"

namespace tests {
namespace {

constexpr vexa::RegistryApi::Status ACCESS_DENIED = 5;

std::string hexText(const std::uint8_t* data, std::uint32_t size) {
    constexpr char digits[] = "0123456789ABCDEF";
    std::string text;
    for (std::uint32_t index = 0; index < size; ++index) {
        if (index > 0) text += ' ';
        text += digits[data[index] >> 4];
        text += digits[data[index] & 15];
    }
    return text;
}

}  // namespace

// --- Registry ---------------------------------------------------------------------------------------------

std::string RecordingRegistry::utf8(const std::string& ansi) {
    const bool ascii = std::ranges::all_of(ansi, [](char letter) { return (letter & 0x80) == 0; });
    return ascii ? ansi : toUtf8(ansi_.fromAnsi(ansi));
}

std::string RecordingRegistry::valuePath(Key key, const std::string& name) {
    const std::string& path = paths_[key];
    return path + (path.ends_with('\\') ? "" : "\\") + utf8(name);
}

std::string RecordingRegistry::display(std::uint32_t type, const std::uint8_t* data, std::uint32_t size) {
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

RecordingRegistry::Status RecordingRegistry::openKey(Key hive, const std::string& path, std::uint32_t access,
                                                     Key& key) {
    if (calls_.enter("registry open " + utf8(path))) return ACCESS_DENIED;
    const Status status = api_.openKey(hive, path, access, key);
    if (status == 0) paths_[key] = utf8(path);
    return status;
}

RecordingRegistry::Status RecordingRegistry::createKey(Key hive, const std::string& path,
                                                       std::uint32_t access, Key& key) {
    if (calls_.enter("registry create " + utf8(path))) return ACCESS_DENIED;
    const Status status = api_.createKey(hive, path, access, key);
    if (status == 0) paths_[key] = utf8(path);
    return status;
}

RecordingRegistry::Status RecordingRegistry::queryValue(Key key, const std::string& name, std::uint32_t& type,
                                                        std::uint8_t* data, std::uint32_t& size) {
    if (calls_.enter("registry query " + valuePath(key, name))) return ACCESS_DENIED;
    return api_.queryValue(key, name, type, data, size);
}

RecordingRegistry::Status RecordingRegistry::setValue(Key key, const std::string& name, std::uint32_t type,
                                                      const std::uint8_t* data, std::uint32_t size) {
    if (calls_.enter("registry set " + valuePath(key, name) + " = " + display(type, data, size)))
        return ACCESS_DENIED;
    return api_.setValue(key, name, type, data, size);
}

RecordingRegistry::Status RecordingRegistry::deleteValue(Key key, const std::string& name) {
    if (calls_.enter("registry delete " + valuePath(key, name))) return ACCESS_DENIED;
    return api_.deleteValue(key, name);
}

RecordingRegistry::Status RecordingRegistry::closeKey(Key key) {
    const bool fails = calls_.enter("registry close " + paths_[key]);
    paths_.erase(key);
    const Status status = api_.closeKey(key);
    return fails ? ACCESS_DENIED : status;
}

// --- Files ------------------------------------------------------------------------------------------------

class RecordingFiles::RecordingFile : public vexa::AppendFile {
public:
    RecordingFile(RecordingFiles& files, std::wstring path, std::unique_ptr<vexa::AppendFile> file)
        : files_(files), path_(std::move(path)), file_(std::move(file)) {}
    void write(const std::string& bytes) override {
        files_.call("write", path_);
        file_->write(bytes);
    }

private:
    RecordingFiles& files_;
    std::wstring path_;
    std::unique_ptr<vexa::AppendFile> file_;
};

bool RecordingFiles::fails(const char* operation, const std::wstring& path) {
    return calls_.enter(std::string("files ") + operation + " " + toUtf8(path));
}

void RecordingFiles::call(const char* operation, const std::wstring& path) {
    if (fails(operation, path)) throw vexa::Error(L"The file system failed");
}

bool RecordingFiles::folderExists(const std::wstring& path) {
    return !fails("folderExists", path) && files_.folderExists(path);
}

bool RecordingFiles::fileExists(const std::wstring& path) {
    return !fails("fileExists", path) && files_.fileExists(path);
}

std::vector<std::wstring> RecordingFiles::filesWithContent(const std::wstring& folder,
                                                           const std::wstring& extension) {
    call("filesWithContent", folder);
    return files_.filesWithContent(folder, extension);
}

void RecordingFiles::createFolder(const std::wstring& path) {
    call("createFolder", path);
    files_.createFolder(path);
}

void RecordingFiles::deleteFile(const std::wstring& path) {
    call("deleteFile", path);
    files_.deleteFile(path);
}

std::vector<std::wstring> RecordingFiles::drives() {
    if (calls_.enter("files drives")) return {};
    return files_.drives();
}

std::vector<std::wstring> RecordingFiles::subfolders(const std::wstring& path) {
    call("subfolders", path);
    return files_.subfolders(path);
}

std::unique_ptr<vexa::AppendFile> RecordingFiles::openForAppending(const std::wstring& path) {
    call("openForAppending", path);
    return std::make_unique<RecordingFile>(*this, path, files_.openForAppending(path));
}

// --- The others -------------------------------------------------------------------------------------------

void RecordingClock::sleep(int milliseconds) {
    if (!calls_.enter("clock sleep " + std::to_string(milliseconds))) clock_.sleep(milliseconds);
}

std::shared_ptr<vexa::AddIn> RecordingLocator::running() {
    return calls_.enter("locate addin") ? nullptr : locator_.running();
}

bool RecordingDesktop::sendMessage(std::intptr_t window, std::uint32_t message, std::uintptr_t wParam,
                                   std::intptr_t lParam) {
    if (calls_.enter("message " + std::to_string(window) + " " + std::to_string(message) + " " +
                     std::to_string(wParam) + " " + std::to_string(lParam)))
        throw vexa::Error(L"The window does not respond");
    return window == LISTENING_WINDOW || desktop_.sendMessage(window, message, wParam, lParam);
}

void RecordingDesktop::setPointer(vexa::PointerShape shape) {
    if (!calls_.enter("pointer " + std::to_string(static_cast<int>(shape)))) desktop_.setPointer(shape);
}

void RecordingDesktop::doEvents() {
    if (!calls_.enter("doevents")) desktop_.doEvents();
}

std::uintptr_t RecordingTimers::setTimer(std::uint32_t milliseconds, Callback callback) {
    if (calls_.enter("timer set " + std::to_string(milliseconds))) return 0;
    return timers_.setTimer(milliseconds, callback);
}

void RecordingTimers::killTimer(std::uintptr_t identifier) {
    if (!calls_.enter("timer kill " + std::to_string(identifier))) timers_.killTimer(identifier);
}

}  // namespace tests

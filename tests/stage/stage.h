// The stage on which form tests play. Native builds set it up on the headless back end, Windows builds on
// real windows, the real registry and real files; a test never knows which.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <typeinfo>
#include <vector>

#include "common/application.h"
#include "tests/stage/user.h"
#include "tests/support/call_log.h"
#include "tests/support/fake_addin.h"
#include "tests/support/function_ref.h"

namespace tests {

/// What a dialog's script gets: it plays while the dialog is shown modally, and must leave it closed.
using Script = std::function<void(ui::Form& form)>;

class Stage {
public:
    virtual ~Stage() = default;
    /// A fresh stage: empty registry, empty folder for files, an idle add-in that is running.
    [[nodiscard]] static std::unique_ptr<Stage> create();

    [[nodiscard]] virtual vexa::Application& application() = 0;
    [[nodiscard]] virtual User& user() = 0;
    /// Every outside call, and the faults to inject. The stage's own preparations are not in it.
    [[nodiscard]] virtual CallLog& calls() = 0;

    [[nodiscard]] virtual FakeAddIn& addIn() = 0;
    /// Whether the running add-in can be found.
    virtual void setAddInRunning(bool running) = 0;

    // The machine, touched without leaving lines in `calls`. Keys below HKEY_CURRENT_USER.
    virtual void setValue(const std::wstring& key, const std::wstring& name, const vexa::Value& value) = 0;
    /// A value of any type code and content, as a broken or foreign program may have left it.
    virtual void setRawValue(const std::wstring& key, const std::wstring& name, std::uint32_t type,
                             const vexa::Bytes& data) = 0;
    [[nodiscard]] virtual std::optional<vexa::Value> value(const std::wstring& key,
                                                           const std::wstring& name) = 0;
    /// An existing folder with a final backslash, below which tests may keep files; it is the installation
    /// folder, too.
    [[nodiscard]] virtual std::wstring folder() = 0;
    virtual void writeFile(const std::wstring& path, const std::string& content) = 0;
    /// Nothing where the file does not exist.
    [[nodiscard]] virtual std::optional<std::string> readFile(const std::wstring& path) = 0;
    virtual void createFolder(const std::wstring& path) = 0;
    /// One more drive, as "Q:"; a ready one is empty, one that is not ready cannot be read.
    virtual void addDrive(const std::wstring& name, bool ready) = 0;
    /// The time that the program's clock shows from now on; sleeping does not wait.
    virtual void setTime(const vexa::LocalTime& time) = 0;
    /// From now on numbers and dates convert as in a German locale: a decimal comma, points between
    /// thousands, the day before the month.
    virtual void useDecimalComma() = 0;

    /// A window from a page template, shown in a container of this size (pixels).
    [[nodiscard]] virtual std::unique_ptr<ui::Window> createPage(int templateIdentifier,
                                                                 const ui::Size& size) = 0;
    /// The resolution that the program sees from now on; the windows' own pixels stay as they are.
    virtual void setTwipsPerPixel(double horizontal, double vertical) = 0;
    /// From now on this list has room for just so many items: adding more fails.
    virtual void setRoom(ui::ListBox& list, int items) = 0;
    /// The owner for a dialog that a test shows by itself.
    [[nodiscard]] virtual ui::Window& owner() = 0;

    /// The next modal dialog that is shown plays this script; several calls queue up. A dialog without a
    /// script, one that its script leaves open, and a script that is never played are test failures.
    virtual void whenShown(Script script) = 0;
    template <class Form>
    void whenShown(std::function<void(Form&)> script) {
        whenShown(Script([script](ui::Form& form) { script(dynamic_cast<Form&>(form)); }));
    }

    /// What screen readers were given to say at once, in order.
    [[nodiscard]] virtual std::vector<std::wstring> announced() = 0;
    /// Whether the window can be seen, whoever is in front of it.
    [[nodiscard]] virtual bool isShown(const ui::Window& window) = 0;

    /// What happens to open dialogs when the host closes the page: they close, the innermost first.
    virtual void closeDialogs() = 0;

    /// The answers to the next message boxes, in order; without one a box is answered by OK or No.
    virtual void answerMessages(std::vector<ui::MessageAnswer> answers) = 0;
    /// The message boxes shown so far.
    [[nodiscard]] virtual const std::vector<ui::Message>& messages() const = 0;

    struct ColourQuestion {
        ui::Colour initial;
        std::wstring title;
        bool operator==(const ColourQuestion&) const = default;
    };
    /// The colour chooser's next answers; nothing is a cancel, and so is a question without an answer.
    virtual void answerColours(std::vector<std::optional<ui::Colour>> answers) = 0;
    [[nodiscard]] virtual const std::vector<ColourQuestion>& colourQuestions() const = 0;
};

}  // namespace tests

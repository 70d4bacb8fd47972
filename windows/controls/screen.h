// The real screen: makes windows from the dialog templates of a module and asks the user short questions.
#pragma once

#include <windows.h>

#include <map>
#include <vector>

#include "ui/window.h"
#include "windows/controls/activation_context.h"
#include "windows/controls/annotations.h"
#include "windows/controls/icon_cache.h"
#include "windows/controls/image_list.h"
#include "windows/controls/message_hook.h"

namespace win {

class Window;

class Screen : public ui::Screen {
public:
    /// `instance` is the module that holds the templates, the icons and the manifest.
    explicit Screen(HINSTANCE instance);
    ~Screen() override;

    [[nodiscard]] std::unique_ptr<ui::Window> createDialog(int templateIdentifier,
                                                           ui::Window* owner) override;
    ui::MessageAnswer showMessage(ui::Window* owner, const ui::Message& message) override;
    std::optional<ui::Colour> chooseColour(ui::Window& owner, ui::Colour initial,
                                           const std::wstring& title) override;
    [[nodiscard]] double twipsPerPixelX() const override;
    [[nodiscard]] double twipsPerPixelY() const override { return twipsPerPixelX(); }
    [[nodiscard]] int scrollThumbWidth() const override { return GetSystemMetrics(SM_CXHTHUMB); }
    [[nodiscard]] std::vector<std::wstring> fonts() const override;

    /// A page from a child template, hidden, at the upper left corner of `parent`. The page stays open
    /// until it is destroyed. `watch`, where there is one, is told around each message to its windows.
    [[nodiscard]] std::unique_ptr<ui::Window> createPage(int templateIdentifier, HWND parent,
                                                         MessageWatch* watch = nullptr);

    /// Ends every modal loop, dialogs as by their close box and questions as by Cancel or No; while the
    /// loops return, new ones end at once. Called when the host closes the page.
    void closeAll();

    /// Called inside the modal loop of each dialog once it is shown.
    std::function<void(ui::Form&)> onModal;

    /// Called with true when a modal loop begins and none ran before, with false when the last has ended.
    std::function<void(bool runs)> onModalState;

    [[nodiscard]] HINSTANCE instance() const { return instance_; }
    [[nodiscard]] const ActivationContext& context() const { return context_; }

    // For the windows.
    /// One modal loop that runs now, of a dialog or of a question that a window asks.
    class Modal {
    public:
        Modal(Screen& screen, Window& dialog) : Modal(screen, &dialog, 0) {}
        /// `cancel` is the command that ends the question.
        Modal(Screen& screen, Window* asker, WORD cancel);
        Modal(const Modal&) = delete;
        Modal& operator=(const Modal&) = delete;
        ~Modal();

        /// The question's window is being made; false where it has been cancelled by then.
        [[nodiscard]] bool opens(HWND question);

    private:
        friend class Screen;
        void cancel();

        Screen& screen_;
        Window* window_;
        WORD cancel_;
        HWND question_ = nullptr;
        bool cancelled_ = false;
    };

    /// The library of the rich-text editor, which stays loaded as long as the screen lives. Throws
    /// vexa::Error.
    void loadRichEdit();
    [[nodiscard]] IconCache& icons() { return icons_; }
    /// The toolbars' icons in a size in pixels.
    [[nodiscard]] ToolbarImages& toolbarImages(int side);
    [[nodiscard]] Annotations& annotations() { return annotations_; }
    void add(Window& window) { windows_.push_back(&window); }
    void remove(Window& window);
    /// Closes what was opened from `window`, at any depth.
    void closeDialogsOf(const Window& window);
    /// The host has closed the page and the modal loops have not all returned yet.
    [[nodiscard]] bool isClosing() const { return closing_; }

private:
    void tellModalState(bool runs) noexcept;
    template <class Chosen>
    void closeOpen(Chosen chosen);

    HINSTANCE instance_;
    ActivationContext context_;
    HMODULE richEdit_ = nullptr;
    IconCache icons_{instance_};
    std::map<int, ToolbarImages> toolbarImages_;  ///< by size
    Annotations annotations_;
    std::vector<Window*> windows_;
    std::vector<Modal*> modals_;
    bool closing_ = false;
};

/// The window of the program that a vocabulary's window stands for; null for none.
[[nodiscard]] HWND handleOf(const ui::Window* window);

}  // namespace win

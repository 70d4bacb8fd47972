// Windows and the screen of the headless back end: templates become controls in memory, modal windows play
// the script that the stage holds for them.
#pragma once

#include <memory>
#include <vector>

#include "tests/headless/event_loop.h"
#include "tests/headless/item.h"
#include "ui/form.h"
#include "ui/window.h"

namespace headless {

class Screen;

class Window : public ui::Window {
public:
    Window(Screen& screen, const DialogTemplate& source, Window* owner);
    ~Window() override;

    [[nodiscard]] std::unique_ptr<ui::Timer> createTimer() override;
    [[nodiscard]] std::wstring caption() const override { return source_.caption; }
    [[nodiscard]] ui::Size outerSize() const override;
    void setOuterSize(const ui::Size& size) override;
    [[nodiscard]] ui::Size innerSize() const override { return innerSize_; }
    [[nodiscard]] std::intptr_t handle() const override { return handle_; }
    void runModal(ui::Form& form, const std::function<void()>& load) override;
    void close() override;
    [[nodiscard]] bool isOpen() const override { return open_; }

    /// Shows a window that is still being loaded.
    void present() { shown_ = true; }
    [[nodiscard]] bool isShown() const { return shown_ && open_; }
    /// What screen readers are to say at once.
    void announce(const std::wstring& text);
    /// Shows a window that is not modal: a page in its container.
    void show(const ui::Size& innerSize);
    /// Shown, and no modal window over it.
    [[nodiscard]] bool acceptsInput() const;

    /// In tab order.
    [[nodiscard]] const std::vector<std::unique_ptr<Item>>& items() const { return items_; }
    /// The usable items of the item's group, in order.
    [[nodiscard]] std::vector<Item*> groupOf(const Item& item) const;
    /// Null where there is none.
    [[nodiscard]] Item* itemWithId(int identifier) const;
    [[nodiscard]] Item* defaultButton() const;

    /// The control that has the focus while the window accepts input; may be null.
    [[nodiscard]] Item* focused() const { return focused_; }
    /// Does nothing where the item cannot have the focus.
    void focus(Item& item, FocusBy by);
    void dropFocus(const Item& item);
    /// The next tab stop after `from` (null: from the edge), around the window's end; null where there is
    /// none.
    [[nodiscard]] Item* nextTabStop(const Item* from, bool forward) const;

    [[nodiscard]] std::intptr_t newHandle() const;

    /// The control of this window over which the mouse pointer is; may be null.
    [[nodiscard]] const Item* itemUnderPointer() const { return underPointer_; }
    void movePointerTo(const Item* item) { underPointer_ = item; }

protected:
    [[nodiscard]] ui::Control& bind(ui::Kind kind, int identifier) override;

private:
    friend class Screen;
    [[nodiscard]] ui::Size frame() const;
    void announceFocus();
    [[nodiscard]] bool descendsFrom(const Window& other) const;

    Screen& screen_;
    const DialogTemplate& source_;
    Window* owner_;
    std::intptr_t handle_;
    ui::Size innerSize_;
    std::vector<std::unique_ptr<Item>> items_;
    Item* focused_ = nullptr;
    const Item* underPointer_ = nullptr;
    bool shown_ = false;
    bool open_ = true;
    bool closing_ = false;
};

class Screen : public ui::Screen {
public:
    explicit Screen(EventLoop& loop);

    [[nodiscard]] std::unique_ptr<ui::Window> createDialog(int templateIdentifier,
                                                           ui::Window* owner) override;
    /// Nobody is there to ask: OK or No, and no colour.
    ui::MessageAnswer showMessage(ui::Window* owner, const ui::Message& message) override;
    std::optional<ui::Colour> chooseColour(ui::Window& owner, ui::Colour initial,
                                           const std::wstring& title) override;
    [[nodiscard]] double twipsPerPixelX() const override { return twipsPerPixel; }
    [[nodiscard]] double twipsPerPixelY() const override { return twipsPerPixel; }
    [[nodiscard]] int scrollThumbWidth() const override { return 16; }
    [[nodiscard]] std::vector<std::wstring> fonts() const override { return fontNames; }

    /// Plays the user's part in a window that was just shown modally.
    std::function<void(ui::Form&)> whenShown;
    /// Closes every modal window, the innermost first; until the last one has returned, new ones close at
    /// once.
    void closeAll();
    [[nodiscard]] bool isClosing() const { return closing_; }

    double twipsPerPixel = 15;  ///< 96 DPI
    /// What screen readers were given to say, in order.
    std::vector<std::wstring> announced;
    std::vector<std::wstring> fontNames{L"Tahoma", L"Arial", L"Courier New", L"MS Sans Serif"};

private:
    friend class Window;
    /// A window is on top of the others for as long as this lives.
    class Modal;

    EventLoop& loop_;
    std::vector<Window*> modal_;    ///< the innermost last
    std::vector<Window*> windows_;  ///< all that live
    bool closing_ = false;
    std::intptr_t nextHandle_;
};

}  // namespace headless

#include "tests/headless/window.h"

#include <algorithm>
#include <random>
#include <stdexcept>
#include <utility>

#include "tests/headless/kinds.h"
#include "ui/dialog_ids.h"

namespace headless {
namespace {

/// A window's timer, ticking in the loop.
class WindowTimer : public ui::Timer {
public:
    explicit WindowTimer(EventLoop& loop) : loop_(loop) {}
    ~WindowTimer() override { WindowTimer::stop(); }

    void start(int milliseconds) override {
        stop();
        timer_ = loop_.startTimer(milliseconds, [this] { tick(); });
    }
    void stop() override { loop_.stopTimer(std::exchange(timer_, 0)); }

private:
    void tick() {
        const auto handler = onTimer;  // its own copy: the handler may destroy the timer
        if (handler) handler();
    }

    EventLoop& loop_;
    EventLoop::Timer timer_ = 0;
};

}  // namespace

// --- Window -----------------------------------------------------------------------------------------------

Window::Window(Screen& screen, const DialogTemplate& source, Window* owner)
    : screen_(screen), source_(source), owner_(owner), handle_(newHandle()) {
    const ui::Rect area = toPixels({0, 0, source.units.width, source.units.height});
    innerSize_ = {area.width, area.height};
    for (const TemplateControl& control : source.controls) items_.push_back(makeItem(*this, control));
    screen_.windows_.push_back(this);
}

Window::~Window() {
    std::erase(screen_.windows_, this);
    for (Window* window : std::vector(screen_.modal_.rbegin(), screen_.modal_.rend()))
        if (window->descendsFrom(*this)) window->close();
    for (Window* window : screen_.windows_)
        if (window->owner_ == this) window->owner_ = nullptr;
}

bool Window::descendsFrom(const Window& other) const {
    return owner_ != nullptr && (owner_ == &other || owner_->descendsFrom(other));
}

std::unique_ptr<ui::Timer> Window::createTimer() { return std::make_unique<WindowTimer>(screen_.loop_); }

ui::Size Window::frame() const {
    constexpr ui::Size CAPTION_AND_BORDERS{6, 29};
    return source_.styles.contains("WS_CAPTION") ? CAPTION_AND_BORDERS : ui::Size{};
}

ui::Size Window::outerSize() const {
    return {innerSize_.width + frame().width, innerSize_.height + frame().height};
}

void Window::setOuterSize(const ui::Size& size) {
    const ui::Size inner{std::max(0, size.width - frame().width), std::max(0, size.height - frame().height)};
    if (inner == innerSize_) return;
    innerSize_ = inner;
    if (onResize) onResize();
}

void Window::show(const ui::Size& innerSize) {
    innerSize_ = innerSize;
    shown_ = true;
}

bool Window::acceptsInput() const {
    return shown_ && open_ && (screen_.modal_.empty() || screen_.modal_.back() == this);
}

/// Takes the window off the top again and gives the focus back to the one below.
class Screen::Modal {
public:
    Modal(Screen& screen, Window& window, Window* below) : screen_(screen), window_(window), below_(below) {
        screen_.modal_.push_back(&window);
    }
    Modal(const Modal&) = delete;
    Modal& operator=(const Modal&) = delete;
    ~Modal() {
        std::erase(screen_.modal_, &window_);
        if (screen_.modal_.empty()) screen_.closing_ = false;
        if (std::ranges::count(screen_.windows_, below_) > 0) below_->announceFocus();
    }

private:
    Screen& screen_;
    Window& window_;
    Window* below_;
};

void Window::runModal(ui::Form& form, const std::function<void()>& load) {
    if (!open_ || screen_.closing_) return;
    const Screen::Modal modal(screen_, *this, screen_.modal_.empty() ? owner_ : screen_.modal_.back());
    load();
    if (!open_) return;
    shown_ = true;
    if (focused_ != nullptr)
        announceFocus();
    else if (Item* first = nextTabStop(nullptr, true))
        focus(*first, FocusBy::keyboard);
    if (screen_.whenShown) screen_.whenShown(form);
    close();
}

void Window::close() {
    if (!open_ || closing_) return;
    closing_ = true;
    if (onQueryUnload) onQueryUnload();
    open_ = false;
}

std::vector<Item*> Window::groupOf(const Item& item) const {
    const auto same = [&](const std::unique_ptr<Item>& other) { return other.get() == &item; };
    auto first = std::ranges::find_if(items_, same);
    auto last = first + 1;
    while (first != items_.begin() && !(*first)->startsGroup()) --first;
    while (last != items_.end() && !(*last)->startsGroup()) ++last;
    std::vector<Item*> group;
    for (auto member = first; member != last; ++member)
        if ((*member)->usable()) group.push_back(member->get());
    return group;
}

Item* Window::itemWithId(int identifier) const {
    const auto found = std::ranges::find_if(
        items_, [&](const std::unique_ptr<Item>& item) { return item->source().id == identifier; });
    return found == items_.end() ? nullptr : found->get();
}

Item* Window::defaultButton() const {
    const auto found = std::ranges::find_if(
        items_, [](const std::unique_ptr<Item>& item) { return item->source().has("BS_DEFPUSHBUTTON"); });
    return found == items_.end() ? itemWithId(IDC_cmdOk) : found->get();
}

void Window::focus(Item& item, FocusBy by) {
    if (!item.focusable() || !item.usable() || focused_ == &item) return;
    Item* before = focused_;
    if (before != nullptr) before->focusLost();
    focused_ = &item;
    item.focusGained(by);
    announceFocus();
    if (before != nullptr) before->focusGone();
}

void Window::dropFocus(const Item& item) {
    if (focused_ != &item) return;
    focused_->focusLost();
    focused_ = nullptr;
}

void Window::announceFocus() {
    if (focused_ != nullptr && acceptsInput() && focused_->control().onGotFocus)
        focused_->control().onGotFocus();
}

void Window::announce(const std::wstring& text) { screen_.announced.push_back(text); }

Item* Window::nextTabStop(const Item* from, bool forward) const {
    std::vector<Item*> order;
    for (const std::unique_ptr<Item>& item : items_) order.push_back(item.get());
    if (!forward) std::ranges::reverse(order);
    const auto start = std::ranges::find(order, from);
    if (start != order.end()) std::rotate(order.begin(), start + 1, order.end());
    const auto next = std::ranges::find_if(
        order, [](const Item* item) { return item->usable() && item->state.tabStop && item->focusable(); });
    return next == order.end() ? nullptr : *next;
}

std::intptr_t Window::newHandle() const { return screen_.nextHandle_ += 2; }

ui::Control& Window::bind(ui::Kind kind, int identifier) {
    Item* item = itemWithId(identifier);
    if (item == nullptr)
        throw std::logic_error(source_.idName + " has no control " + std::to_string(identifier));
    if (kindOf(item->source()) != kind)
        throw std::logic_error(item->source().idName + " is a control of another kind in the template");
    return item->control();
}

// --- Screen -----------------------------------------------------------------------------------------------

Screen::Screen(EventLoop& loop) : loop_(loop) {
    // Handles differ from run to run, as real ones do.
    std::random_device chance;
    nextHandle_ = 0x10000 + static_cast<std::intptr_t>(chance() % 0x10000) * 2;
}

std::unique_ptr<ui::Window> Screen::createDialog(int templateIdentifier, ui::Window* owner) {
    return std::make_unique<Window>(*this, dialogTemplate(templateIdentifier), dynamic_cast<Window*>(owner));
}

ui::MessageAnswer Screen::showMessage(ui::Window*, const ui::Message& message) {
    return message.buttons == ui::MessageButtons::ok ? ui::MessageAnswer::ok : ui::MessageAnswer::no;
}

std::optional<ui::Colour> Screen::chooseColour(ui::Window&, ui::Colour, const std::wstring&) { return {}; }

void Screen::closeAll() {
    closing_ = !modal_.empty();
    const std::vector<Window*> open = modal_;
    for (auto window = open.rbegin(); window != open.rend(); ++window) (*window)->close();
}

}  // namespace headless

// What the source files of the knowledgebase dialog share.
#pragma once

namespace vexa {

/// The dialog's name in the log.
inline constexpr const wchar_t* FORM_NAME = L"frmKBConfiguration";
/// The title of its message boxes.
inline constexpr const wchar_t* BOX_TITLE = L"Quillmark";

/// Values of `KBProcessState`.
namespace processState {
constexpr int autoUpdate = 1;
constexpr int command = 2;
constexpr int ended = 3;
}  // namespace processState

/// Sets a flag for the time of a block.
class Raised {
public:
    explicit Raised(bool& flag) : flag_(flag), before_(flag) { flag_ = true; }
    ~Raised() { flag_ = before_; }
    Raised(const Raised&) = delete;
    Raised& operator=(const Raised&) = delete;

private:
    bool& flag_;
    bool before_;
};

}  // namespace vexa

// A flag that is set while something runs.
#pragma once

namespace vexa {

/// Sets a flag for the time of a block, and puts back what it was.
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

// The trace's file: one line for what begins and one for what ends, in the order in which it happens.
#pragma once

#include <windows.h>

#include <string>

namespace trace {

/// Appends a line: a running number, the time, the thread, and the text, indented by the calls that this
/// thread is in. The file is the one that the environment variable VEXAPPE_TRACE names, else
/// VexaPPE-trace.log in the folder for temporary files; it grows from process to process. A line that cannot
/// be written is left out.
void write(const std::wstring& text) noexcept;

/// While it lives, this thread's lines are indented by one step more.
class Deeper {
public:
    Deeper() { ++depth(); }
    Deeper(const Deeper&) = delete;
    Deeper& operator=(const Deeper&) = delete;
    ~Deeper() { --depth(); }
    static int& depth();
};

}  // namespace trace

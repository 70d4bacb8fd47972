// The scope of a lock between threads.
#pragma once

#include <windows.h>

namespace win {

/// Holds a lock while it lives.
class Locked {
public:
    explicit Locked(SRWLOCK& lock) : lock_(lock) { AcquireSRWLockExclusive(&lock_); }
    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;
    ~Locked() { ReleaseSRWLockExclusive(&lock_); }

private:
    SRWLOCK& lock_;
};

}  // namespace win

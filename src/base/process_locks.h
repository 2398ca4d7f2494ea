// Inter-process locks on files: held until released or until the process ends, however it ends
// (a crash or a kill included), so a run that dies never keeps others waiting.
#pragma once

#include <wx/string.h>

#include <cstdint>
#include <map>
#include <memory>

// A lock this process holds; released when destroyed.
class InterProcessLock {
public:
    virtual ~InterProcessLock() = default;
};

enum class LockAttempt { Taken, Busy, Unavailable };

// The locks of one process, by file. A lock the process holds already is taken again at once: the
// lock belongs to the process, and is released when its last holder lets it go.
class ProcessLocks {
public:
    ProcessLocks() = default;
    ProcessLocks(const ProcessLocks&) = delete;
    ProcessLocks& operator=(const ProcessLocks&) = delete;

    // Tries to take the lock of `file` (created when missing) without waiting. Busy: another
    // process holds it. Unavailable: the file cannot be opened (its folder is missing).
    LockAttempt TryLock(const wxString& file, std::unique_ptr<InterProcessLock>& lock);

private:
    class Holder;
    struct Held {
        std::intptr_t handle;
        int holders;
    };
    void Release(const wxString& file);

    std::map<wxString, Held> held;
};

// An advisory lock between processes on a file of its own: held from construction until the
// object is destroyed, or until the process ends however it ends, so a killed run never leaves
// the others waiting.
#pragma once

#include <wx/string.h>

namespace sim {

class FileLock {
public:
    // Creates the lock file when missing and waits until this process holds the lock.
    explicit FileLock(const wxString& path);
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    // False when the lock file could not be opened or locked: the caller goes on unserialised.
    bool Held() const { return held; }

private:
    bool held = false;
#ifdef __WINDOWS__
    void* handle = nullptr;
#else
    int descriptor = -1;
#endif
};

}  // namespace sim

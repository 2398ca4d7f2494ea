#include "base/process_locks.h"

#ifdef __WINDOWS__
#include <wx/msw/wrapwin.h>
#else
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#endif

namespace {

// The operating system's lock: Taken with its handle, Busy or Unavailable.
LockAttempt LockFile(const wxString& file, std::intptr_t& handle)
{
#ifdef __WINDOWS__
    // Not inheritable: a tool started meanwhile does not keep the lock alive.
    const HANDLE opened = ::CreateFileW(file.wc_str(), GENERIC_READ | GENERIC_WRITE,
        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (opened == INVALID_HANDLE_VALUE)
        return LockAttempt::Unavailable;
    OVERLAPPED at = {};
    if (!::LockFileEx(opened, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &at)) {
        const DWORD error = ::GetLastError();
        ::CloseHandle(opened);
        return error == ERROR_LOCK_VIOLATION || error == ERROR_IO_PENDING ? LockAttempt::Busy : LockAttempt::Unavailable;
    }
    handle = reinterpret_cast<std::intptr_t>(opened);
    return LockAttempt::Taken;
#else
    // Closed on exec: a tool started meanwhile does not keep the lock alive. A user who may not
    // write the file locks it all the same.
    int fd = ::open(file.fn_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    if (fd < 0)
        fd = ::open(file.fn_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return LockAttempt::Unavailable;
    if (::flock(fd, LOCK_EX | LOCK_NB) != 0) {
        const int error = errno;
        ::close(fd);
        return error == EWOULDBLOCK ? LockAttempt::Busy : LockAttempt::Unavailable;
    }
    handle = fd;
    return LockAttempt::Taken;
#endif
}

void UnlockFile(std::intptr_t handle)
{
#ifdef __WINDOWS__
    ::CloseHandle(reinterpret_cast<HANDLE>(handle));
#else
    ::close(static_cast<int>(handle));
#endif
}

}  // namespace

class ProcessLocks::Holder : public InterProcessLock {
public:
    Holder(ProcessLocks& locks, const wxString& file) : locks(locks), file(file) {}
    ~Holder() override { locks.Release(file); }

private:
    ProcessLocks& locks;
    wxString file;
};

LockAttempt ProcessLocks::TryLock(const wxString& file, std::unique_ptr<InterProcessLock>& lock)
{
    auto found = held.find(file);
    if (found == held.end()) {
        std::intptr_t handle = 0;
        const LockAttempt attempt = LockFile(file, handle);
        if (attempt != LockAttempt::Taken)
            return attempt;
        found = held.emplace(file, Held{handle, 0}).first;
    }
    ++found->second.holders;
    lock = std::make_unique<Holder>(*this, file);
    return LockAttempt::Taken;
}

void ProcessLocks::Release(const wxString& file)
{
    const auto found = held.find(file);
    if (found == held.end() || --found->second.holders > 0)
        return;
    UnlockFile(found->second.handle);
    held.erase(found);
}

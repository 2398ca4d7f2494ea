#include "file_lock.h"

#ifdef __WINDOWS__
#include <wx/msw/wrapwin.h>
#else
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#endif

namespace sim {

#ifdef __WINDOWS__

FileLock::FileLock(const wxString& path)
{
    const HANDLE file = ::CreateFileW(path.wc_str(), GENERIC_READ | GENERIC_WRITE,
        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return;
    handle = file;
    OVERLAPPED whole = {};
    held = ::LockFileEx(file, LOCKFILE_EXCLUSIVE_LOCK, 0, MAXDWORD, MAXDWORD, &whole) != 0;
}

FileLock::~FileLock()
{
    if (!handle)
        return;
    if (held) {
        OVERLAPPED whole = {};
        ::UnlockFileEx(static_cast<HANDLE>(handle), 0, MAXDWORD, MAXDWORD, &whole);
    }
    ::CloseHandle(static_cast<HANDLE>(handle));
}

#else

FileLock::FileLock(const wxString& path)
{
    descriptor = ::open(path.fn_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    if (descriptor < 0)
        return;
    int result;
    do
        result = ::flock(descriptor, LOCK_EX);
    while (result != 0 && errno == EINTR);
    held = result == 0;
}

// Closing the descriptor releases the lock.
FileLock::~FileLock()
{
    if (descriptor >= 0)
        ::close(descriptor);
}

#endif

}  // namespace sim

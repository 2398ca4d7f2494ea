#include "text_io.h"

#include "base/text_file.h"
#include "base/unicode_text.h"

#include <wx/convauto.h>
#include <wx/file.h>
#include <wx/filefn.h>

#include <cstdio>
#include <string>
#include <vector>

#ifdef __WINDOWS__
#include <wx/msw/wrapwin.h>
#else
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#endif

namespace sim {

bool ReadLines(const wxString& path, wxArrayString& lines)
{
    lines.Clear();
    if (!wxFileExists(path))
        return false;
    wxFile file(path, wxFile::read);
    if (!file.IsOpened())
        return false;
    const wxFileOffset size = file.Length();
    if (size < 0)
        return false;
    std::vector<char> bytes(static_cast<size_t>(size));
    if (size > 0 && file.Read(bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()))
        return false;
    if (bytes.empty())
        return true;
    // wxConvAuto: a BOM decides, else UTF-8, else the single-byte fallback, so no file is refused.
    const wxString text(bytes.data(), wxConvAuto(), bytes.size());
    lines = SplitLines(text);
    return true;
}

wxArrayString SplitLines(const wxString& text)
{
    wxArrayString lines;
    wxString current;
    for (auto it = text.begin(); it != text.end(); ++it) {
        const wxUniChar c = *it;
        if (c == '\r' || c == '\n') {
            lines.Add(current);
            current.clear();
            if (c == '\r') {
                auto next = it;
                ++next;
                if (next != text.end() && *next == '\n')
                    it = next;
            }
        } else {
            current += c;
        }
    }
    if (!current.empty())
        lines.Add(current);
    return lines;
}

bool WriteLines(const wxString& path, const wxArrayString& lines)
{
    return WriteTextLines(path, lines);
}

// Opened for appending only and written with one call, so that the lines of processes appending
// at the same moment never interleave and none overwrites another.
bool AppendLine(const wxString& path, const wxString& line)
{
    const std::string bytes = Utf8Bytes(line) + "\r\n";
#ifdef __WINDOWS__
    const HANDLE file = ::CreateFileW(path.wc_str(), FILE_APPEND_DATA,
        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return false;
    DWORD written = 0;
    const bool ok = ::WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
                    written == bytes.size();
    return ::CloseHandle(file) && ok;
#else
    const int file = ::open(path.fn_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0666);
    if (file < 0)
        return false;
    ssize_t written;
    do
        written = ::write(file, bytes.data(), bytes.size());
    while (written < 0 && errno == EINTR);
    const bool ok = written == static_cast<ssize_t>(bytes.size());
    return ::close(file) == 0 && ok;
#endif
}

void PrintLine(const wxString& line)
{
    std::fputs(Utf8Bytes(line).c_str(), stdout);
    std::fputc('\n', stdout);
}

void PrintError(const wxString& line)
{
    std::fputs(Utf8Bytes(line).c_str(), stderr);
    std::fputc('\n', stderr);
}

}  // namespace sim

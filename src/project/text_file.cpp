#include "project/text_file.h"

#include "project/unicode_text.h"

#include <wx/file.h>
#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/log.h>
#include <wx/textfile.h>

#ifdef __WINDOWS__
#include <wx/msw/wrapwin.h>
#else
#include <cstdio>
#include <sys/stat.h>
#endif

namespace {

// Puts `from` in the place of `to` in one step: whoever looks finds the old file or the new one,
// never neither and never a part.
bool ReplaceFile(const wxString& from, const wxString& to)
{
#ifdef __WINDOWS__
    return ::MoveFileExW(from.wc_str(), to.wc_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
#else
    return std::rename(from.fn_str(), to.fn_str()) == 0;
#endif
}

// The new file gets the old one's permissions, or those a newly created file gets (a temporary
// file is created private).
void TakeMode(const wxString& temporary, const wxString& path)
{
#ifndef __WINDOWS__
    struct stat old;
    mode_t mode = 0;
    if (::stat(path.fn_str(), &old) == 0) {
        mode = old.st_mode & 07777;
    } else {
        const mode_t mask = ::umask(0);
        ::umask(mask);
        mode = 0666 & ~mask;
    }
    ::chmod(temporary.fn_str(), mode);
#else
    (void)temporary;
    (void)path;
#endif
}

}  // namespace

bool ReadTextLines(const wxString& path, wxArrayString& lines)
{
    lines.Clear();
    wxLogNull quiet;  // callers decide what an unreadable file means
    if (!wxFileExists(path) || wxFileName::GetSize(path) > kMaxTextFileBytes)
        return false;
    wxTextFile file;
    if (!file.Open(path))
        return false;
    lines.Alloc(file.GetLineCount());
    for (size_t i = 0; i < file.GetLineCount(); ++i)
        lines.Add(EncodableText(file[i]));  // damaged bytes must not stop a later save
    return true;
}

bool WriteTextLines(const wxString& path, const wxArrayString& lines)
{
    wxString text;
    for (const wxString& line : lines)
        text << line << "\r\n";
    wxLogNull quiet;
    // Written whole into a new file beside it, flushed to the disk, then put in the old one's
    // place: a save cut short (a crash, a killed process, a full disk) leaves the old file as it
    // was. Whatever the old file held, readable or not, is replaced whole.
    wxFile file;
    const wxString temporary = wxFileName::CreateTempFileName(path + ".saving", &file);
    if (temporary.empty())
        return false;
    const bool written = file.Write(text, wxConvUTF8) && file.Flush() && file.Close();
    if (written)
        TakeMode(temporary, path);
    if (written && ReplaceFile(temporary, path))
        return true;
    file.Close();
    wxRemoveFile(temporary);
    return false;
}

#include "project/text_file.h"

#include <wx/file.h>
#include <wx/filefn.h>
#include <wx/log.h>
#include <wx/textfile.h>

bool ReadTextLines(const wxString& path, wxArrayString& lines)
{
    lines.Clear();
    wxLogNull quiet;  // callers decide what an unreadable file means
    if (!wxFileExists(path))
        return false;
    wxTextFile file;
    if (!file.Open(path))
        return false;
    lines.Alloc(file.GetLineCount());
    for (size_t i = 0; i < file.GetLineCount(); ++i)
        lines.Add(file[i]);
    return true;
}

bool WriteTextLines(const wxString& path, const wxArrayString& lines)
{
    wxString text;
    for (const wxString& line : lines)
        text << line << "\r\n";
    wxLogNull quiet;
    wxFile file;
    // Created afresh: whatever the old file held, readable or not, is replaced whole.
    if (!file.Create(path, true))
        return false;
    return file.Write(text, wxConvUTF8) && file.Close();
}

#include "text_io.h"

#include "project/text_file.h"
#include "project/unicode_text.h"

#include <wx/convauto.h>
#include <wx/file.h>
#include <wx/filefn.h>

#include <cstdio>
#include <vector>

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

bool AppendLine(const wxString& path, const wxString& line)
{
    wxFile file(path, wxFile::write_append);
    if (!file.IsOpened())
        return false;
    return file.Write(EncodableText(line) + "\r\n", wxConvUTF8) && file.Close();
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

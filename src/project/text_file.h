// Whole text files, line by line: the one way the tool reads and writes its text files.
#pragma once

#include <wx/arrstr.h>
#include <wx/string.h>

// Clears `lines` and adds every line of the file, the encoding detected and CR LF or LF line
// ends accepted. False when the file does not exist or cannot be opened (lines then empty).
bool ReadTextLines(const wxString& path, wxArrayString& lines);

// Writes the lines, each ended with CR LF on every platform, so that files made on Linux are
// byte-identical to those made on Windows. The old file is replaced in one step once the new
// one is wholly on the disk, so an interrupted save leaves it untouched. False when the file
// cannot be written (the old one then stays as it was).
bool WriteTextLines(const wxString& path, const wxArrayString& lines);

// Whole text files, line by line: the one way the tool reads and writes its text files.
#pragma once

#include <wx/arrstr.h>
#include <wx/string.h>

// Clears `lines` and adds every line of the file, the encoding detected and CR LF or LF line
// ends accepted. False when the file does not exist or cannot be opened (lines then empty).
bool ReadTextLines(const wxString& path, wxArrayString& lines);

// Writes the lines, each ended with CR LF on every platform, so that files made on Linux are
// byte-identical to those made on Windows. The file is emptied first if it exists, else created.
// False when it cannot be created or written.
bool WriteTextLines(const wxString& path, const wxArrayString& lines);

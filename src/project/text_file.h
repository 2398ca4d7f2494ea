// Whole text files, line by line: the one way the tool reads and writes its text files.
#pragma once

#include <wx/arrstr.h>
#include <wx/string.h>

// The largest text file the tool reads: four times the largest map file (65,536 lines), far more
// than any project, map or device type file holds. A larger file is refused as unreadable, so
// that a damaged or wrong file cannot take the memory of the machine (reading takes about
// eighteen times the file's size).
constexpr unsigned long long kMaxTextFileBytes = 16ull << 20;

// Clears `lines` and adds every line of the file, the encoding detected and CR LF or LF line
// ends accepted. False when the file does not exist, cannot be opened or is larger than
// kMaxTextFileBytes (lines then empty).
bool ReadTextLines(const wxString& path, wxArrayString& lines);

// Writes the lines, each ended with CR LF on every platform, so that files made on Linux are
// byte-identical to those made on Windows. The old file is replaced in one step once the new
// one is wholly on the disk, so an interrupted save leaves it untouched. False when the file
// cannot be written (the old one then stays as it was).
bool WriteTextLines(const wxString& path, const wxArrayString& lines);

// Whole text files for the simulator: read with any line ends (CR LF, LF, CR) and any common
// encoding, written UTF-8 with CR LF, as the gateway's suite writes them on every platform.
#pragma once

#include <wx/arrstr.h>
#include <wx/string.h>

namespace sim {

// Clears `lines` and adds every line of the file. False when it does not exist or cannot be read.
bool ReadLines(const wxString& path, wxArrayString& lines);

// Splits text at CR LF, LF or CR; a final line end adds no empty line.
wxArrayString SplitLines(const wxString& text);

// Replaces the file with the lines, each ended with CR LF. False when it cannot be written.
bool WriteLines(const wxString& path, const wxArrayString& lines);

// Adds one line (ended with CR LF) at the end of the file, creating it if needed.
bool AppendLine(const wxString& path, const wxString& line);

// Standard output and standard error, UTF-8, one line each.
void PrintLine(const wxString& line);
void PrintError(const wxString& line);

}  // namespace sim

// Numbers in text, the two ways the tool reads them.
#pragma once

#include <wx/string.h>

// A whole decimal value that fits 32 bits: "9600" converts, "9600 " and "96x" do not. Project
// files are read this way, so a damaged value leaves the setting as it was.
bool ParseWholeInt(const wxString& text, int& value);

// A number typed by the user: leading digits count ("12abc" is 12) and whatever follows is
// ignored, as the tool has always done. False only when no digit could be read at all.
bool ParseTypedNumber(const wxString& text, long& value);

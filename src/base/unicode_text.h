// Text read from outside (files, tool reports) made safe to encode again.
#pragma once

#include <wx/string.h>

#include <cstddef>
#include <string>

// The text with every character that has no UTF-8 form replaced by U+FFFD. The decoders let
// such characters through from damaged bytes (F4 90 80 80 and above reads as a character beyond
// U+10FFFF), and encoding one again fails with a wx assertion.
wxString EncodableText(const wxString& text);

// The text as UTF-8 bytes, characters without a UTF-8 form replaced as above.
std::string Utf8Bytes(const wxString& text);

// Copies text into a fixed field, cut to the field's size (never inside a UTF-8 sequence).
void SetText(char* field, std::size_t size, const wxString& text);
template <std::size_t N>
void SetText(char (&field)[N], const wxString& text)
{
    SetText(field, N, text);
}
// The text of a fixed field.
wxString GetText(const char* field);

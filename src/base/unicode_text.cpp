#include "base/unicode_text.h"

#include <algorithm>
#include <cstring>

namespace {

bool Encodable(const wxUniChar& c)
{
    // Where wchar_t holds 16 bits (Windows), surrogates are halves of a pair, not characters.
    if (sizeof(wchar_t) == 2)
        return true;
    const auto code = static_cast<unsigned long>(c.GetValue());
    return code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
}

}  // namespace

wxString EncodableText(const wxString& text)
{
    wxString safe;
    for (auto it = text.begin(); it != text.end(); ++it) {
        if (Encodable(*it))
            continue;
        // The first character to replace: copy up to it, then go on character by character.
        safe = wxString(text.begin(), it);
        for (; it != text.end(); ++it)
            safe += Encodable(*it) ? wxUniChar(*it) : wxUniChar(0xFFFD);
        return safe;
    }
    return text;
}

std::string Utf8Bytes(const wxString& text)
{
    return EncodableText(text).utf8_string();
}

void SetText(char* field, std::size_t size, const wxString& text)
{
    if (size == 0)
        return;
    // A value from a damaged file may hold characters without a UTF-8 form: they are replaced.
    const std::string utf8 = Utf8Bytes(text);
    std::size_t length = std::min(utf8.length(), size - 1);
    // Step back over continuation bytes so that a cut never splits a character.
    if (length < utf8.length())
        while (length > 0 && (static_cast<unsigned char>(utf8.data()[length]) & 0xC0) == 0x80)
            --length;
    std::memcpy(field, utf8.data(), length);
    std::memset(field + length, 0, size - length);
}

wxString GetText(const char* field)
{
    return wxString::FromUTF8(field);
}

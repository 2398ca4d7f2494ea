#include "project/unicode_text.h"

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

#include "base/number_text.h"

#include "base/unicode_text.h"

#include <cerrno>
#include <climits>
#include <cstdlib>

bool ParseWholeInt(const wxString& text, int& value)
{
    long parsed = 0;
    if (!text.ToLong(&parsed, 10) || parsed < INT_MIN || parsed > INT_MAX)
        return false;
    value = static_cast<int>(parsed);
    return true;
}

bool ParseTypedNumber(const wxString& text, long& value)
{
    // Typed or pasted text with characters that have no UTF-8 form is read up to them.
    const std::string utf8 = Utf8Bytes(text);
    const char* start = utf8.c_str();
    char* end = nullptr;
    errno = 0;
    const long parsed = std::strtol(start, &end, 10);
    if (end == start)
        return false;
    value = parsed;
    return true;
}

#include "project/number_text.h"

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
    const wxScopedCharBuffer utf8 = text.utf8_str();
    const char* start = utf8.data();
    char* end = nullptr;
    errno = 0;
    const long parsed = std::strtol(start, &end, 10);
    if (end == start)
        return false;
    value = parsed;
    return true;
}

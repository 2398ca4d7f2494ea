// What the harnesses share: wxBase started once, and the input as text and as lines the way the
// tool receives them (UTF-8 when it is, else one character per byte).
#pragma once

#include <wx/arrstr.h>
#include <wx/init.h>
#include <wx/log.h>
#include <wx/string.h>
#include <wx/tokenzr.h>

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstdint>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    static wxInitializer initializer;
    // A failed wx check (an index out of range, ...) is a finding: stop there, with its place.
    wxSetAssertHandler([](const wxString& file, int line, const wxString& func, const wxString& cond,
                          const wxString& msg) {
        std::fprintf(stderr, "wx assertion failed: %s:%d %s: %s %s\n", static_cast<const char*>(file.utf8_str()),
                     line, static_cast<const char*>(func.utf8_str()), static_cast<const char*>(cond.utf8_str()),
                     static_cast<const char*>(msg.utf8_str()));
        std::abort();
    });
    wxLog::EnableLogging(false);
    return 0;
}

inline wxString FuzzText(const uint8_t* data, size_t size)
{
    const char* bytes = reinterpret_cast<const char*>(data);
    wxString text = wxString::FromUTF8(bytes, size);
    if (text.empty() && size > 0)
        text = wxString(bytes, wxConvISO8859_1, size);
    return text;
}

inline wxArrayString FuzzLines(const uint8_t* data, size_t size)
{
    return wxStringTokenize(FuzzText(data, size), "\r\n", wxTOKEN_RET_EMPTY_ALL);
}

// The input cut at every NUL byte (`maxParts` > 0: at most that many parts, the last keeping
// the remaining NULs).
inline std::vector<std::string> FuzzParts(const uint8_t* data, size_t size, size_t maxParts = 0)
{
    std::vector<std::string> parts(1);
    for (size_t i = 0; i < size; ++i) {
        if (data[i] == 0 && (maxParts == 0 || parts.size() < maxParts))
            parts.emplace_back();
        else
            parts.back() += static_cast<char>(data[i]);
    }
    return parts;
}

inline wxString FuzzText(const std::string& part)
{
    return FuzzText(reinterpret_cast<const uint8_t*>(part.data()), part.size());
}

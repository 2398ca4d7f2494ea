#include "project/text_file.h"

#include "project/unicode_text.h"

#include <wx/file.h>
#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/log.h>
#include <wx/textfile.h>

#include <algorithm>
#include <cstring>
#include <string>

#ifdef __WINDOWS__
#include <wx/msw/wrapwin.h>
#else
#include <cstdio>
#include <sys/stat.h>
#endif

namespace {

// Puts `from` in the place of `to` in one step: whoever looks finds the old file or the new one,
// never neither and never a part.
bool ReplaceFile(const wxString& from, const wxString& to)
{
#ifdef __WINDOWS__
    return ::MoveFileExW(from.wc_str(), to.wc_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
#else
    return std::rename(from.fn_str(), to.fn_str()) == 0;
#endif
}

// The new file gets the old one's permissions, or those a newly created file gets (a temporary
// file is created private).
void TakeMode(const wxString& temporary, const wxString& path)
{
#ifndef __WINDOWS__
    struct stat old;
    mode_t mode = 0;
    if (::stat(path.fn_str(), &old) == 0) {
        mode = old.st_mode & 07777;
    } else {
        const mode_t mask = ::umask(0);
        ::umask(mask);
        mode = 0666 & ~mask;
    }
    ::chmod(temporary.fn_str(), mode);
#else
    (void)temporary;
    (void)path;
#endif
}

// Splits UTF-8 bytes (no BOM, no NUL) into lines at LF, CR LF and a lone CR, as wxTextFile
// does, each line decoded as the whole file would be: a line end is a byte no character's
// encoding holds. False at the first line that is not UTF-8.
bool SplitUtf8Lines(const char* begin, const char* end, wxArrayString& lines)
{
    // The next CR and the next LF, each found with memchr and looked for again once passed.
    const auto next = [end](const char* from, char c) {
        const void* found = std::memchr(from, c, static_cast<std::size_t>(end - from));
        return found != nullptr ? static_cast<const char*>(found) : end;
    };
    const char* nextCr = next(begin, '\r');
    const char* nextLf = next(begin, '\n');
    std::wstring wide;  // an ASCII line widened, then copied into its place in one allocation
    for (const char* start = begin; start != end;) {
        const char* const stop = std::min(nextCr, nextLf);
        const std::size_t length = static_cast<std::size_t>(stop - start);
        // Widened while the high bits are gathered: one pass, no branch per byte.
        wide.resize(length);
        unsigned char high = 0;
        for (std::size_t i = 0; i < length; ++i) {
            high |= static_cast<unsigned char>(start[i]);
            wide[i] = static_cast<wchar_t>(static_cast<unsigned char>(start[i]));
        }
        if (high < 0x80) {
            lines.Add(wxString());
            lines.Last().assign(wide.data(), wide.size());
        } else {
            const std::size_t characters = wxConvUTF8.ToWChar(nullptr, 0, start, length);
            if (characters == wxCONV_FAILED)
                return false;
            wxString line;
            {
                wxStringBuffer buffer(line, characters);
                wxConvUTF8.ToWChar(buffer, characters, start, length);
            }
            line.Truncate(characters);
            lines.Add(EncodableText(line));  // damaged bytes must not stop a later save
        }
        if (stop == end)
            break;
        start = stop + (*stop == '\r' && stop + 1 != end && stop[1] == '\n' ? 2 : 1);
        if (nextCr < start)
            nextCr = next(start, '\r');
        if (nextLf < start)
            nextLf = next(start, '\n');
    }
    return true;
}

// Any other encoding (a BOM other than UTF-8's, bytes that are not UTF-8, NUL bytes) as wxTextFile
// reads it: rare, so the file is simply read once more.
bool ReadOtherEncoding(const wxString& path, wxArrayString& lines)
{
    lines.Clear();
    wxTextFile file;
    if (!file.Open(path))
        return false;
    lines.Alloc(file.GetLineCount());
    for (size_t i = 0; i < file.GetLineCount(); ++i)
        lines.Add(EncodableText(file[i]));  // damaged bytes must not stop a later save
    return true;
}

}  // namespace

// The whole file is read in one call and split without wxTextFile: for a 65,536-line map,
// wxTextFile's wide copies of the file and its line array took twenty times the reading itself.
// The lines are the same: UTF-8 (with or without its BOM) is what the tool writes and nearly
// every file it reads; whatever else a file holds is read by wxTextFile as before.
bool ReadTextLines(const wxString& path, wxArrayString& lines)
{
    lines.Clear();
    wxLogNull quiet;  // callers decide what an unreadable file means
    if (!wxFileExists(path) || wxFileName::GetSize(path) > kMaxTextFileBytes)
        return false;
    wxFile file;
    if (!file.Open(path))
        return false;
    const wxFileOffset length = file.Length();
    if (length < 0 || static_cast<unsigned long long>(length) > kMaxTextFileBytes)
        return false;
    std::string bytes(static_cast<std::size_t>(length), '\0');
    std::size_t got = 0;
    while (got < bytes.size()) {
        const ssize_t count = file.Read(&bytes[got], bytes.size() - got);
        if (count == wxInvalidOffset)
            return false;
        if (count == 0)
            break;
        got += static_cast<std::size_t>(count);
    }
    bytes.resize(got);
    file.Close();

    const char* begin = bytes.data();
    const char* const end = begin + bytes.size();
    const bool utf8Bom = bytes.size() >= 3 && bytes.compare(0, 3, "\xEF\xBB\xBF") == 0;
    if (utf8Bom)
        begin += 3;
    // A NUL byte, or a first byte that may start another BOM (00, FE, FF), leaves it to wxTextFile.
    const bool plain = bytes.find('\0') == std::string::npos && (utf8Bom || bytes.empty() ||
        (static_cast<unsigned char>(bytes[0]) != 0xFE && static_cast<unsigned char>(bytes[0]) != 0xFF));
    // Mostly ASCII lines: about as many lines as the file has 40-byte stretches.
    lines.Alloc(bytes.size() / 40 + 1);
    if (plain && SplitUtf8Lines(begin, end, lines))
        return true;
    return ReadOtherEncoding(path, lines);
}

bool WriteTextLines(const wxString& path, const wxArrayString& lines)
{
    // The UTF-8 bytes built in one buffer, ASCII characters copied as they are.
    std::size_t size = 0;
    for (const wxString& line : lines)
        size += line.length() + 2;
    std::string text;
    text.reserve(size);
    for (const wxString& line : lines) {
        const wxStringCharType* const chars = line.wx_str();
        const std::size_t length = line.length();
        const std::size_t at = text.size();
        text.resize(at + length);
        unsigned long high = 0;  // gathered over the line: one pass, no branch per character
        for (std::size_t c = 0; c < length; ++c) {
            high |= static_cast<unsigned long>(chars[c]);
            text[at + c] = static_cast<char>(chars[c]);
        }
        if (high >= 0x80) {
            // Fails, as encoding the whole text did, for a character with no UTF-8 form.
            const std::size_t bytes = wxConvUTF8.FromWChar(nullptr, 0, line.wc_str(), length);
            if (bytes == wxCONV_FAILED)
                return false;
            text.resize(at + bytes);
            wxConvUTF8.FromWChar(&text[at], bytes, line.wc_str(), length);
        }
        text += "\r\n";
    }
    wxLogNull quiet;
    // Written whole into a new file beside it, flushed to the disk, then put in the old one's
    // place: a save cut short (a crash, a killed process, a full disk) leaves the old file as it
    // was. Whatever the old file held, readable or not, is replaced whole.
    wxFile file;
    const wxString temporary = wxFileName::CreateTempFileName(path + ".saving", &file);
    if (temporary.empty())
        return false;
    const bool written = file.Write(text.data(), text.size()) == text.size() && file.Flush() && file.Close();
    if (written)
        TakeMode(temporary, path);
    if (written && ReplaceFile(temporary, path))
        return true;
    file.Close();
    wxRemoveFile(temporary);
    return false;
}

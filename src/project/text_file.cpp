#include "project/text_file.h"

#include "project/unicode_text.h"

#include <wx/file.h>
#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/log.h>
#include <wx/convauto.h>
#include <wx/dir.h>
#include <wx/utils.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

#ifdef __WINDOWS__
#include <wx/msw/wrapwin.h>
#else
#include <csignal>
#include <cstdio>
#include <sys/stat.h>
#include <unistd.h>
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

// Where the reader puts each line: Next() gives the string to fill, Done() takes it.
class LineSink {
public:
    virtual ~LineSink() = default;
    // About how many lines are coming.
    virtual void Expect(std::size_t) {}
    virtual wxString& Next() = 0;
    // False: stop reading, the file is refused.
    virtual bool Done() = 0;
};

// Every line handed on, none kept.
class EachLine : public LineSink {
public:
    explicit EachLine(const std::function<void(const wxString&)>& take) : take(take) {}
    wxString& Next() override { return line; }
    bool Done() override
    {
        take(line);
        return true;
    }

private:
    const std::function<void(const wxString&)>& take;
    wxString line;
};

// Every line kept, up to a limit.
class KeptLines : public LineSink {
public:
    KeptLines(wxArrayString& lines, std::size_t maxLines) : lines(lines), maxLines(maxLines) {}
    void Expect(std::size_t count) override { lines.Alloc(std::min(count, maxLines + 1)); }
    wxString& Next() override
    {
        lines.Add(wxString());
        return lines.Last();
    }
    bool Done() override { return lines.size() <= maxLines; }

private:
    wxArrayString& lines;
    std::size_t maxLines;
};

// Splits UTF-8 bytes (no BOM, no NUL, known to be UTF-8) into lines at LF, CR LF and a lone CR,
// as wxTextFile does; a line end is a byte no character's encoding holds. False when the sink
// refused a line.
bool SplitUtf8Lines(const char* begin, const char* end, LineSink& sink)
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
            sink.Next().assign(wide.data(), wide.size());
        } else {
            sink.Next() = EncodableText(wxString::FromUTF8(start, length));  // damaged bytes must not stop a save
        }
        if (!sink.Done())
            return false;
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

// Any other encoding (a BOM other than UTF-8's, bytes that are not UTF-8, NUL bytes) decoded as
// wxTextFile decodes it (wxConvAuto: the BOM's encoding, else UTF-8, else Latin-1) and split as
// it splits, without its copy of every line. False when it cannot be decoded or the sink refused.
bool SplitOtherEncoding(const std::string& bytes, LineSink& sink)
{
    const wxString text(bytes.data(), wxConvAuto(), bytes.size());
    if (bytes.size() > 4 && text.empty())
        return false;
    const wxStringCharType* const chars = text.wx_str();
    const std::size_t length = text.length();
    std::size_t start = 0;
    for (std::size_t i = 0; i < length; ++i) {
        if (chars[i] != '\r' && chars[i] != '\n')
            continue;
        sink.Next() = EncodableText(wxString(chars + start, i - start));  // damaged text must not stop a save
        if (!sink.Done())
            return false;
        if (chars[i] == '\r' && i + 1 < length && chars[i + 1] == '\n')
            ++i;
        start = i + 1;
    }
    if (start < length) {
        sink.Next() = EncodableText(wxString(chars + start, length - start));
        return sink.Done();
    }
    return true;
}

// The whole file read in one call. Missing: no such file; Refused: anything else that stops it.
TextFileRead ReadBytes(const wxString& path, std::string& bytes)
{
    wxLogNull quiet;  // callers decide what an unreadable file means
    if (wxDirExists(path))
        return TextFileRead::Refused;
    if (!wxFileExists(path))
        return TextFileRead::Missing;
    if (wxFileName::GetSize(path) > kMaxTextFileBytes)
        return TextFileRead::Refused;
    wxFile file;
    if (!file.Open(path))
        return TextFileRead::Refused;
    const wxFileOffset length = file.Length();
    if (length < 0 || static_cast<unsigned long long>(length) > kMaxTextFileBytes)
        return TextFileRead::Refused;
    bytes.assign(static_cast<std::size_t>(length), '\0');
    std::size_t got = 0;
    while (got < bytes.size()) {
        const ssize_t count = file.Read(&bytes[got], bytes.size() - got);
        if (count == wxInvalidOffset)
            return TextFileRead::Refused;
        if (count == 0)
            break;
        got += static_cast<std::size_t>(count);
    }
    bytes.resize(got);
    return TextFileRead::Read;
}

// True when the bytes are UTF-8 without NUL: ASCII found at once, anything else decoded once.
bool IsPlainUtf8(const char* begin, const char* end)
{
    unsigned char high = 0;
    bool nul = false;
    for (const char* c = begin; c != end; ++c) {
        high |= static_cast<unsigned char>(*c);
        nul |= *c == '\0';
    }
    if (nul)
        return false;
    return high < 0x80 || wxConvUTF8.ToWChar(nullptr, 0, begin, static_cast<std::size_t>(end - begin)) != wxCONV_FAILED;
}

// The file's lines into the sink: UTF-8 (with or without its BOM), what the tool writes and nearly
// every file it reads, is split as it stands; whatever else a file holds is decoded first.
TextFileRead ReadLines(const wxString& path, LineSink& sink)
{
    std::string bytes;
    const TextFileRead read = ReadBytes(path, bytes);
    if (read != TextFileRead::Read)
        return read;
    const bool utf8Bom = bytes.size() >= 3 && bytes.compare(0, 3, "\xEF\xBB\xBF") == 0;
    const char* const begin = bytes.data() + (utf8Bom ? 3 : 0);
    const char* const end = bytes.data() + bytes.size();
    // A first byte that may start another BOM (00, FE, FF) leaves it to wxConvAuto.
    const bool otherBom = !utf8Bom && !bytes.empty() &&
        (static_cast<unsigned char>(bytes[0]) == 0xFE || static_cast<unsigned char>(bytes[0]) == 0xFF);
    // Mostly ASCII lines: about as many lines as the file has 40-byte stretches.
    sink.Expect(bytes.size() / 40 + 1);
    const bool split = !otherBom && IsPlainUtf8(begin, end) ? SplitUtf8Lines(begin, end, sink)
                                                            : SplitOtherEncoding(bytes, sink);
    return split ? TextFileRead::Read : TextFileRead::Refused;
}

// The file a save writes: a symbolic link is followed to the file it names, so the link stays.
wxString SaveTarget(const wxString& path)
{
#ifndef __WINDOWS__
    wxString target = path;
    for (int links = 0; links < 40; ++links) {
        struct stat info;
        if (::lstat(target.fn_str(), &info) != 0 || !S_ISLNK(info.st_mode))
            break;
        std::vector<char> name(static_cast<std::size_t>(info.st_size > 0 ? info.st_size : PATH_MAX) + 1);
        const ssize_t length = ::readlink(target.fn_str(), name.data(), name.size() - 1);
        if (length <= 0)
            break;
        const wxString linked(name.data(), wxConvFile, static_cast<std::size_t>(length));
        target = wxIsAbsolutePath(linked) ? linked : wxFileName(target).GetPath(wxPATH_GET_SEPARATOR) + linked;
    }
    return target;
#else
    return path;
#endif
}

bool ProcessRuns(unsigned long pid)
{
#ifdef __WINDOWS__
    const HANDLE process = ::OpenProcess(SYNCHRONIZE, FALSE, static_cast<DWORD>(pid));
    if (process == nullptr)
        return ::GetLastError() == ERROR_ACCESS_DENIED;
    const bool running = ::WaitForSingleObject(process, 0) == WAIT_TIMEOUT;
    ::CloseHandle(process);
    return running;
#else
    return ::kill(static_cast<pid_t>(pid), 0) == 0 || errno == EPERM;
#endif
}

// A save writes FILE.saving-PID-N beside FILE first. One that a killed save left behind (its
// process no longer runs) is removed by the next save of that file.
const char kSavingInfix[] = ".saving-";

void RemoveLeftSavings(const wxString& target)
{
    const wxFileName file(target);
    wxDir folder(file.GetPath().empty() ? wxString(".") : file.GetPath());
    if (!folder.IsOpened())
        return;
    const wxString prefix = file.GetFullName() + kSavingInfix;
    wxString name;
    std::vector<wxString> left;
    for (bool more = folder.GetFirst(&name, prefix + "*", wxDIR_FILES | wxDIR_HIDDEN); more; more = folder.GetNext(&name)) {
        unsigned long pid = 0;
        if (name.Mid(prefix.length()).BeforeFirst('-').ToULong(&pid) && !ProcessRuns(pid))
            left.push_back(file.GetPathWithSep() + name);
    }
    for (const wxString& leftover : left)
        wxRemoveFile(leftover);
}

// The system's words for the last error ("Permission denied", "No space left on device").
wxString SystemReason()
{
    const unsigned long code = wxSysErrorCode();
    return code != 0 ? wxString(wxSysErrorMsgStr(code)) : wxString("the file could not be written whole");
}

// Writes the bytes into a new file beside the target, flushes it to the disk and then puts it in
// the old one's place: a save cut short (a crash, a killed process, a full disk) leaves the old
// file as it was. Whatever the old file held, readable or not, is replaced whole.
bool WriteFileBytes(const wxString& path, const std::string& bytes, wxString* reason)
{
    wxLogNull quiet;
    const wxString target = SaveTarget(path);
    RemoveLeftSavings(target);
    const wxString stem = target + kSavingInfix + wxString::Format("%lu-", wxGetProcessId());
    wxFile file;
    wxString temporary;
    wxString why;
    for (int attempt = 0; attempt < 100 && !file.IsOpened(); ++attempt) {
        temporary = stem + wxString::Format("%d", attempt);
        if (file.Create(temporary, false, wxPOSIX_USER_READ | wxPOSIX_USER_WRITE))
            break;
        why = SystemReason();  // before anything else sets the error
        if (!wxFileExists(temporary))
            break;
    }
    if (!file.IsOpened()) {
        if (reason != nullptr)
            *reason = why;
        return false;
    }
    std::size_t written = 0;
    while (written < bytes.size()) {
        const std::size_t count = file.Write(bytes.data() + written, bytes.size() - written);
        if (count == 0)
            break;
        written += count;
    }
    bool saved = written == bytes.size() && file.Flush();
    why = saved ? wxString() : SystemReason();
    saved = file.Close() && saved;
    if (saved) {
        TakeMode(temporary, target);
        saved = ReplaceFile(temporary, target);
    }
    if (saved)
        return true;
    if (why.empty())
        why = SystemReason();
    if (reason != nullptr)
        *reason = why;
    wxRemoveFile(temporary);
    return false;
}

}  // namespace

TextFileRead ReadTextFile(const wxString& path, const std::function<void(const wxString&)>& line)
{
    EachLine each(line);
    return ReadLines(path, each);
}

TextFileRead ReadTextFile(const wxString& path, wxArrayString& lines, std::size_t maxLines)
{
    wxArrayString read;
    KeptLines kept(read, maxLines);
    const TextFileRead result = ReadLines(path, kept);
    if (result == TextFileRead::Read)
        lines.swap(read);
    return result;
}

TextFileRead ReadFirstTextLines(const wxString& path, wxArrayString& lines, std::size_t maxLines)
{
    wxArrayString read;
    const TextFileRead result = ReadTextFile(path, [&read, maxLines](const wxString& line) {
        if (read.size() < maxLines)
            read.Add(line);
    });
    if (result == TextFileRead::Read)
        lines.swap(read);
    return result;
}

bool ReadTextLines(const wxString& path, wxArrayString& lines)
{
    return ReadTextFile(path, lines) == TextFileRead::Read;
}

bool WriteTextLines(const wxString& path, const wxArrayString& lines, wxString* reason)
{
    // The UTF-8 bytes built in one buffer, ASCII characters copied as they are.
    std::size_t size = 0;
    for (const wxString& line : lines)
        size += line.length() + 2;
    std::string text;
    text.reserve(size + 3);
    // A first line that starts with U+FEFF gets a BOM before it, else a reader would take the
    // character for the BOM and drop it (a map read from a file that had its BOM twice).
    if (!lines.empty() && !lines[0].empty() && lines[0][0] == wxUniChar(0xFEFF))
        text = "\xEF\xBB\xBF";
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
            if (bytes == wxCONV_FAILED) {
                if (reason != nullptr)
                    *reason = "a character has no UTF-8 form";
                return false;
            }
            text.resize(at + bytes);
            wxConvUTF8.FromWChar(&text[at], bytes, line.wc_str(), length);
        }
        text += "\r\n";
    }
    return WriteFileBytes(path, text, reason);
}

#include "base/text_file.h"

#include "base/unicode_text.h"

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
#include <cstdint>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

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

// Calls `take(start, length, crLf)` for each line of UTF-8 bytes (no BOM, no NUL, known to be
// UTF-8), split at LF, CR LF and a lone CR as wxTextFile splits; `crLf` tells a line ended by
// CR LF. A line end is a byte no character's encoding holds. False when `take` stopped it.
template <class Take>
bool ForEachUtf8Line(const char* begin, const char* end, Take take)
{
    if (begin == end)
        return true;  // no line (and memchr must not be given an empty buffer's null pointer)
    // The next CR and the next LF, each found with memchr and looked for again once passed.
    const auto next = [end](const char* from, char c) {
        const void* found = from == end ? nullptr : std::memchr(from, c, static_cast<std::size_t>(end - from));
        return found != nullptr ? static_cast<const char*>(found) : end;
    };
    const char* nextCr = next(begin, '\r');
    const char* nextLf = next(begin, '\n');
    for (const char* start = begin; start != end;) {
        const char* const stop = std::min(nextCr, nextLf);
        const bool crLf = stop != end && *stop == '\r' && stop + 1 != end && stop[1] == '\n';
        if (!take(start, static_cast<std::size_t>(stop - start), crLf))
            return false;
        if (stop == end)
            break;
        start = stop + (crLf ? 2 : 1);
        if (nextCr < start)
            nextCr = next(start, '\r');
        if (nextLf < start)
            nextLf = next(start, '\n');
    }
    return true;
}

// True when no byte of the stretch has its high bit set: eight bytes at a time.
bool IsAscii(const char* begin, std::size_t length)
{
    std::uint64_t high = 0;
    std::size_t i = 0;
    for (; i + 8 <= length; i += 8) {
        std::uint64_t word;
        std::memcpy(&word, begin + i, 8);
        high |= word;
    }
    for (; i < length; ++i)
        high |= static_cast<unsigned char>(begin[i]);
    return (high & 0x8080808080808080ull) == 0;
}

// A line of a UTF-8 file as its text: decoded, and made encodable (damaged bytes must not stop a save).
wxString Utf8LineText(const char* start, std::size_t length)
{
    return EncodableText(wxString::FromUTF8(start, length));
}

// Splits UTF-8 bytes into the sink's lines. False when the sink refused a line.
bool SplitUtf8Lines(const char* begin, const char* end, LineSink& sink)
{
    std::wstring wide;  // an ASCII line widened, then copied into its place in one allocation
    return ForEachUtf8Line(begin, end, [&](const char* start, std::size_t length, bool) {
        // Widened while the high bits are gathered: one pass, no branch per byte.
        wide.resize(length);
        unsigned char high = 0;
        for (std::size_t i = 0; i < length; ++i) {
            high |= static_cast<unsigned char>(start[i]);
            wide[i] = static_cast<wchar_t>(static_cast<unsigned char>(start[i]));
        }
        if (high < 0x80)
            sink.Next().assign(wide.data(), wide.size());
        else
            sink.Next() = Utf8LineText(start, length);
        return sink.Done();
    });
}

// Any other encoding (a BOM other than UTF-8's, bytes that are not UTF-8, NUL bytes) decoded as
// wxTextFile decodes it (wxConvAuto: the BOM's encoding, else UTF-8, else Latin-1) and split as
// it splits, without its copy of every line. False when it cannot be decoded or the sink refused.
bool SplitOtherEncoding(const ByteBuffer& bytes, LineSink& sink)
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
TextFileRead ReadBytes(const wxString& path, ByteBuffer& bytes)
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
    bytes.resize(static_cast<std::size_t>(length));  // not zeroed: the read fills it
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

// Where a file's lines start: after a UTF-8 BOM. Other: a first byte that may start another BOM
// (FE, FF), or bytes that are not UTF-8 without NUL, which are decoded as wxTextFile decodes them.
struct TextStart {
    std::size_t from = 0;
    bool other = false;
    bool ascii = false;  // UTF-8 of ASCII characters alone
};

TextStart FindTextStart(const ByteBuffer& bytes)
{
    TextStart start;
    const bool utf8Bom = bytes.size() >= 3 && std::memcmp(bytes.data(), "\xEF\xBB\xBF", 3) == 0;
    start.from = utf8Bom ? 3 : 0;
    const bool otherBom = !utf8Bom && !bytes.empty() &&
        (static_cast<unsigned char>(bytes[0]) == 0xFE || static_cast<unsigned char>(bytes[0]) == 0xFF);
    const char* const begin = bytes.data() + start.from;
    const std::size_t length = bytes.size() - start.from;
    // UTF-8 without NUL: ASCII found at once, anything else decoded once.
    const bool nul = length != 0 && std::memchr(begin, '\0', length) != nullptr;
    start.ascii = !otherBom && !nul && IsAscii(begin, length);
    start.other = otherBom || nul || (!start.ascii && wxConvUTF8.ToWChar(nullptr, 0, begin, length) == wxCONV_FAILED);
    return start;
}

// The file's lines into the sink: UTF-8 (with or without its BOM), what the tool writes and nearly
// every file it reads, is split as it stands; whatever else a file holds is decoded first.
TextFileRead ReadLines(const wxString& path, LineSink& sink)
{
    ByteBuffer bytes;
    const TextFileRead read = ReadBytes(path, bytes);
    if (read != TextFileRead::Read)
        return read;
    const TextStart start = FindTextStart(bytes);
    const bool split = start.other ? SplitOtherEncoding(bytes, sink)
                                   : SplitUtf8Lines(bytes.data() + start.from, bytes.data() + bytes.size(), sink);
    return split ? TextFileRead::Read : TextFileRead::Refused;
}

// Lines kept as bytes, up to `maxLines`: beyond, the file is refused, or with `cut` the rest is dropped.
class KeptText : public LineSink {
public:
    KeptText(TextLines& lines, std::size_t maxLines, bool cut) : lines(lines), maxLines(maxLines), cut(cut) {}
    wxString& Next() override { return line; }
    bool Done() override
    {
        if (lines.size() == maxLines)
            return cut;
        lines.Add(line);
        return true;
    }

private:
    TextLines& lines;
    std::size_t maxLines;
    bool cut;
    wxString line;
};

// A file of ASCII as the tool writes it (no BOM, no NUL, every line ended by CR LF, the last one
// too), found in one pass over its bytes: `count` gets its lines, `cutAt` where its first
// `maxLines` lines end. False as soon as the bytes are anything else. 64 bytes at a time where the
// processor has SSE2 (x86-64).
bool FindCrLfLines(const ByteBuffer& bytes, std::size_t maxLines, std::size_t& count, std::size_t& cutAt)
{
    const char* const data = bytes.data();
    const std::size_t size = bytes.size();
    bool afterCr = false;  // the byte before is a CR, so this one must be an LF
    count = 0;
    cutAt = 0;
    const auto lineFeed = [&](std::size_t at) {
        if (++count == maxLines)
            cutAt = at + 1;
    };
    std::size_t i = 0;
#ifdef __SSE2__
    const __m128i cr = _mm_set1_epi8('\r'), lf = _mm_set1_epi8('\n'), nul = _mm_setzero_si128();
    for (; i + 64 <= size; i += 64) {
        const auto* const at = reinterpret_cast<const __m128i*>(data + i);
        const __m128i b0 = _mm_loadu_si128(at), b1 = _mm_loadu_si128(at + 1), b2 = _mm_loadu_si128(at + 2),
                      b3 = _mm_loadu_si128(at + 3);
        // A byte above 0x7F (its high bit) or NUL (the smallest byte).
        const __m128i any = _mm_or_si128(_mm_or_si128(b0, b1), _mm_or_si128(b2, b3));
        const __m128i least = _mm_min_epu8(_mm_min_epu8(b0, b1), _mm_min_epu8(b2, b3));
        if ((_mm_movemask_epi8(any) | _mm_movemask_epi8(_mm_cmpeq_epi8(least, nul))) != 0)
            return false;
        const __m128i l0 = _mm_cmpeq_epi8(b0, lf), l1 = _mm_cmpeq_epi8(b1, lf), l2 = _mm_cmpeq_epi8(b2, lf),
                      l3 = _mm_cmpeq_epi8(b3, lf);
        const auto mask = [](__m128i matches) {
            return static_cast<std::uint64_t>(static_cast<unsigned>(_mm_movemask_epi8(matches)));
        };
        const std::uint64_t crs = mask(_mm_cmpeq_epi8(b0, cr)) | mask(_mm_cmpeq_epi8(b1, cr)) << 16 |
                                  mask(_mm_cmpeq_epi8(b2, cr)) << 32 | mask(_mm_cmpeq_epi8(b3, cr)) << 48;
        std::uint64_t feeds = mask(l0) | mask(l1) << 16 | mask(l2) << 32 | mask(l3) << 48;
        // Every LF right after a CR and every CR right before an LF.
        if ((crs << 1 | (afterCr ? 1u : 0u)) != feeds)
            return false;
        afterCr = (crs >> 63) != 0;
        // The LFs counted by bytes: each match is -1, at most four to a byte.
        const __m128i sums = _mm_sad_epu8(_mm_sub_epi8(nul, _mm_add_epi8(_mm_add_epi8(l0, l1), _mm_add_epi8(l2, l3))), nul);
        const auto lines = static_cast<std::size_t>(_mm_cvtsi128_si32(sums) + _mm_cvtsi128_si32(_mm_unpackhi_epi64(sums, sums)));
        if (count + lines < maxLines) {
            count += lines;
            continue;
        }
        for (; feeds != 0; feeds &= feeds - 1)
            lineFeed(i + static_cast<std::size_t>(__builtin_ctzll(feeds)));
    }
#endif
    for (; i < size; ++i) {
        const unsigned char c = static_cast<unsigned char>(data[i]);
        if (c == 0 || c >= 0x80 || (c == '\n') != afterCr)
            return false;
        afterCr = c == '\r';
        if (c == '\n')
            lineFeed(i);
    }
    return !afterCr && (size == 0 || data[size - 1] == '\n');
}

// A file's lines as bytes. UTF-8 as the tool writes it is taken over as it was read; other line
// ends, a BOM, or a line whose bytes a save would write otherwise (damaged UTF-8 the decoder
// lets through) make a copy as the lines' save would write it; other encodings are decoded.
TextFileRead ReadTextLinesKept(const wxString& path, TextLines& lines, std::size_t maxLines, bool cut)
{
    ByteBuffer bytes;
    const TextFileRead read = ReadBytes(path, bytes);
    if (read != TextFileRead::Read)
        return read;
    TextLines kept;
    std::size_t count = 0;
    std::size_t cutAt = 0;
    if (FindCrLfLines(bytes, maxLines, count, cutAt)) {
        if (count > maxLines) {
            if (!cut)
                return TextFileRead::Refused;
            count = maxLines;
            bytes.resize(cutAt);
        }
        kept.Adopt(std::move(bytes), count);
        lines.swap(kept);
        return TextFileRead::Read;
    }
    const TextStart start = FindTextStart(bytes);
    if (start.other) {
        KeptText sink(kept, maxLines, cut);
        if (!SplitOtherEncoding(bytes, sink))
            return TextFileRead::Refused;
        lines.swap(kept);
        return TextFileRead::Read;
    }
    const char* const begin = bytes.data() + start.from;
    const char* const end = bytes.data() + bytes.size();
    const bool ascii = start.ascii;
    // A line with bytes above 0x7F: its text, when its save writes other bytes than it holds.
    std::string saved;
    const auto savedOtherwise = [&saved](const char* line, std::size_t length) {
        if (IsAscii(line, length))
            return false;
        saved.clear();
        return !AppendUtf8Line(saved, Utf8LineText(line, length)) || std::string_view(saved) != std::string_view(line, length);
    };
    bool asRead = start.from == 0;
    bool over = false;
    count = 0;
    cutAt = 0;
    ForEachUtf8Line(begin, end, [&](const char* line, std::size_t length, bool crLf) {
        if (count == maxLines) {
            over = true;
            return false;
        }
        asRead = asRead && crLf && (ascii || !savedOtherwise(line, length));
        ++count;
        cutAt = static_cast<std::size_t>(line - begin) + length + 2;
        return true;
    });
    if (over && !cut)
        return TextFileRead::Refused;
    if (asRead) {
        bytes.resize(cutAt);
        kept.Adopt(std::move(bytes), count);
    } else {
        count = 0;
        ForEachUtf8Line(begin, end, [&](const char* line, std::size_t length, bool) {
            if (count++ == maxLines)
                return false;
            if (IsAscii(line, length))
                kept.Add(std::string_view(line, length));
            else
                kept.Add(Utf8LineText(line, length));
            return true;
        });
    }
    lines.swap(kept);
    return TextFileRead::Read;
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

// Writes the bytes as one save: see TextFileSave.
bool WriteFileBytes(const wxString& path, std::string_view bytes, wxString* reason, SaveKind kind)
{
    TextFileSave file(path, kind);
    file.Write(bytes);
    return file.Finish(reason);
}

}  // namespace

// Writes into a new file beside the target, flushes it to the disk and then puts it in the old
// one's place: a save cut short (a crash, a killed process, a full disk) leaves the old file as it
// was. Whatever the old file held, readable or not, is replaced whole.
TextFileSave::TextFileSave(const wxString& path, SaveKind kind) : kind_(kind)
{
    wxLogNull quiet;
    target_ = SaveTarget(path);
    RemoveLeftSavings(target_);
    const wxString stem = target_ + kSavingInfix + wxString::Format("%lu-", wxGetProcessId());
    for (int attempt = 0; attempt < 100 && !file_.IsOpened(); ++attempt) {
        temporary_ = stem + wxString::Format("%d", attempt);
        if (file_.Create(temporary_, false, wxPOSIX_USER_READ | wxPOSIX_USER_WRITE))
            break;
        why_ = SystemReason();  // before anything else sets the error
        if (!wxFileExists(temporary_))
            break;
    }
    failed_ = !file_.IsOpened();
    if (failed_)
        temporary_.clear();
}

TextFileSave::~TextFileSave()
{
    if (temporary_.empty())
        return;
    wxLogNull quiet;
    if (file_.IsOpened())
        file_.Close();
    wxRemoveFile(temporary_);
}

void TextFileSave::Write(std::string_view bytes)
{
    constexpr std::size_t kPiece = 64 * 1024;
    if (pending_.size() + bytes.size() <= kPiece) {
        pending_.append(bytes);
        return;
    }
    WritePiece(pending_);
    pending_.clear();
    if (bytes.size() < kPiece)
        pending_.append(bytes);
    else
        WritePiece(bytes);
}

void TextFileSave::WritePiece(std::string_view bytes)
{
    wxLogNull quiet;
    std::size_t written = 0;
    while (!failed_ && written < bytes.size()) {
        const std::size_t count = file_.Write(bytes.data() + written, bytes.size() - written);
        if (count == 0) {
            failed_ = true;
            why_ = SystemReason();
        }
        written += count;
    }
}

bool TextFileSave::Finish(wxString* reason)
{
    wxLogNull quiet;
    WritePiece(pending_);
    pending_.clear();
    bool saved = !failed_ && (kind_ == SaveKind::Scratch || file_.Flush());
    if (!failed_)
        why_ = saved ? wxString() : SystemReason();
    if (file_.IsOpened())
        saved = file_.Close() && saved;
    if (saved) {
        TakeMode(temporary_, target_);
        // A scratch file's old copy is removed first: renamed over, it would have the file
        // system write the new one out at once (ext4 does so for a file replaced by a rename),
        // which costs a build more than the write itself. Nothing reads the folder meanwhile.
        if (kind_ == SaveKind::Scratch)
            wxRemoveFile(target_);
        saved = ReplaceFile(temporary_, target_);
    }
    if (saved) {
        temporary_.clear();
        return true;
    }
    if (why_.empty())
        why_ = SystemReason();
    if (reason != nullptr)
        *reason = why_;
    if (!temporary_.empty())
        wxRemoveFile(temporary_);
    temporary_.clear();
    return false;
}

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

TextFileRead ReadTextFile(const wxString& path, TextLines& lines, std::size_t maxLines)
{
    return ReadTextLinesKept(path, lines, maxLines, false);
}

TextFileRead ReadFirstTextLines(const wxString& path, TextLines& lines, std::size_t maxLines)
{
    return ReadTextLinesKept(path, lines, maxLines, true);
}

bool ReadTextLines(const wxString& path, wxArrayString& lines)
{
    return ReadTextFile(path, lines) == TextFileRead::Read;
}

bool ReadTextLines(const wxString& path, TextLines& lines)
{
    return ReadTextFile(path, lines) == TextFileRead::Read;
}

namespace {

const char kNoUtf8Form[] = "a character has no UTF-8 form";

}  // namespace

bool WriteTextLines(const wxString& path, const wxArrayString& lines, wxString* reason, SaveKind kind)
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
        // Fails, as encoding the whole text did, for a character with no UTF-8 form.
        if (!AppendUtf8Line(text, line)) {
            if (reason != nullptr)
                *reason = kNoUtf8Form;
            return false;
        }
        text += "\r\n";
    }
    return WriteFileBytes(path, text, reason, kind);
}

namespace {

// True when the file already holds `head` then `body` and nothing else, and is on the disk: a save
// of those bytes is then done without writing the file again.
bool HoldsAlready(const wxString& path, std::string_view head, std::string_view body)
{
    wxLogNull quiet;
    const wxString target = SaveTarget(path);
#ifdef __WINDOWS__
    if (!wxFileExists(target))
        return false;
    const wxFile::OpenMode mode = wxFile::read_write;  // Windows flushes only a file open for writing
#else
    // Only a plain file: opening a named pipe to read it would wait for a writer.
    struct stat info;
    if (::stat(target.fn_str(), &info) != 0 || !S_ISREG(info.st_mode))
        return false;
    const wxFile::OpenMode mode = wxFile::read;
#endif
    wxFile file;
    if (!file.Open(target, mode))
        return false;
    const wxFileOffset length = file.Length();
    if (length < 0 || static_cast<std::size_t>(length) != head.size() + body.size())
        return false;
    // Compared a piece at a time: the head first, then the body.
    char piece[64 * 1024];
    for (std::string_view part : {head, body}) {
        while (!part.empty()) {
            const std::size_t want = std::min(sizeof piece, part.size());
            if (file.Read(piece, want) != static_cast<ssize_t>(want) || std::memcmp(piece, part.data(), want) != 0)
                return false;
            part.remove_prefix(want);
        }
    }
    RemoveLeftSavings(target);
    return file.Flush();
}

}  // namespace

bool WriteTextLines(const wxString& path, const TextLines& lines, wxString* reason, SaveKind kind)
{
    if (!lines.Savable()) {
        if (reason != nullptr)
            *reason = kNoUtf8Form;
        return false;
    }
    // As for lines of text: a first line that starts with U+FEFF gets a BOM before it.
    const std::string_view bytes = lines.Bytes();
    const std::string_view bom = bytes.substr(0, 3) == "\xEF\xBB\xBF" ? "\xEF\xBB\xBF" : "";
    if (kind == SaveKind::Kept && HoldsAlready(path, bom, bytes))
        return true;
    if (!bom.empty()) {
        TextFileSave file(path, kind);
        file.Write("\xEF\xBB\xBF");
        file.Write(bytes);
        return file.Finish(reason);
    }
    return WriteFileBytes(path, bytes, reason, kind);
}

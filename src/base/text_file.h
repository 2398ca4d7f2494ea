// Whole text files, line by line: the one way the tool reads and writes its text files.
#pragma once

#include "base/text_lines.h"

#include <wx/arrstr.h>
#include <wx/file.h>
#include <wx/string.h>

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

// The largest text file the tool reads: four times the largest map file (65,536 lines), far more
// than any project, map or device type file holds. A larger file is refused as unreadable, so
// that a damaged or wrong file cannot take the memory of the machine (a file that is not UTF-8 is
// decoded whole, about five times its size).
constexpr unsigned long long kMaxTextFileBytes = 16ull << 20;

// The most lines a file read whole into memory may hold: the largest map the gateway takes. Only
// maps are kept whole; project and device-type files are read line by line, whatever their count.
constexpr std::size_t kMaxTextFileLines = 65536;

// What reading a text file came to. Refused: the file is there but cannot be read (no permission,
// a folder, larger than kMaxTextFileBytes, more lines than the reader keeps, not decodable), which
// is not the same as a file that is not there.
enum class TextFileRead { Read, Missing, Refused };

// Hands every line of the file to `line`, in order, keeping none: the encoding detected (UTF-8
// with or without its BOM, UTF-16 and UTF-32 with theirs, anything else as Latin-1), and LF,
// CR LF or a lone CR ending a line. Memory: the file's bytes and one line.
TextFileRead ReadTextFile(const wxString& path, const std::function<void(const wxString& line)>& line);

// Replaces `lines` with every line of the file, read as above, when the file holds at most
// `maxLines`; otherwise (and when it cannot be read) `lines` stays as it was.
TextFileRead ReadTextFile(const wxString& path, wxArrayString& lines, std::size_t maxLines = kMaxTextFileLines);

// The same into lines kept as bytes (a map): a file as the tool writes it (UTF-8, every line
// ended by CR LF) is kept as it was read, without a copy; any other is kept as saving its lines
// would write it. Memory: the file's size and 8 bytes a line.
TextFileRead ReadTextFile(const wxString& path, TextLines& lines, std::size_t maxLines = kMaxTextFileLines);

// The same for a file a tool printed: its first `maxLines` lines are kept, the rest read and dropped.
TextFileRead ReadFirstTextLines(const wxString& path, TextLines& lines, std::size_t maxLines = kMaxTextFileLines);

// ReadTextFile(path, lines) == TextFileRead::Read.
bool ReadTextLines(const wxString& path, wxArrayString& lines);
bool ReadTextLines(const wxString& path, TextLines& lines);

// How a save ends. A kept file (a project, its map, an export) is flushed to the disk before it
// takes the old one's place. A scratch file (an input of the build folder that a tool of the same
// run reads at once and the next run writes anew) takes its place from the system's cache: it is
// still written whole before it appears, but its old copy is removed first (a run that stops in
// between leaves none) and a machine that stops loses it with the run that made it.
enum class SaveKind { Kept, Scratch };

// Writes the lines in UTF-8 (with a BOM only when the first line starts with U+FEFF, so that it
// reads back whole), each ended with CR LF on every platform, so that files made on Linux are
// byte-identical to those made on Windows. The new file is written beside the old one (as
// FILE.saving-PID-N) and replaces it in one step once it is wholly on the disk, so an interrupted
// save leaves the old one untouched; such a leftover of a save that was killed is removed by the
// next save of the file. A symbolic link is written through to the file it names. False when the
// file cannot be written (the old one then stays as it was), `reason` then giving the system's
// words for why ("No space left on device").
bool WriteTextLines(const wxString& path, const wxArrayString& lines, wxString* reason = nullptr,
                    SaveKind kind = SaveKind::Kept);
// The same for lines kept as bytes: their bytes are written as they are. A kept file that holds
// those bytes already is flushed and left as it is (its time stamp too).
bool WriteTextLines(const wxString& path, const TextLines& lines, wxString* reason = nullptr,
                    SaveKind kind = SaveKind::Kept);

// A file saved as WriteTextLines saves it, its bytes handed over piece by piece: written beside
// the file (as FILE.saving-PID-N), flushed to the disk (a kept file) and put in the file's place
// by Finish.
// Destroyed unfinished, it removes its temporary file and leaves the old one as it was.
class TextFileSave {
public:
    explicit TextFileSave(const wxString& path, SaveKind kind = SaveKind::Kept);
    ~TextFileSave();
    TextFileSave(const TextFileSave&) = delete;
    TextFileSave& operator=(const TextFileSave&) = delete;

    // Small pieces are gathered and written 64 KiB at a time; a large one is written at once.
    void Write(std::string_view bytes);
    // False when the file could not be written whole, `reason` then giving the system's words.
    bool Finish(wxString* reason = nullptr);

private:
    void WritePiece(std::string_view bytes);

    wxString target_;
    wxString temporary_;
    wxFile file_;
    std::string pending_;
    SaveKind kind_;
    bool failed_ = false;
    wxString why_;  // the system's words for the first failure
};

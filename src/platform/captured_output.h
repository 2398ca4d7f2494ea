// A tool's standard output captured while it runs, kept within fixed limits. The child's pipes
// are read as data arrives; what is beyond the limits is read and dropped, so the tool never
// blocks on a full pipe and a tool printing without end cannot take the machine's memory.
#pragma once

#include "base/tool_command.h"

#include <wx/arrstr.h>
#include <wx/string.h>

#include <cstddef>
#include <string>

// The most a captured run keeps: four times the largest legitimate output (the printout of a
// 65,536-line map, about 3 MB), in lines and in bytes. Lines beyond are cut.
constexpr std::size_t kMaxCapturedLines = 262144;
constexpr std::size_t kMaxCapturedBytes = 16u << 20;

// Splits bytes into lines (LF, CR LF or CR ends), UTF-8 or else Latin-1, each made encodable.
class CapturedLines {
public:
    explicit CapturedLines(wxArrayString& lines) : lines(lines) {}
    void Add(const char* data, std::size_t size);
    // The last line, when it has no line end.
    void Finish();

private:
    void EndLine();

    wxArrayString& lines;
    std::string pending;
    std::size_t keptBytes = 0;
    bool afterCR = false;
    bool cut = false;
};

// Runs the command with its standard output captured as above and its standard error read and
// dropped; the toolkit's events are dispatched meanwhile. Exit code, -1 when it could not be
// started. A cut output is still the run's output: the lines kept, with the tool's exit code.
long RunWithCapturedOutput(const ToolCommand& command, wxArrayString& output);

// One run of an outside program: the program and its arguments, each kept whole whatever it
// holds (blanks, quotes, backslashes, a leading "-"), so that text a user typed never becomes
// two arguments or an option of its own.
#pragma once

#include <wx/string.h>

#include <vector>

class ToolCommand {
public:
    explicit ToolCommand(const wxString& program);

    // An argument, written bare in the command line when it can be.
    ToolCommand& Arg(const wxString& argument);
    // An argument written in double quotes in the command line, as the suite's documentation
    // writes it ("ttrestore \"HOST\" config").
    ToolCommand& QuotedArg(const wxString& argument);

    // A command line composed by the tool from its own fixed texts and file names, never from
    // typed text: run as it stands (cmd.exe and powershell read their own lines on Windows).
    static ToolCommand FixedLine(const wxString& line);

    // The program first, then each argument as the program receives it.
    const std::vector<wxString>& Arguments() const { return arguments; }
    bool IsFixedLine() const { return fixedLine; }

    // The command line by the rules with which Windows programs split theirs (the C runtime's):
    // arguments written in double quotes, or holding a blank, a tab or a quote, or empty, are
    // quoted; inside quotes a quote is written \" and the backslashes before a quote (or before
    // the closing one) are doubled. This is the line a Windows program is started with, and the
    // text with which runs are shown and recorded on every platform.
    wxString CommandLine() const;

private:
    std::vector<wxString> arguments;
    std::vector<bool> quoted;
    bool fixedLine = false;
    wxString line;  // a fixed line's text
};

#include "base/tool_command.h"

namespace {

// One argument of a Windows command line: bare when nothing in it needs quotes.
void AppendWindowsArgument(wxString& line, const wxString& argument, bool quote)
{
    if (!quote && !argument.empty() && argument.find_first_of(" \t\"") == wxString::npos) {
        line += argument;
        return;
    }
    line += '"';
    std::size_t backslashes = 0;
    for (const wxUniChar c : argument) {
        if (c == '\\') {
            ++backslashes;
            continue;
        }
        if (c == '"')
            backslashes = backslashes * 2 + 1;  // each backslash doubled, then one for the quote
        line.append(backslashes, '\\');
        backslashes = 0;
        line += c;
    }
    line.append(backslashes * 2, '\\');  // doubled before the closing quote
    line += '"';
}

}  // namespace

ToolCommand::ToolCommand(const wxString& program)
{
    arguments.push_back(program);
    quoted.push_back(false);
}

ToolCommand& ToolCommand::Arg(const wxString& argument)
{
    arguments.push_back(argument);
    quoted.push_back(false);
    return *this;
}

ToolCommand& ToolCommand::QuotedArg(const wxString& argument)
{
    arguments.push_back(argument);
    quoted.push_back(true);
    return *this;
}

ToolCommand ToolCommand::FixedLine(const wxString& line)
{
    ToolCommand command(line.BeforeFirst(' '));
    command.fixedLine = true;
    command.line = line;
    return command;
}

wxString ToolCommand::CommandLine() const
{
    if (fixedLine)
        return line;
    wxString text;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (i > 0)
            text += ' ';
        AppendWindowsArgument(text, arguments[i], quoted[i]);
    }
    return text;
}

// tgxcfg: the configuration tool without its window, for scripts, CI jobs and fleets.
#include "base/unicode_text.h"
#include "cli/cli_commands.h"
#include "cli/command_line.h"

#include <wx/init.h>
#include <wx/strconv.h>

#include <clocale>
#include <iostream>

int main(int argc, char** argv)
{
    std::setlocale(LC_CTYPE, "");
    wxInitializer toolkit;
    if (!toolkit.IsOk()) {
        std::cerr << "tgxcfg: cannot initialise wxWidgets\n";
        return 1;
    }
    wxArrayString args;
    for (int i = 1; i < argc; ++i)
        args.Add(wxString(argv[i], wxConvWhateverWorks));

    const ParsedCommandLine parsed = ParseCommandLine(args);
    switch (parsed.outcome) {
    case ParsedCommandLine::Help:
    case ParsedCommandLine::Version: std::cout << Utf8Bytes(parsed.text); return 0;
    case ParsedCommandLine::UsageError: std::cerr << Utf8Bytes(parsed.text); return 2;
    case ParsedCommandLine::Run: break;
    }
    return RunCliRequest(parsed.request, std::cout, std::cerr);
}

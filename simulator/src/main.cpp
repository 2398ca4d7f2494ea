// The gateway simulator: one program that behaves as the suite's tool it was started as
// (through a link or a copy named ttdevtype, ttbuild, ...), or as "tgxsim" its own admin.
#include "admin.h"
#include "run_tool.h"

#include <wx/app.h>
#include <wx/init.h>
#include <wx/log.h>

#include <cstdio>

int main(int argc, char** argv)
{
    if (!wxEntryStart(argc, argv)) {
        std::fputs("tgxsim: cannot initialise wxWidgets\n", stderr);
        return 70;
    }
    // The tools print their own messages; the toolkit's log would add a second, different one.
    wxLog::EnableLogging(false);

    wxArrayString args;
    for (int i = 1; i < wxTheApp->argc; ++i)
        args.Add(wxTheApp->argv[i]);
    const wxString name = sim::ToolNameFromProgram(wxTheApp->argv[0]);
    const int code = name == "tgxsim" ? sim::RunAdmin(args) : sim::RunTool(name, args);

    std::fflush(stdout);
    wxEntryCleanup();
    return code;
}

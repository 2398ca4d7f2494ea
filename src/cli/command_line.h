// tgxcfg's command line: a command with its arguments and options, in the usual conventions
// ("--name=VALUE" or "--name VALUE", "--" ends the options, -h/--help anywhere asks for help).
#pragma once

#include <wx/arrstr.h>
#include <wx/string.h>

enum class CliCommand { Show, Resave, Generate, ExportMap, Check, Configure, MapMode, ImportMap, EditMap, Fetch, UpdateFirmware, UploadInstallers, Reboot, Vcp, MuxScan, MuxRebuild, Diff, Info };

struct CliRequest {
    wxString softwarePath; // empty: the installation named by the registry
    CliCommand command = CliCommand::Show;
    wxArrayString arguments; // the command's file arguments, as given
    bool noBuild = false;
    wxString outputFolder;
    wxString target;
    bool tagGiven = false;
    wxString tag;
    bool yes = false;
    wxString fromProject; // import-map --from-project (--from-target goes to `target`)
    // vcp: the dialog's fields; given ones make it the dialog's OK.
    bool vcpChange = false;
    wxString com, address, port;
    // mux-scan and mux-rebuild
    wxString baud = "9600";
    wxString add;      // empty: print the rows only
    wxString loops = "all";
    wxString method = "address0";
    wxString format = "text";  // show, check, diff, info: "text" or "json"
};

struct ParsedCommandLine {
    enum Outcome { Run, Help, Version, UsageError } outcome = UsageError;
    CliRequest request;
    // Help: the text for standard output. UsageError: the text for standard error.
    wxString text;
};

// `args` without the program's name.
ParsedCommandLine ParseCommandLine(const wxArrayString& args);

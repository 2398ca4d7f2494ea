#include "cli/command_line.h"

#include "mux/mux_scan.h"
#include "project/project.h"
#include "project/project_file.h"
#include "project/version.h"

#include <wx/filename.h>

#include <algorithm>
#include <iterator>
#include <vector>

namespace {

struct OptionEntry {
    const char* name; // without the leading "--"
    bool takesValue;
};

struct CommandEntry {
    const char* name;
    CliCommand command;
    size_t minArguments;
    std::vector<const char*> argumentNames; // all it takes, the optional ones last
    std::vector<OptionEntry> options;
    const char* usage; // after "tgxcfg [--software-path=DIR] "
    const char* help;
};

const char kUsagePrefix[] = "Usage: tgxcfg [--software-path=DIR] ";

const CommandEntry kCommands[] = {
    {"show", CliCommand::Show, 1, {"PROJECT"}, {{"format", true}}, "show PROJECT [--format=text|json]",
        "Prints the project's settings as its project file holds them, then the device list and each\n"
        "device's command list, every line as the main window's list boxes show it. Writes nothing.\n"
        "With --format=json: one JSON document with the settings, the devices with their commands and\n"
        "the map (docs/tgxcfg.md).\n"},
    {"resave", CliCommand::Resave, 1, {"PROJECT", "NEW.prj"}, {}, "resave PROJECT [NEW.prj]",
        "Loads PROJECT as Project > Load from Disk does (older formats and damaged lines included) and\n"
        "saves it in the current format with its map file (.mbd) beside it: over PROJECT, or as NEW.prj.\n"},
    {"generate", CliCommand::Generate, 1, {"PROJECT"}, {{"no-build", false}, {"output-folder", true}},
        "generate PROJECT [--no-build] [--output-folder=DIR]",
        "Writes the gateway configuration of PROJECT into the installation's build folder\n"
        "(INCLUDE/ct.ini, ADDITIONAL/dbsave.txt, ADDITIONAL/tgxconfig.prj, ADDITIONAL/MBMAP1.csv) as\n"
        "Configure does, then runs ttbuild on it. The project file is not rewritten.\n"
        "\n"
        "Options:\n"
        "  --no-build             write the files only; ttbuild is not run\n"
        "  --output-folder=DIR    ttbuild's output folder; default: the build folder's OUTPUT\n"},
    {"export-map", CliCommand::ExportMap, 2, {"PROJECT", "FILE"}, {}, "export-map PROJECT FILE",
        "Writes the project's Modbus map to FILE as Modbus > Export does: CSV under a header when\n"
        "FILE's name ends in .csv (in any case), otherwise a fixed-width text table.\n"},
    {"check", CliCommand::Check, 1, {"PROJECT"}, {{"format", true}}, "check PROJECT [--format=text|json]",
        "Reports, one line each, what the desktop tool accepts without a word but a gateway will not\n"
        "run as meant: duplicate poll addresses or ones above 63, device types not in ct.cfg, long\n"
        "addresses that are not 10 characters in multiplexer mode, command numbers above 255, cycle\n"
        "intervals below 1, more than 8 arguments, port numbers outside 1..65535 or used twice, tag\n"
        "names that Configure would refuse or cut, map lines without seven fields, a key or a device\n"
        "block given again with other values (the last line wins), values the tool never writes\n"
        "(MODE, the serial port's settings, polling deferral, 0/1 switches and flags, ENABLE).\n"
        "Prints nothing and exits with 0 when it finds nothing; exits with 1 when it does.\n"
        "With --format=json: one JSON document listing the problems, also when there is none.\n"},
    {"diff", CliCommand::Diff, 1, {"A.prj", "B.prj"}, {{"target", true}, {"format", true}},
        "diff A.prj B.prj | diff A.prj --target=HOST[:PORT]  [--format=text|json]",
        "Compares two projects as the tool would send them, both loaded as Load from Disk loads them;\n"
        "with --target the second is the one the gateway runs, fetched as Load From TG7 fetches it\n"
        "(nothing is saved). One line per difference: a setting, a device (matched by its poll address,\n"
        "or its long address in multiplexer mode, never by its slot), a command of a matched device (by\n"
        "its number), a map line (by SECTION and ADDRESS).\n"
        "Exits with 0 when they are the same, 1 when they differ or the fetch failed (its message on\n"
        "standard error), 2 on wrong usage.\n"},
    {"configure", CliCommand::Configure, 1, {"PROJECT"}, {{"target", true}, {"tag", true}, {"yes", false}},
        "configure PROJECT --target=HOST[:PORT] [--tag=TAG] [--yes]",
        "Target > Configure on the console: saves the project, checks the gateway's firmware, builds\n"
        "the configuration, uploads it and restarts the gateway. Messages, questions and progress go\n"
        "to standard output; the message that ends a failed command goes to standard error.\n"
        "\n"
        "Options:\n"
        "  --target=HOST[:PORT]   the gateway's address; a PORT reaches the tools as TT_SSH_PORT\n"
        "  --tag=TAG              the gateway's tag name: letters and digits, the first 8 are kept;\n"
        "                         default: the project's\n"
        "  --yes                  answer Yes to the questions; without it they are answered No and\n"
        "                         the command stops\n"},
    {"map-mode", CliCommand::MapMode, 2, {"PROJECT", "MODE"}, {{"yes", false}}, "map-mode PROJECT automatic|user [--yes]",
        "Modbus > Automatic Map or User defined Map: after the question (answered by --yes) the mode\n"
        "changes and the project is saved; in automatic mode the save generates the map.\n"
        "A project already in that mode is left as it is.\n"},
    {"import-map", CliCommand::ImportMap, 1, {"PROJECT"}, {{"from-target", true}, {"from-project", true}},
        "import-map PROJECT --from-target=HOST[:PORT] | --from-project=OTHER.prj",
        "Modbus > Import Map from TG7 (--from-target: the gateway's map file, else the map it runs) or\n"
        "Import Map from another project (--from-project: OTHER.mbd, else OTHER.mb), then saves the\n"
        "project. A project without a map ends with status 1, after the save.\n"},
    {"edit-map", CliCommand::EditMap, 1, {"PROJECT"}, {}, "edit-map PROJECT",
        "Modbus > Edit the Modbus Map: saves the project, builds its configuration, runs the map editor\n"
        "(mbedit) on the data points and the map, and saves the edited map with the project.\n"},
    {"fetch", CliCommand::Fetch, 1, {"NEW.prj"}, {{"target", true}}, "fetch --target=HOST[:PORT] NEW.prj",
        "Project > Load From TG7 on the console: the project and the Modbus map that the gateway keeps\n"
        "are fetched and saved as NEW.prj with its map file (.mbd) beside it: a backup of what the\n"
        "gateway runs.\n"
        "\n"
        "Options:\n"
        "  --target=HOST[:PORT]   the gateway's address; a PORT reaches the tools as TT_SSH_PORT\n"},
    {"update-firmware", CliCommand::UpdateFirmware, 0, {}, {{"target", true}, {"yes", false}},
        "update-firmware --target=HOST[:PORT] [--yes]",
        "Target > Update Firmware on the console: installs the firmware of the installed software with\n"
        "its manuals and web page, then rebuilds the gateway's configuration from the project the\n"
        "gateway carries and restarts it. The migrated project is kept as migrateTemp.prj in the\n"
        "installation's project folder until the update has succeeded.\n"
        "\n"
        "Options:\n"
        "  --target=HOST[:PORT]   the gateway's address; a PORT reaches the tools as TT_SSH_PORT\n"
        "  --yes                  answer Yes to the question; without it the command stops there\n"},
    {"info", CliCommand::Info, 0, {}, {{"target", true}, {"format", true}},
        "info --target=HOST[:PORT] [--format=text|json]",
        "Reports what the gateway is and runs: its device type and the versions of its firmware and\n"
        "templates as ttdevtype reports them, the versions the installation is built for, whether the\n"
        "firmware is the installation's (Configure refuses it otherwise), and a summary of the project the\n"
        "gateway runs, fetched as Load From TG7 fetches it (nothing is saved). A gateway without a project\n"
        "is reported as such. Exits with 1 when ttdevtype's report cannot be read (its message on standard\n"
        "error).\n"
        "With --format=json: one JSON document (docs/tgxcfg.md).\n"
        "\n"
        "Options:\n"
        "  --target=HOST[:PORT]   the gateway's address; a PORT reaches the tools as TT_SSH_PORT\n"},
    {"upload-installers", CliCommand::UploadInstallers, 0, {}, {{"target", true}, {"yes", false}},
        "upload-installers --target=HOST[:PORT] [--yes]",
        "Target > Upload Installers on the console: the TGx Software Suite and TGxConnect installers\n"
        "go to the gateway's downloads folder, the second only when the first arrived.\n"
        "\n"
        "Options:\n"
        "  --target=HOST[:PORT]   the gateway's address; a PORT reaches the tools as TT_SSH_PORT\n"
        "  --yes                  answer Yes to the question; without it the command stops there\n"},
    {"reboot", CliCommand::Reboot, 0, {}, {{"target", true}}, "reboot --target=HOST[:PORT]",
        "Target > Reboot on the console: restarts the gateway. A failed restart prints\n"
        "\"ERROR : Failed to reboot TG7\" and then \"Done\", as the desktop tool shows them, and exits\n"
        "with 1.\n"
        "\n"
        "Options:\n"
        "  --target=HOST[:PORT]   the gateway's address; a PORT reaches the tools as TT_SSH_PORT\n"},
    {"vcp", CliCommand::Vcp, 0, {"PROJECT"}, {{"com", true}, {"address", true}, {"port", true}},
        "vcp [PROJECT] [--com=NAME] [--address=HOST] [--port=N]",
        "Remote > Remote COM port settings on the console. Without options it reports the PC's virtual\n"
        "COM port as the dialog shows it, first creating one (first free COM name, 192.168.1.250 and the\n"
        "VCP PORT NUMBER of PROJECT, or of the default project) when there is none. With options it is\n"
        "the dialog's OK: the port is re-created with the values given and the reported ones for the rest.\n"
        "\n"
        "Options:\n"
        "  --com=NAME             the COM name: one of the free names or the current one\n"
        "  --address=HOST         the gateway's address, as typed\n"
        "  --port=N               the gateway's virtual serial port number, as typed\n"},
    {"mux-scan", CliCommand::MuxScan, 0, {"NEW.prj"}, {{"target", true}, {"baud", true}, {"add", true}},
        "mux-scan --target=HOST[:PORT] [--baud=BAUD] [--add=all|ROW,ROW...] [NEW.prj]",
        "Multiplexer > Scan on the console: installs the base multiplexer configuration on the gateway,\n"
        "asks the multiplexer behind it for its devices through a temporary virtual COM port and prints\n"
        "them, one per line, numbered from 0 as the configurator's rows (TYPE, TAGNAME, DESCRIPTION,\n"
        "ADDRESS, separated by tabs).\n"
        "\n"
        "Options:\n"
        "  --target=HOST[:PORT]   the gateway's address; a PORT reaches the tools as TT_SSH_PORT\n"
        "  --baud=BAUD            the multiplexer's baud rate: 4800, 9600 (default), 19200, 38400,\n"
        "                         57600, 76800 or 115200\n"
        "  --add=all|ROW,...      Add All, or Add Selected with these rows; the project is saved as\n"
        "                         NEW.prj (required with --add)\n"},
    {"mux-rebuild", CliCommand::MuxRebuild, 0, {}, {{"target", true}, {"loops", true}, {"method", true}},
        "mux-rebuild --target=HOST[:PORT] [--loops=all|N,N...] [--method=address0|first-device]",
        "The configurator's Rebuild Loops on the console: prints the estimate, tells the multiplexer\n"
        "behind the gateway to re-scan the loops, waits until it reports completion (there is no time\n"
        "limit, as in the window) and prints the multiplexer's new device list as mux-scan does.\n"
        "\n"
        "Options:\n"
        "  --target=HOST[:PORT]   the gateway's address\n"
        "  --loops=all|N,...      the loops to scan, 0 to 15; default: all\n"
        "  --method=METHOD        address0 (default): only devices at polling address 0;\n"
        "                         first-device: stop at the first device found on each loop\n"},
};

const char kGeneralHelp[]
    = "Usage: tgxcfg [--software-path=DIR] COMMAND [ARGUMENTS]\n"
      "\n"
      "Works on TG7-Plus gateway projects as the desktop configuration tool does, without a window.\n"
      "\n"
      "Commands:\n"
      "  show PROJECT               print the settings, the device list and each device's commands\n"
      "  resave PROJECT [NEW.prj]   load the project and save it in the current format\n"
      "  generate PROJECT           write the gateway configuration and build it with ttbuild\n"
      "  export-map PROJECT FILE    export the Modbus map: CSV when FILE ends in .csv, else a table\n"
      "  check PROJECT              report what a gateway will not run as the project means it\n"
      "  configure PROJECT --target=HOST[:PORT]\n"
      "                             check the gateway's firmware, build, upload and restart\n"
      "  map-mode PROJECT automatic|user    switch the map mode (--yes confirms)\n"
      "  import-map PROJECT --from-target=HOST[:PORT] | --from-project=OTHER.prj\n"
      "                             replace the map with the gateway's or another project's\n"
      "  edit-map PROJECT           edit the map in the map editor (mbedit)\n"
      "  fetch --target=HOST[:PORT] NEW.prj\n"
      "                             save the gateway's own project and map as NEW.prj\n"
      "  info --target=HOST[:PORT]  the gateway's type, firmware and templates versions and project\n"
      "  update-firmware --target=HOST[:PORT]\n"
      "                             update the firmware and carry the gateway's project across\n"
      "  upload-installers --target=HOST[:PORT]\n"
      "                             put the software installers on the gateway's web page\n"
      "  reboot --target=HOST[:PORT]\n"
      "                             restart the gateway\n"
      "  vcp [PROJECT]              report or change the PC's virtual COM port to the gateway\n"
      "  mux-scan --target=HOST     list the devices of the multiplexer behind the gateway\n"
      "  mux-rebuild --target=HOST  make the multiplexer re-scan its loops\n"
      "  diff A.prj B.prj | diff A.prj --target=HOST[:PORT]\n"
      "                             what differs between two projects, or a project and a gateway\n"
      "\n"
      "Options:\n"
      "      --software-path=DIR    the suite's software folder; default: the one the registry names\n"
      "  -h, --help                 show this help; after a command, the command's help\n"
      "      --version              show the version\n"
      "\n"
      "Exit status: 0 success, 1 the operation failed (or check found problems), 2 wrong usage.\n"
      "Run 'tgxcfg COMMAND --help' for a command's options.\n";

const CommandEntry* FindCommand(const wxString& name)
{
    for (const CommandEntry& entry : kCommands)
        if (name == entry.name)
            return &entry;
    return nullptr;
}

const OptionEntry* FindOption(const CommandEntry* command, const wxString& name)
{
    static const OptionEntry kSoftwarePath{"software-path", true};
    if (name == kSoftwarePath.name)
        return &kSoftwarePath;
    if (command != nullptr)
        for (const OptionEntry& option : command->options)
            if (name == option.name)
                return &option;
    return nullptr;
}

ParsedCommandLine Help(const CommandEntry* command)
{
    ParsedCommandLine parsed;
    parsed.outcome = ParsedCommandLine::Help;
    parsed.text = command == nullptr ? wxString(kGeneralHelp)
                                     : kUsagePrefix + wxString(command->usage) + "\n\n" + command->help;
    return parsed;
}

ParsedCommandLine UsageError(const CommandEntry* command, const wxString& problem)
{
    ParsedCommandLine parsed;
    parsed.outcome = ParsedCommandLine::UsageError;
    parsed.text = "tgxcfg: " + problem + "\n";
    if (command != nullptr)
        parsed.text << kUsagePrefix << command->usage << "\nTry 'tgxcfg " << command->name
                    << " --help' for more information.\n";
    else
        parsed.text << "Usage: tgxcfg [--software-path=DIR] COMMAND [ARGUMENTS]\n"
                    << "Try 'tgxcfg --help' for more information.\n";
    return parsed;
}

void StoreOption(CliRequest& request, const wxString& name, const wxString& value)
{
    if (name == "software-path")
        request.softwarePath = value;
    else if (name == "no-build")
        request.noBuild = true;
    else if (name == "output-folder")
        request.outputFolder = value;
    else if (name == "target")
        request.target = value;
    else if (name == "tag") {
        request.tagGiven = true;
        request.tag = value;
    } else if (name == "yes")
        request.yes = true;
    else if (name == "from-target")
        request.target = value;
    else if (name == "from-project")
        request.fromProject = value;
    else if (name == "com" || name == "address" || name == "port") {
        request.vcpChange = true;
        (name == "com" ? request.com : name == "address" ? request.address : request.port) = value;
    } else if (name == "baud")
        request.baud = value;
    else if (name == "add")
        request.add = value;
    else if (name == "loops")
        request.loops = value;
    else if (name == "method")
        request.method = value;
    else if (name == "format")
        request.format = value;
}

// "all", or numbers from 0 to `highest` separated by commas.
bool IsRowList(const wxString& text, long highest)
{
    if (text == "all")
        return true;
    wxArrayString items = wxSplit(text, ',', '\0');
    for (const wxString& item : items) {
        long n = -1;
        if (!item.ToLong(&n) || n < 0 || n > highest)
            return false;
    }
    return !items.empty();
}

// A host or an address reaches the suite's tools as one argument of their command line; one that
// could read as more than one, or as an option, is refused before anything runs.
bool IsPlainHost(const wxString& host)
{
    if (host.empty() || host[0] == '-')
        return false;
    return std::none_of(host.begin(), host.end(), [](wxUniChar c) {
        return c <= ' ' || c == 0x7F || c == '"' || c == '\'' || c == '`' || (c >= 0x80 && c < 0xA0);
    });
}

// A TCP port: a number from 1 to 65535, digits only.
bool IsPortNumber(const wxString& text)
{
    unsigned long port = 0;
    return !text.empty() && text.find_first_not_of("0123456789") == wxString::npos && text.length() <= 5
        && text.ToULong(&port) && port >= 1 && port <= 65535;
}

// HOST or HOST:PORT, split as the address prompt splits it: at the last colon.
wxString TargetProblem(const wxString& option, const wxString& target)
{
    const int colon = target.Find(':', true);
    const wxString host = colon == wxNOT_FOUND ? target : target.Left(colon);
    if (!IsPlainHost(host))
        return option + " must be HOST or HOST:PORT; the host may hold no blank, quote or control character "
                        "and may not start with '-'";
    if (colon != wxNOT_FOUND && !IsPortNumber(target.Mid(colon + 1)))
        return "the PORT of " + option + " must be a number from 1 to 65535";
    return wxString();
}

} // namespace

ParsedCommandLine ParseCommandLine(const wxArrayString& args)
{
    ParsedCommandLine parsed;
    CliRequest& request = parsed.request;
    const CommandEntry* command = nullptr;
    bool helpAsked = false;
    bool optionsEnded = false;
    // Once help is asked for, what else is on the line does not matter.
    auto usageError = [&](const wxString& problem) { return helpAsked ? Help(command) : UsageError(command, problem); };
    wxArrayString given; // option names given, for the checks below

    for (size_t i = 0; i < args.size(); ++i) {
        const wxString& arg = args[i];
        if (!optionsEnded && arg == "--") {
            optionsEnded = true;
            continue;
        }
        if (optionsEnded || !arg.StartsWith("-") || arg == "-") {
            if (command == nullptr) {
                command = FindCommand(arg);
                if (command == nullptr)
                    return UsageError(nullptr, "unknown command '" + arg + "'");
                request.command = command->command;
            } else {
                request.arguments.Add(arg);
            }
            continue;
        }
        if (arg == "-h" || arg == "--help") {
            helpAsked = true;
            continue;
        }
        if (arg == "--version" && command == nullptr) {
            parsed.outcome = ParsedCommandLine::Version;
            parsed.text = wxString("tgxcfg ") + kToolVersion + "\n";
            return parsed;
        }
        wxString value;
        const bool hasValue = arg.Find('=') != wxNOT_FOUND;
        const wxString name = arg.StartsWith("--") ? arg.Mid(2).BeforeFirst('=', &value) : wxString();
        const OptionEntry* option = name.empty() ? nullptr : FindOption(command, name);
        if (option == nullptr)
            return usageError("unrecognised option '" + arg.BeforeFirst('=') + "'");
        if (option->takesValue && !hasValue) {
            if (i + 1 >= args.size())
                return usageError("option '--" + name + "' needs a value");
            value = args[++i];
        }
        if (!option->takesValue && hasValue)
            return usageError("option '--" + name + "' takes no value");
        // A tag may be empty (the prompt accepts that); a path or an address may not.
        if (option->takesValue && value.empty() && name != "tag")
            return usageError("option '--" + name + "' needs a value");
        StoreOption(request, name, value);
        given.Add(name);
    }

    if (helpAsked)
        return Help(command);
    if (command == nullptr)
        return UsageError(nullptr, "no command given");
    const size_t count = request.arguments.size();
    if (count < command->minArguments)
        return usageError(wxString("missing ") + command->argumentNames[count]);
    if (count > command->argumentNames.size())
        return usageError("unexpected argument '" + request.arguments[command->argumentNames.size()] + "'");
    // The map file of NEW.prj is NEW.mbd: a NEW.mbd would be written twice, the map winning.
    if (command->command == CliCommand::Resave && count == 2
        && wxFileName(request.arguments[1]).GetExt().Lower() == "mbd")
        return usageError("NEW.prj cannot be a map file (.mbd)");
    if (command->command == CliCommand::Configure && given.Index("target") == wxNOT_FOUND)
        return usageError("configure needs --target=HOST[:PORT]");
    if (!request.target.empty()) {
        const wxString problem
            = TargetProblem(given.Index("from-target") != wxNOT_FOUND ? "--from-target" : "--target", request.target);
        if (!problem.empty())
            return usageError(problem);
    }
    if (!request.address.empty() && !IsPlainHost(request.address))
        return usageError("--address may hold no blank, quote or control character and may not start with '-'");
    if (!request.port.empty() && !IsPortNumber(request.port))
        return usageError("--port must be a number from 1 to 65535");
    if (request.format != "text" && request.format != "json")
        return usageError("--format must be text or json");
    if (command->command == CliCommand::Diff && (count == 2) == (given.Index("target") != wxNOT_FOUND))
        return usageError("diff needs B.prj or --target=HOST[:PORT], not both");
    if (command->command == CliCommand::MapMode && request.arguments[1] != "automatic" && request.arguments[1] != "user")
        return usageError("MODE must be 'automatic' or 'user'");
    if (command->command == CliCommand::ImportMap
        && (given.Index("from-target") == wxNOT_FOUND) == (given.Index("from-project") == wxNOT_FOUND))
        return usageError("import-map needs one of --from-target=HOST[:PORT] and --from-project=OTHER.prj");
    for (const CliCommand gateway : {CliCommand::Fetch, CliCommand::Info, CliCommand::UpdateFirmware,
             CliCommand::UploadInstallers, CliCommand::Reboot})
        if (command->command == gateway && given.Index("target") == wxNOT_FOUND)
            return usageError(wxString(command->name) + " needs --target=HOST[:PORT]");
    const bool mux = command->command == CliCommand::MuxScan || command->command == CliCommand::MuxRebuild;
    if (mux && given.Index("target") == wxNOT_FOUND)
        return usageError(wxString(command->name) + " needs --target=HOST[:PORT]");
    if (command->command == CliCommand::MuxScan) {
        if (std::find(std::begin(kBaudRates), std::end(kBaudRates), request.baud) == std::end(kBaudRates))
            return usageError("--baud must be one of 4800 9600 19200 38400 57600 76800 115200");
        if (!request.add.empty() && !IsRowList(request.add, 1000))
            return usageError("--add must be all or row numbers separated by commas");
        if (!request.add.empty() && count == 0)
            return usageError("--add needs NEW.prj");
    }
    if (command->command == CliCommand::MuxRebuild) {
        if (!IsRowList(request.loops, 15))
            return usageError("--loops must be all or loop numbers 0 to 15 separated by commas");
        if (request.method != "address0" && request.method != "first-device")
            return usageError("--method must be address0 or first-device");
    }
    parsed.outcome = ParsedCommandLine::Run;
    return parsed;
}

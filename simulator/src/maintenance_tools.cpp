// The tools that keep a gateway up to date and the companion programs of the suite: ttfirmware,
// and the stand-ins for the live viewer (tgxview), the device finder (tgxfinder) and the
// software updater (updater).
#include "exit_codes.h"
#include "text_io.h"
#include "tools.h"

#include <wx/filefn.h>

namespace sim {

namespace {

const char* const kPackagePrefix = "TG7main-v";

// ttfirmware HOST TG7main-vVERSION, run in the firmware folder: installs the package of that
// name from the current folder; the gateway then reports VERSION. Its files in TG7/ stay.
class FirmwareTool : public GatewayTool {
public:
    wxString Usage() const override { return "ttfirmware HOST TG7main-vVERSION    (run in the firmware folder)"; }
    bool ParseArguments(const wxArrayString& args, wxString& problem) override
    {
        if (!TakeHost(args, 2, 2, problem))
            return false;
        package = args[1];
        if (!package.StartsWith(kPackagePrefix, &version) || version.empty()) {
            problem = "'" + package + "' is not a firmware package name (" + kPackagePrefix + "VERSION)";
            return false;
        }
        return true;
    }
    int Run(ToolContext& context) override
    {
        if (!wxFileExists(LocalPath(context, package))) {
            ToolError("ttfirmware", package + ": no such package in " + context.workingDirectory);
            return kExitFailed;
        }
        GatewaySettings settings;
        context.state.LoadSettings(settings);
        settings.firmware = version;
        if (!context.state.SaveSettings(settings)) {
            ToolError("ttfirmware", "cannot write " + context.state.GatewayFile("settings.ini"));
            return kExitCannotWrite;
        }
        PrintLine("Firmware " + version + " installed on " + host);
        return kExitOk;
    }

private:
    wxString package, version;
};

// A simulated reading of a map item: fixed per register, so that two views agree.
wxString SimulatedValue(const wxString& type, long address)
{
    if (type == "FLOAT")
        return wxString::Format("%.2f", 4.0 + (address % 97) * 0.16);
    return wxString::Format("%ld", address % 7);
}

// tgxview "-a=HOST": the gateway's live data, one line per item of its Modbus map.
class LiveViewTool : public Tool {
public:
    wxString Usage() const override { return "tgxview -a=HOST"; }
    bool ParseArguments(const wxArrayString& args, wxString& problem) override
    {
        if (args.size() != 1 || !args[0].StartsWith("-a=", &host) || host.empty()) {
            problem = "expected one option -a=HOST";
            return false;
        }
        return true;
    }
    wxString Host() const override { return host; }
    wxString GatewayAddress(const SimState&) const override { return host; }
    int Run(ToolContext& context) override
    {
        GatewaySettings settings;
        context.state.LoadSettings(settings);
        PrintLine(wxString::Format("Live data of %s at %s (firmware %s, simulated values)", settings.deviceType, host,
            settings.firmware));
        wxArrayString map;
        if (!ReadLines(context.state.GatewayFile("TG7/MBMAP1.csv"), map) || map.empty()) {
            PrintLine("No Modbus map on the gateway: nothing to show");
            return kExitOk;
        }
        for (const wxString& line : map) {
            const wxArrayString item = wxSplit(line, ',', '\0');
            long address = 0;
            if (item.size() < 6 || !item[1].ToLong(&address))
                continue;
            PrintLine(wxString::Format("%-6ld %-16s %-12s %s", address, item[4], SimulatedValue(item[3], address),
                item[5]));
        }
        return kExitOk;
    }

private:
    wxString host;
};

// tgxfinder: lists the gateways on the network, which here is the one simulated gateway.
class FinderTool : public Tool {
public:
    wxString Usage() const override { return "tgxfinder"; }
    bool ParseArguments(const wxArrayString& args, wxString& problem) override
    {
        if (!args.empty())
            problem = "takes no arguments";
        return args.empty();
    }
    int Run(ToolContext& context) override
    {
        GatewaySettings settings;
        context.state.LoadSettings(settings);
        PrintLine(wxString::Format("Found 1 gateway: %s, firmware %s, templates %s (simulated, at any address)",
            settings.deviceType, settings.firmware, settings.templates));
        return kExitOk;
    }
};

// updater [/silent]: the software is always up to date; the silent check prints nothing.
class UpdaterTool : public Tool {
public:
    wxString Usage() const override { return "updater [/silent]"; }
    bool ParseArguments(const wxArrayString& args, wxString& problem) override
    {
        silent = args.size() == 1 && args[0] == "/silent";
        if (!args.empty() && !silent)
            problem = "the only option is /silent";
        return args.empty() || silent;
    }
    int Run(ToolContext&) override
    {
        if (!silent)
            PrintLine("TGx Software Suite is up to date");
        return kExitOk;
    }

private:
    bool silent = false;
};

}  // namespace

std::unique_ptr<Tool> MakeFirmwareTool() { return std::make_unique<FirmwareTool>(); }
std::unique_ptr<Tool> MakeLiveViewTool() { return std::make_unique<LiveViewTool>(); }
std::unique_ptr<Tool> MakeFinderTool() { return std::make_unique<FinderTool>(); }
std::unique_ptr<Tool> MakeUpdaterTool() { return std::make_unique<UpdaterTool>(); }

}  // namespace sim

// ttvsp, the virtual COM port on the PC that tunnels to the gateway's virtual serial port, and
// pfmux, the HART multiplexer behind the gateway, reached only through that port.
#include "exit_codes.h"
#include "mux_state.h"
#include "text_io.h"
#include "tools.h"

namespace sim {

namespace {

bool IsComName(const wxString& name)
{
    long n = 0;
    wxString number;
    return name.StartsWith("COM", &number) && number.ToLong(&n) && n >= 1 && n <= 256 &&
           number == wxString::Format("%ld", n);
}

// ttvsp -g | ttvsp COM HOST -p=PORT | ttvsp -d | ttvsp COM -d
class VspTool : public Tool {
public:
    wxString Usage() const override { return "ttvsp -g | ttvsp COMn HOST -p=PORT | ttvsp [COMn] -d"; }
    wxString Host() const override { return host; }
    wxString GatewayAddress(const SimState&) const override { return host; }
    bool ParseArguments(const wxArrayString& args, wxString& problem) override
    {
        const size_t n = args.size();
        if (n == 1 && (args[0] == "-g" || args[0] == "-d")) {
            action = args[0];
            return true;
        }
        if (n >= 2 && !IsComName(args[0])) {
            problem = "'" + args[0] + "' is not a COM port name";
            return false;
        }
        comName = n >= 1 ? args[0] : wxString();
        if (n == 2 && args[1] == "-d") {
            action = "-d";
            return true;
        }
        wxString portText;
        if (n == 3 && args[2].StartsWith("-p=", &portText)) {
            host = args[1];
            if (host.empty() || host.StartsWith("-") || !portText.ToLong(&port) || port < 1 || port > 65535) {
                problem = "'" + host + "' '" + args[2] + "' is not an address and a TCP port from 1 to 65535";
                return false;
            }
            action = "create";
            return true;
        }
        problem = "unknown command line";
        return false;
    }
    int Run(ToolContext& context) override
    {
        VirtualPort current;
        const bool exists = LoadVirtualPort(context.state, current);
        if (action == "-g") {
            if (exists)
                PrintLine(wxString::Format("%s %s:%ld up", current.comName, current.host, current.port));
            return kExitOk;
        }
        if (action == "-d") {
            // A name that is not the virtual port's leaves it alone.
            if (exists && (comName.empty() || comName == current.comName) &&
                !SaveVirtualPort(context.state, VirtualPort{}))
                return kExitCannotWrite;
            return kExitOk;
        }
        wxArrayString pcPorts;
        ReadLines(context.state.File("pc-com-ports.txt"), pcPorts);
        if (pcPorts.Index(comName, false) != wxNOT_FOUND) {
            ToolError("ttvsp", comName + " is in use by a port of this PC");
            return kExitFailed;
        }
        // One virtual port only: a new name replaces the old port.
        if (!SaveVirtualPort(context.state, VirtualPort{comName, host, port}))
            return kExitCannotWrite;
        PrintLine(wxString::Format("%s -> %s:%ld", comName, host, port));
        return kExitOk;
    }

private:
    wxString action, comName, host;
    long port = 0;
};

// pfmux COMn -rdl | -rads | -wm=1 -wrl=1:1 -wmm=1 -wlm=0|1 -rl=MASK
class MuxTool : public Tool {
public:
    wxString Usage() const override
    {
        return "pfmux COMn -rdl | pfmux COMn -rads | pfmux COMn -wm=1 -wrl=1:1 -wmm=1 -wlm=0|1 -rl=MASK";
    }
    wxString Host() const override { return comName; }
    // The multiplexer behind the gateway the virtual port points at.
    wxString GatewayAddress(const SimState& state) const override
    {
        VirtualPort port;
        return LoadVirtualPort(state, port) ? port.host : wxString();
    }
    bool ParseArguments(const wxArrayString& args, wxString& problem) override
    {
        if (args.empty() || !IsComName(args[0])) {
            problem = "the first argument must be a COM port name";
            return false;
        }
        comName = args[0];
        if (args.size() == 2 && (args[1] == "-rdl" || args[1] == "-rads")) {
            action = args[1];
            return true;
        }
        wxString method, mask;
        if (args.size() == 6 && args[1] == "-wm=1" && args[2] == "-wrl=1:1" && args[3] == "-wmm=1" &&
            args[4].StartsWith("-wlm=", &method) && (method == "0" || method == "1") &&
            args[5].StartsWith("-rl=", &mask) && mask.ToLong(&loopMask) && loopMask >= 0 && loopMask <= 0xFFFF) {
            action = "rebuild";
            firstDeviceSearch = method == "1";
            return true;
        }
        problem = "unknown command line";
        return false;
    }
    int Run(ToolContext& context) override
    {
        VirtualPort port;
        if (!LoadVirtualPort(context.state, port) || port.comName != comName) {
            ToolError("pfmux", "cannot open " + comName + ": no such port");
            return kExitFailed;
        }
        const long vcpPort = GatewayVcpPort(context.state);
        if (port.port != vcpPort || GatewayMode(context.state) != "MULTIPLEXOR") {
            ToolError("pfmux", wxString::Format("no answer from the multiplexer on %s (the gateway serves its virtual "
                                                "serial port on %ld in mode %s)",
                                                comName, vcpPort, GatewayMode(context.state)));
            return kExitFailed;
        }
        Multiplexer mux;
        LoadMultiplexer(context.state, mux);
        if (action == "-rads") {
            const bool running = mux.rebuildRemaining > 0;
            PrintLine(wxString::Format("Additional device status : %x 0 0 0 0", running ? 0x40 : 0));
            if (running) {
                --mux.rebuildRemaining;
                SaveMultiplexer(context.state, mux);
            }
            return kExitOk;
        }
        if (mux.rebuildRemaining > 0) {
            ToolError("pfmux", "the multiplexer is rebuilding its loops");
            return kExitFailed;
        }
        if (action == "-rdl") {
            for (const wxString& line : DeviceListLines(mux))
                PrintLine(line);
            return kExitOk;
        }
        RebuildLoops(mux, loopMask, firstDeviceSearch);
        if (!SaveMultiplexer(context.state, mux))
            return kExitCannotWrite;
        PrintLine(wxString::Format("Rebuild of loops 0x%04lx started", loopMask));
        return kExitOk;
    }

private:
    wxString comName, action;
    long loopMask = 0;
    bool firstDeviceSearch = false;
};

}  // namespace

std::unique_ptr<Tool> MakeVspTool() { return std::make_unique<VspTool>(); }
std::unique_ptr<Tool> MakeMuxTool() { return std::make_unique<MuxTool>(); }

}  // namespace sim

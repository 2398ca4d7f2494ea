// The admin commands that set up the simulated PC's COM ports and the multiplexer's loops.
#include "admin.h"
#include "exit_codes.h"
#include "mux_state.h"
#include "text_io.h"

namespace sim {

namespace {

int MuxUsage(const wxString& problem)
{
    PrintError("tgxsim: " + problem);
    PrintError("usage: tgxsim mux show | mux add [--known] LOOP POLL ADDRESS TAG DESCRIPTION | mux address ADDRESS "
               "| mux rebuild-polls N | mux clear | pc-ports [COMn...]");
    return kExitUsage;
}

bool ToNumber(const wxString& text, long low, long high, long& value)
{
    return text.ToLong(&value) && value >= low && value <= high;
}

int ShowMux(const SimState& state, const Multiplexer& mux)
{
    VirtualPort port;
    PrintLine(LoadVirtualPort(state, port)
                  ? wxString::Format("virtual port: %s -> %s:%ld", port.comName, port.host, port.port)
                  : wxString("virtual port: (none)"));
    wxArrayString pcPorts;
    ReadLines(state.File("pc-com-ports.txt"), pcPorts);
    PrintLine("PC's own COM ports: " + (pcPorts.empty() ? wxString("(none)") : wxJoin(pcPorts, ' ')));
    PrintLine("multiplexer address: " + mux.address);
    PrintLine(wxString::Format("rebuild: %ld polls running (now %ld left)", mux.rebuildPolls, mux.rebuildRemaining));
    for (const MuxDevice& d : mux.devices)
        PrintLine(wxString::Format("  loop %2d  poll %2d  %s  %s  %s  [%s]", d.loop, d.pollAddress, d.longAddress,
                                   d.tag, d.description, d.listed ? "listed" : "not listed until a rebuild"));
    return kExitOk;
}

}  // namespace

int RunMuxAdmin(const SimState& state, const wxArrayString& args)
{
    if (args[0] == "pc-ports") {
        wxArrayString names(args);
        names.RemoveAt(0);
        return SetPcComPorts(state, names) ? kExitOk : kExitStateFolder;
    }
    const wxString verb = args.size() > 1 ? args[1] : wxString("show");
    Multiplexer mux;
    LoadMultiplexer(state, mux);
    if (verb == "show" && args.size() <= 2)
        return ShowMux(state, mux);
    if (verb == "clear" && args.size() == 2) {
        mux.devices.clear();
        mux.rebuildRemaining = 0;
    } else if (verb == "address" && args.size() == 3) {
        mux.address = args[2];
    } else if (verb == "rebuild-polls" && args.size() == 3) {
        if (!ToNumber(args[2], 0, 1000000, mux.rebuildPolls))
            return MuxUsage("rebuild-polls needs a number from 0");
    } else if (verb == "add") {
        wxArrayString words(args);
        words.RemoveAt(0, 2);
        const bool known = !words.empty() && words[0] == "--known";
        if (known)
            words.RemoveAt(0);
        long loop = 0, poll = 0;
        if (words.size() != 5 || !ToNumber(words[0], 0, 15, loop) || !ToNumber(words[1], 0, 63, poll))
            return MuxUsage("add needs LOOP (0-15), POLL (0-63), ADDRESS, TAG and DESCRIPTION");
        mux.devices.push_back(
            MuxDevice{static_cast<int>(loop), static_cast<int>(poll), words[2], words[3], words[4], known});
    } else {
        return MuxUsage("unknown mux command");
    }
    if (!SaveMultiplexer(state, mux)) {
        PrintError("tgxsim: cannot write " + state.GatewayFile("mux.txt"));
        return kExitStateFolder;
    }
    return kExitOk;
}

}  // namespace sim

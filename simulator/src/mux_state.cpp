#include "mux_state.h"

#include "fault_plan.h"
#include "text_io.h"

#include <wx/filefn.h>

#include <algorithm>

namespace sim {

namespace {

// A setting of the project installed on the gateway, from its "KEY:value" line.
wxString GatewayProjectValue(const SimState& state, const wxString& key)
{
    wxArrayString lines;
    ReadLines(state.GatewayFile("TG7/tgxconfig.prj"), lines);
    wxString value;
    for (const wxString& line : lines)
        if (line.StartsWith(key + ":", &value))
            return value.Trim(true).Trim(false);
    return wxString();
}

bool WriteTakenComPorts(const SimState& state)
{
    wxArrayString taken;
    ReadLines(state.File("pc-com-ports.txt"), taken);
    VirtualPort port;
    if (LoadVirtualPort(state, port))
        taken.Add(port.comName);
    return WriteLines(state.File("com-ports.txt"), taken);
}

}  // namespace

bool LoadVirtualPort(const SimState& state, VirtualPort& port)
{
    wxArrayString lines, words;
    wxString problem;
    if (!ReadLines(state.File("vsp.txt"), lines) || lines.empty() || !SplitWords(lines[0], words, problem) ||
        words.size() != 3)
        return false;
    port.comName = words[0];
    port.host = words[1];
    return words[2].ToLong(&port.port);
}

bool SaveVirtualPort(const SimState& state, const VirtualPort& port)
{
    if (port.comName.empty()) {
        wxRemoveFile(state.File("vsp.txt"));
    } else {
        wxArrayString line;
        line.Add(QuoteWord(port.comName) + " " + QuoteWord(port.host) + wxString::Format(" %ld", port.port));
        if (!WriteLines(state.File("vsp.txt"), line))
            return false;
    }
    return WriteTakenComPorts(state);
}

bool SetPcComPorts(const SimState& state, const wxArrayString& names)
{
    return WriteLines(state.File("pc-com-ports.txt"), names) && WriteTakenComPorts(state);
}

bool LoadMultiplexer(const SimState& state, Multiplexer& mux)
{
    mux = Multiplexer{};
    wxArrayString lines;
    if (!ReadLines(state.GatewayFile("mux.txt"), lines))
        return true;  // a factory-fresh multiplexer: no devices
    for (const wxString& line : lines) {
        wxArrayString words;
        wxString problem;
        if (!SplitWords(line, words, problem) || words.empty())
            continue;
        if (words[0] == "address" && words.size() == 2)
            mux.address = words[1];
        else if (words[0] == "rebuild-polls" && words.size() == 2)
            words[1].ToLong(&mux.rebuildPolls);
        else if (words[0] == "rebuild-remaining" && words.size() == 2)
            words[1].ToLong(&mux.rebuildRemaining);
        else if (words[0] == "device" && words.size() == 7) {
            MuxDevice device;
            long loop = 0, poll = 0;
            words[1].ToLong(&loop);
            words[2].ToLong(&poll);
            device.loop = static_cast<int>(loop);
            device.pollAddress = static_cast<int>(poll);
            device.longAddress = words[3];
            device.tag = words[4];
            device.description = words[5];
            device.listed = words[6] == "listed";
            mux.devices.push_back(device);
        }
    }
    return true;
}

bool SaveMultiplexer(const SimState& state, const Multiplexer& mux)
{
    wxArrayString lines;
    lines.Add("address " + QuoteWord(mux.address));
    lines.Add(wxString::Format("rebuild-polls %ld", mux.rebuildPolls));
    lines.Add(wxString::Format("rebuild-remaining %ld", mux.rebuildRemaining));
    for (const MuxDevice& d : mux.devices)
        lines.Add(wxString::Format("device %d %d ", d.loop, d.pollAddress) + QuoteWord(d.longAddress) + " " +
                  QuoteWord(d.tag) + " " + QuoteWord(d.description) + (d.listed ? " listed" : " unlisted"));
    return WriteLines(state.GatewayFile("mux.txt"), lines);
}

wxArrayString DeviceListLines(const Multiplexer& mux)
{
    std::vector<MuxDevice> listed;
    for (const MuxDevice& d : mux.devices)
        if (d.listed)
            listed.push_back(d);
    std::stable_sort(listed.begin(), listed.end(), [](const MuxDevice& a, const MuxDevice& b) {
        return a.loop != b.loop ? a.loop < b.loop : a.pollAddress < b.pollAddress;
    });
    wxArrayString lines;
    lines.Add("Multiplexer = " + mux.address);
    for (const MuxDevice& d : listed)
        lines.Add(wxString::Format("Device = %s,%d,%d,%s,%s", d.longAddress, d.loop, d.pollAddress, d.tag,
                                   d.description));
    return lines;
}

void RebuildLoops(Multiplexer& mux, long loopMask, bool firstDeviceSearch)
{
    for (int loop = 0; loop < 16; ++loop) {
        if ((loopMask & (1L << loop)) == 0)
            continue;
        int firstPoll = -1;
        for (const MuxDevice& d : mux.devices)
            if (d.loop == loop && (firstPoll < 0 || d.pollAddress < firstPoll))
                firstPoll = d.pollAddress;
        for (MuxDevice& d : mux.devices)
            if (d.loop == loop)
                d.listed = firstDeviceSearch ? d.pollAddress == firstPoll : d.pollAddress == 0;
    }
    mux.rebuildRemaining = mux.rebuildPolls;
}

long GatewayVcpPort(const SimState& state)
{
    long port = 772;  // a gateway without a configuration listens on the factory port
    const wxString value = GatewayProjectValue(state, "VCP PORT NUMBER");
    if (!value.empty())
        value.ToLong(&port);
    return port;
}

wxString GatewayMode(const SimState& state) { return GatewayProjectValue(state, "MODE"); }

}  // namespace sim

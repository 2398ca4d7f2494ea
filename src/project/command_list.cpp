#include "project/command_list.h"

#include "project/project.h"

#include <algorithm>

wxString CommandListLine(const HartCommandEntry& command)
{
    wxString line = wxString::Format("CMD %03d:", command.commandNumber);
    const int shown = std::clamp(command.argCount, 0, MAX_COMMAND_ARGS);
    for (int a = 0; a < shown; ++a)
        line += wxString::Format(a == 0 ? "%02d" : ",%02d", command.args[a]);
    if (command.writeCommand != 0)
        line += " - WRITE ON TRIGGER";
    else if (command.pollEnabled != 1)
        line += " - DISABLED";
    else
        line += wxString::Format(" - CYCLICAL READ %-5d", command.cycleInterval);
    return line;
}

wxArrayString CommandListLines(const Project& project)
{
    wxArrayString lines;
    const int d = project.selectedDevice;
    if (project.deviceCount <= 0 || d < 0 || d >= MAX_DEVICES || d >= project.deviceCount)
        return lines;
    const ProjectDevice& device = project.devices[d];
    for (int c = 0; c < device.commandCount && c < MAX_COMMANDS; ++c)
        lines.Add(CommandListLine(device.commands[c]));
    return lines;
}

#include "platform/com_port_scan.h"

#include "base/text_file.h"

#include <wx/utils.h>

wxArrayString ScanFreeComPortNames(const ComPortProbe& opens)
{
    wxArrayString free;
    for (int n = 1; n <= kLastScannedComPort; ++n) {
        const wxString name = wxString::Format("COM%d", n);
        if (!opens(name))
            free.Add(name);
    }
    return free;
}

ComPortProbe TakenComPortListProbe()
{
    wxString listFile;
    wxArrayString taken;
    // Without a list of its own the probe asks the gateway simulator, whose ttvsp keeps the PC's
    // taken names (its own ports and the virtual port) in com-ports.txt.
    wxString simulatorHome;
    if (!wxGetEnv("TGX_TAKEN_COM_PORTS", &listFile) && wxGetEnv("TGXSIM_HOME", &simulatorHome) && !simulatorHome.empty())
        listFile = simulatorHome + "/com-ports.txt";
    if (!listFile.empty())
        ReadTextLines(listFile, taken);  // a missing or unreadable list takes no port
    for (wxString& line : taken)
        line.Trim(true).Trim(false);
    return [taken](const wxString& name) { return taken.Index(name, false) != wxNOT_FOUND; };
}

#include "platform/com_port_scan.h"

#include "project/text_file.h"

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
    if (wxGetEnv("TGX_TAKEN_COM_PORTS", &listFile) && !listFile.empty())
        ReadTextLines(listFile, taken);  // a missing or unreadable list takes no port
    for (wxString& line : taken)
        line.Trim(true).Trim(false);
    return [taken](const wxString& name) { return taken.Index(name, false) != wxNOT_FOUND; };
}

#include "project/load_from_device.h"

#include "app/app_context.h"
#include "deploy/device_tools.h"
#include "project/project_commands.h"
#include "project/text_file.h"

#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/log.h>

wxString DeviceDownloadFolder()
{
    return wxFileName::GetTempDir() + wxFileName::GetPathSeparator() + "tgxconfig-download";
}

namespace {

// Fetches one gateway file; true when ttgetfile succeeded.
bool Fetch(AppContext& ctx, const char* remote, const wxString& local)
{
    return FetchDeviceFile(ctx, remote, local);
}

void Remove(const wxString& file)
{
    wxLogNull quiet;
    if (wxFileExists(file))
        wxRemoveFile(file);
}

}  // namespace

void LoadProjectFromDevice(AppContext& ctx)
{
    if (!ConfirmDiscardUnsaved(ctx) || !PromptTargetAddress(ctx))
        return;
    const wxString folder = DeviceDownloadFolder();
    wxFileName::Mkdir(folder, wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
    const wxString projectFile = folder + wxFileName::GetPathSeparator() + "tgxconfig.prj";
    const wxString mapFile = folder + wxFileName::GetPathSeparator() + "MBMAP1.csv";
    Remove(projectFile);
    Remove(mapFile);

    ctx.ui.BeginProgress("Downloading project file", "Load config from TG7\n");
    ctx.ui.PulseProgress("Load config from TG7\n");
    if (!Fetch(ctx, "TG7/tgxconfig.prj", projectFile)) {
        ctx.ui.EndProgress();
        ctx.ui.ShowMessage("Failed to obtain configuration from TG7.");
        return;
    }
    ctx.ui.PulseProgress("Downloading modbus map");
    wxArrayString map;
    const bool mapFetched = Fetch(ctx, "TG7/MBMAP1.csv", mapFile) && ReadTextLines(mapFile, map);
    // The map the gateway is running; it stands in when its map file could not be fetched.
    wxArrayString printed;
    const long printCode = PrintDeviceMap(ctx, printed);
    if (!mapFetched && printCode == 0)
        map = printed;

    wxArrayString lines;
    const bool read = ReadTextLines(projectFile, lines);
    Remove(projectFile);
    Remove(mapFile);
    ctx.ui.EndProgress();
    if (!read) {
        ctx.ui.ShowMessage("Error in project file");
        return;
    }
    if (!ApplyProjectFile(ctx, lines)) {
        ctx.ui.ShowMessage("Invalid project file (no content)");
        return;
    }
    ctx.project.modbusMapLines = map;
    ctx.ui.RefreshPanel();
}

#include "deploy/load_from_device.h"

#include "base/app_context.h"
#include "base/text_file.h"
#include "deploy/device_tools.h"
#include "deploy/private_folder.h"
#include "deploy/project_save.h"
#include "project/project.h"
#include "project/project_file.h"

void LoadProjectFromDevice(AppContext& ctx)
{
    if (!ConfirmDiscardUnsaved(ctx) || !PromptTargetAddress(ctx))
        return;
    const PrivateFolder folder("tgxconfig-download");
    const wxString projectFile = folder.File("tgxconfig.prj");
    const wxString mapFile = folder.File("MBMAP1.csv");
    if (!folder.Created()) {
        ctx.ui.ShowMessage("Failed to obtain configuration from TG7.");
        return;
    }

    ctx.ui.BeginProgress("Downloading project file", "Load config from TG7\n");
    ctx.ui.PulseProgress("Load config from TG7\n");
    if (!FetchDeviceFile(ctx, "TG7/tgxconfig.prj", projectFile)) {
        ctx.ui.EndProgress();
        ctx.ui.ShowMessage("Failed to obtain configuration from TG7.");
        return;
    }
    ctx.ui.PulseProgress("Downloading modbus map");
    TextLines map;
    const bool mapFetched = FetchDeviceFile(ctx, "TG7/MBMAP1.csv", mapFile) && ReadTextLines(mapFile, map);
    // The map the gateway is running; it stands in when its map file could not be fetched.
    wxArrayString printed;
    const bool printedOk = PrintDeviceMap(ctx, printed);
    if (!mapFetched && printedOk)
        map = printed;

    ctx.ui.EndProgress();
    switch (ApplyProjectFile(ctx, projectFile)) {
    case ProjectReadResult::Read: break;
    case ProjectReadResult::NoContent: ctx.ui.ShowMessage("Invalid project file (no content)"); return;
    default: ctx.ui.ShowMessage("Error in project file"); return;
    }
    ctx.project.modbusMapLines.swap(map);
    ctx.ui.RefreshPanel();
}

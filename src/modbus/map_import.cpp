#include "modbus/map_import.h"

#include "base/app_context.h"
#include "base/text_file.h"
#include "deploy/device_tools.h"
#include "deploy/installation_turn.h"
#include "deploy/map_chain.h"
#include "deploy/project_save.h"
#include "project/project.h"
#include "project/project_file.h"

#include <wx/filefn.h>
#include <wx/log.h>

bool ImportMapFromDevice(AppContext& ctx)
{
    if (!CheckMapProject(ctx, true) || !PromptTargetAddress(ctx))
        return false;
    // The title's line break is deliberate: the dialog has always been titled so.
    ctx.ui.BeginProgress("Load Modbus map from TG7\n", "Downloading modbus map");
    ctx.ui.PulseProgress("Downloading modbus map");
    const wxString localFile = ctx.env.TgxProjectPath + ctx.platform.PathSeparator() + "MBMAP1.csv";
    {
        const InstallationTurn turn(ctx);  // the download's name in the project folder is fixed
        if (FetchDeviceFile(ctx, "TG7/MBMAP1.csv", localFile)) {
            // A file that cannot be read is not reported either.
            ReadTextLines(localFile, ctx.project.modbusMapLines);
            wxLogNull quiet;
            wxRemoveFile(localFile);
        } else {
            wxArrayString printed;
            if (PrintDeviceMap(ctx, printed))
                ctx.project.modbusMapLines = printed;
        }
    }
    ctx.ui.EndProgress();
    return SaveProject(ctx, ctx.project.projectFilePath.GetFullPath());
}

void ImportMapFromProject(AppContext& ctx)
{
    if (!CheckMapProject(ctx, true))
        return;
    FileChoiceForm form;
    form.title = "Load Modbus Map From Project";
    form.folder = ctx.env.TgxProjectPath;
    form.fileName = "*.prj";
    form.wildcard = "*.prj";
    form.mustExist = true;
    if (!ctx.ui.ChooseFile(form) || form.path.empty())
        return;
    ImportMapFromProjectFile(ctx, form.path);
}

bool ImportMapFromProjectFile(AppContext& ctx, const wxString& otherProject)
{
    const bool read = ReadProjectMap(otherProject, ctx.project.modbusMapLines) == TextFileRead::Read;
    if (!read)
        ctx.ui.ShowMessage("This project does not have a modbus map associated with it.");
    return SaveProject(ctx, ctx.project.projectFilePath.GetFullPath()) && read;
}

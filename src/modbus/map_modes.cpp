#include "modbus/map_modes.h"

#include "base/app_context.h"
#include "deploy/map_chain.h"
#include "deploy/project_save.h"
#include "project/project.h"
#include "project/project_file.h"

bool SwitchMapMode(AppContext& ctx, bool toAutomatic, bool itemWasUnchecked)
{
    if (!CheckMapProject(ctx, true) || !itemWasUnchecked)
        return false;
    const char* question = toAutomatic ? "Enable Automatic Modbus Map Generation\n\n"
                                         "The user defined modbus map will be lost !! Do you wish to continue ?"
                                       : "Enable User Defined Map\n\n"
                                         "Automatic modbus map generation will be disabled !! Do you wish to continue ?";
    if (!ctx.ui.AskYesNo(QuestionForm{question, "Warning", MessageIcon::None}))
        return false;
    Project& project = ctx.project;
    project.automaticModbusMap = toAutomatic ? 1 : 0;
    project.projectSaved = 0;
    ctx.ui.RefreshPanel();
    // To automatic: this save already replaces the map with a generated one.
    return SaveProject(ctx, project.projectFilePath.GetFullPath());
}

void DeleteModbusMap(AppContext& ctx)
{
    if (!CheckMapProject(ctx, false))
        return;
    if (!ctx.ui.AskYesNo(QuestionForm{"Are you sure you wish to delete the existing Modbus Map ?", "Warning",
                                      MessageIcon::None}))
        return;
    ctx.project.modbusMapLines.Clear();
    ctx.ui.ShowMessage("Map Deleted");
}

#include "deploy/project_save.h"

#include "base/app_context.h"
#include "deploy/automatic_map.h"
#include "project/project.h"
#include "project/project_file.h"

bool SaveProject(AppContext& ctx, const wxString& path)
{
    if (!WriteProjectFile(ctx, path))
        return false;
    if (ctx.project.automaticModbusMap == 1)
        GenerateAutomaticMap(ctx);
    return WriteProjectMapFile(ctx, path);
}

bool ConfirmDiscardUnsaved(AppContext& ctx)
{
    if (ctx.project.projectSaved != 0)
        return true;
    return ctx.ui.AskYesNo(QuestionForm{
        "The current project has not been saved and will be lost.\nAre you sure you wish to continue ?", "Warning"});
}

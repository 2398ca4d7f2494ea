#include "deploy/map_chain.h"

#include "base/app_context.h"
#include "base/text_file.h"
#include "deploy/device_tools.h"
#include "project/project.h"

#include <wx/filefn.h>
#include <wx/log.h>

bool CheckMapProject(AppContext& ctx, bool needsName)
{
    if (ctx.project.projectOpen == 0) {
        ctx.ui.ShowMessage("No Project open");
        return false;
    }
    if (needsName && !ctx.project.projectFilePath.IsOk()) {
        ctx.ui.ShowMessage("The current project has no name as it has not yet been saved.\n"
                           "You must save this project first");
        return false;
    }
    return true;
}

wxString MapChainFile(const AppContext& ctx, const char* name)
{
    return BuildFolder(ctx, "OUTPUT") + ctx.platform.PathSeparator() + name;
}

bool WriteMapChainScript(const AppContext& ctx)
{
    wxArrayString lines;
    lines.Add("#include defs.ini");
    lines.Add("#include app.ini");
    return WriteTextLines(MapChainFile(ctx, "_temp.ini"), lines, nullptr, SaveKind::Scratch);
}

void RemoveMapChainFile(const AppContext& ctx, const char* name)
{
    const wxString file = MapChainFile(ctx, name);
    wxLogNull quiet;
    if (wxFileExists(file))
        wxRemoveFile(file);
}

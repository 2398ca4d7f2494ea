#include "modbus/map_editing.h"

#include "base/app_context.h"
#include "base/text_file.h"
#include "deploy/config_generator.h"
#include "deploy/device_tools.h"
#include "deploy/installation_turn.h"
#include "deploy/map_chain.h"
#include "deploy/project_save.h"
#include "project/project.h"
#include "project/project_file.h"

#include <wx/filefn.h>
#include <wx/log.h>

namespace {

// The configuration built, the chain run and the map edited, all in the build folder, in one turn.
bool EditInBuildFolder(AppContext& ctx, const wxString& projectPath)
{
    const InstallationTurn turn(ctx);
    wxString errorText, outputFolder, outputName;
    if (!GenerateConfiguration(ctx, errorText, outputFolder, outputName))
        return false;
    ctx.tools.SetWorkingDirectory(BuildFolder(ctx, "OUTPUT"));
    if (!wxFileExists(MapChainFile(ctx, "app.ini"))) {
        ctx.ui.ShowMessage("Unable to locate or open file app.ini");
        return false;
    }
    WriteMapChainScript(ctx);
    // Unlike the automatic map, any exit code but 0 counts here.
    const long datCode =
        ctx.tools.RunBlockingHidden(ctx.platform.RedirectedCommand("inifile _temp -p=../ADDITIONAL -db", "_temp.dat"));
    if (datCode != 0) {
        ctx.ui.ShowMessage(wxString::Format("Unable to generate _temp.dat file from _temp.ini %ld", datCode));
        RemoveMapChainFile(ctx, "_temp.ini");
        RemoveMapChainFile(ctx, "_temp.dat");
        return false;
    }
    RemoveMapChainFile(ctx, "_temp.ini");
    if (ctx.tools.RunBlockingHidden(ctx.platform.ShellCommand("dbtojson _temp.dat _temp.json")) != 0) {
        ctx.ui.ShowMessage("Unable to generate _temp.json file from _temp.dat");
        RemoveMapChainFile(ctx, "_temp.dat");
        RemoveMapChainFile(ctx, "_temp.json");
        return false;
    }
    RemoveMapChainFile(ctx, "_temp.dat");
    bool copied;
    {
        wxLogNull quiet;
        copied = wxCopyFile(MapFilePath(projectPath), MapChainFile(ctx, "_temp.mbd"), true);
    }
    if (!copied) {
        ctx.ui.ShowMessage("Unable to copy project modbus file to _temp.mbd");
        RemoveMapChainFile(ctx, "_temp.json");
        return false;
    }
    // The byte order is the float swap code. Waits until the editor is closed; its exit code says nothing the map file does not.
    ctx.tools.RunBlockingHidden(ToolCommand("mbedit")
                                    .Arg("/d")
                                    .Arg("_temp.json")
                                    .Arg("/m")
                                    .Arg("_temp.mbd")
                                    .Arg("/s")
                                    .Arg(wxString::Format("%d", FloatSwapCode(ctx.project))));
    RemoveMapChainFile(ctx, "_temp.json");
    // The editor's map, as far as a gateway takes it; one that cannot be read leaves the map as it was.
    ReadFirstTextLines(MapChainFile(ctx, "_temp.mbd"), ctx.project.modbusMapLines);
    RemoveMapChainFile(ctx, "_temp.mbd");
    return true;
}

}  // namespace

bool EditModbusMap(AppContext& ctx)
{
    if (!CheckMapProject(ctx, true))
        return false;
    const wxString projectPath = ctx.project.projectFilePath.GetFullPath();
    // The map file beside the project is what the editor starts from.
    if (!SaveProject(ctx, projectPath))
        return false;
    if (!EditInBuildFolder(ctx, projectPath))
        return false;
    return SaveProject(ctx, projectPath);
}

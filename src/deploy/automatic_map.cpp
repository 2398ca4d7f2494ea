#include "deploy/automatic_map.h"

#include "base/app_context.h"
#include "base/text_file.h"
#include "deploy/config_generator.h"
#include "deploy/device_tools.h"
#include "deploy/installation_turn.h"
#include "deploy/map_chain.h"
#include "project/project.h"

void GenerateAutomaticMap(AppContext& ctx)
{
    const InstallationTurn turn(ctx);
    // Empty folder and name: the generator's defaults. Its failure is not reported here.
    wxString errorText, outputFolder, outputName;
    if (!GenerateConfiguration(ctx, errorText, outputFolder, outputName))
        return;
    ctx.tools.SetWorkingDirectory(BuildFolder(ctx, "OUTPUT"));
    WriteMapChainScript(ctx);
    const long code =
        ctx.tools.RunBlockingHidden(ctx.platform.RedirectedCommand("inifile _temp -p=../ADDITIONAL -mb", "_temp.mbd"));
    RemoveMapChainFile(ctx, "_temp.ini");
    // Only a shell that could not be started counts; inifile's own exit code is not looked at.
    if (code < 0) {
        ctx.ui.ShowMessage(wxString::Format("Failed to generate Modbus map - inifile error code %ld", code));
        return;
    }
    // A map file that cannot be read leaves the map as it was. No gateway takes more lines than a
    // map file holds: what a damaged printout has beyond is dropped.
    TextLines generated;
    if (ReadFirstTextLines(MapChainFile(ctx, "_temp.mbd"), generated) != TextFileRead::Read) {
        // "genrated" is misspelt on purpose: the message is kept as users and their notes know it.
        ctx.ui.ShowMessage("Failed to read the auto genrated map file");
        return;
    }
    ctx.project.modbusMapLines.swap(generated);
    RemoveMapChainFile(ctx, "_temp.mbd");
}

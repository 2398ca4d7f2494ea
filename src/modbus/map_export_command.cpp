#include "modbus/map_export_command.h"

#include "base/app_context.h"
#include "base/text_file.h"
#include "deploy/map_chain.h"
#include "modbus/map_export.h"
#include "project/project.h"

void ExportModbusMap(AppContext& ctx)
{
    // A project never saved may be exported too.
    if (!CheckMapProject(ctx, false))
        return;
    FileChoiceForm form;
    form.title = "Export map as CSV or Text file";
    form.folder = ctx.platform.DocumentsDir();
    form.fileName = "data.csv";
    form.wildcard = "CSV files (*.csv)|*.csv|Text files (*.txt)|*.txt";
    form.save = true;
    form.overwritePrompt = true;
    if (!ctx.ui.ChooseFile(form))
        return;
    // The layout follows the chosen name alone, whatever filter was selected.
    WriteMapExport(form.path, ctx.project.modbusMapLines);
}

#include "commands/conflict_check.h"

#include "base/app_context.h"

bool ListingNamesConflict(const wxArrayString& lines)
{
    static const char* const products[] = {"tgx templates", "tgx tools", "tgx firmware", "tarn tools"};
    bool conflict = false;
    for (const wxString& line : lines) {
        const wxString lower = line.Lower();
        for (const char* product : products)
            if (lower.Contains(product))
                conflict = true;
    }
    return conflict;
}

bool CheckConflictingSoftware(AppContext& ctx)
{
    bool conflict = false;
    for (const wxString& query : ctx.platform.InstalledSoftwareQueries()) {
        wxArrayString lines;
        ctx.tools.RunCaptured(ToolCommand::FixedLine(query), lines);
        conflict = ListingNamesConflict(lines) || conflict;
    }
    if (!conflict)
        return true;
    ctx.ui.ShowMessage(MessageForm{"Previous versions of TARN software have been detected on this computer\n"
                                   "You MUST uninstall the following software:-\n\n"
                                   " TGx Templates\n TGx Tools\n TARN Tools\n TGx Firmware\n\n"
                                   "This program will now exit.",
                                   "Software Version Conflict", MessageIcon::Warning, false});
    return false;
}

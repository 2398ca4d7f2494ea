#include "app/startup.h"

#include "app/app_context.h"

#include <wx/intl.h>

wxString initialTargetAddress = "192.168.1.250";

bool RunStartup(AppContext& ctx)
{
    if (!ReadInstallationEnvironment(ctx.platform, ctx.env)) {
        ctx.ui.ShowMessage(MessageForm{"Cannot locate registry entries required by this program\n\n"
                                       "This program cannot continue and will now terminate",
                                       "Alert - Program cannot continue", MessageIcon::Error});
        return false;
    }
    DeriveInstallationPaths(ctx.env, ctx.platform.PathSeparator(), ctx.platform.DocumentsDir());

    ctx.target.targetHost.clear();
    ctx.target.targetEntry.clear();
    ctx.deviceTypes.deviceTypeCount = 0;

    ctx.tools.SetWorkingDirectory(ctx.env.TgxSoftwarePath);
    // The updater's output and result are not looked at; it does its own reporting.
    const wxString updater = ctx.platform.SilentUpdaterCommand(ctx.env.TgxSoftwarePath);
    if (!updater.empty()) {
        wxArrayString ignored;
        ctx.tools.RunCaptured(updater, ignored);
    }

    if (!LoadDeviceTypeTable(DeviceTypeFilePath(ctx.env), ctx.deviceTypes)) {
        ctx.ui.ShowMessage(wxGetTranslation("FAULT : cannot locate ct.cfg file"));
        return false;
    }

    LoadDefaultProject(ctx.project);
    ctx.project.projectSaved = 1;
    ctx.project.projectOpen = 0;
    ctx.ui.RefreshPanel();

    ctx.ui.ShowStatus(VersionStatusLine(ctx.env));
    ctx.tools.SetEnvironment("TT_SSH_PORT", "22");
    return true;
}

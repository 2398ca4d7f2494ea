#include "commands/startup.h"

#include "base/app_context.h"
#include "project/project.h"

#include <wx/intl.h>

const char* const kInitialTargetAddress = "192.168.1.250";

bool ReadInstallation(Platform& platform, InstallationEnvironment& env, MessageForm& fault)
{
    if (!ReadInstallationEnvironment(platform, env)) {
        fault = MessageForm{"Cannot locate registry entries required by this program\n\n"
                            "This program cannot continue and will now terminate",
                            "Alert - Program cannot continue", MessageIcon::Error, false};
        return false;
    }
    DeriveInstallationPaths(env, platform.PathSeparator(), platform.DocumentsDir());
    return true;
}

bool ReadDeviceTypes(const InstallationEnvironment& env, DeviceTypeTable& table, MessageForm& fault, bool* refused)
{
    table.deviceTypeCount = 0;
    const TextFileRead read = LoadDeviceTypeTable(DeviceTypeFilePath(env), table);
    if (read == TextFileRead::Missing) {
        fault = MessageForm{wxGetTranslation("FAULT : cannot locate ct.cfg file"), wxString(), MessageIcon::None};
        return false;
    }
    if (refused != nullptr)
        *refused = read == TextFileRead::Refused;
    return true;
}

bool RunStartup(AppContext& ctx)
{
    MessageForm fault;
    if (!ReadInstallation(ctx.platform, ctx.env, fault)) {
        ctx.ui.ShowMessage(fault);
        return false;
    }

    ctx.target.targetHost.clear();
    ctx.target.targetEntry.clear();
    ctx.deviceTypes.deviceTypeCount = 0;

    ctx.tools.SetWorkingDirectory(ctx.env.TgxSoftwarePath);
    // The updater's output and result are not looked at; it does its own reporting. It runs
    // before ct.cfg is read, since an update may bring new templates.
    const wxString updater = ctx.platform.SilentUpdaterCommand(ctx.env.TgxSoftwarePath);
    if (!updater.empty()) {
        wxArrayString ignored;
        ctx.tools.RunCaptured(ToolCommand::FixedLine(updater), ignored);
    }

    if (!ReadDeviceTypes(ctx.env, ctx.deviceTypes, fault)) {
        ctx.ui.ShowMessage(fault);
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

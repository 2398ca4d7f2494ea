#include "deploy/maintenance_commands.h"

#include "base/app_context.h"
#include "deploy/device_tools.h"

#include <wx/filefn.h>

bool RebootTarget(AppContext& ctx)
{
    if (!PromptTargetAddress(ctx))
        return false;
    ctx.ui.BeginProgress("Reboot Target", "Restarting the HART Gateway");
    ctx.ui.PulseProgress("Restarting the HART Gateway");
    const bool restarted = RebootDevice(ctx, 1);
    if (!restarted)
        ctx.ui.ShowMessage("ERROR : Failed to reboot TG7");
    // "Done" follows a failed restart too: kept in this order on purpose.
    ctx.ui.PulseProgress("Done");
    ctx.ui.WaitSeconds(1);
    ctx.ui.EndProgress();
    return restarted;
}

bool UploadInstaller(AppContext& ctx, const wxString& folder, const wxString& name)
{
    const wxString local = folder + ctx.platform.PathSeparator() + name + ".msi";
    const wxString remote = "/var/www/html/downloads/" + name + ".msi";
    if (!wxFileExists(local))
        return false;
    wxArrayString output;
    return ctx.tools.RunCaptured(ToolCommand("ttputfile").QuotedArg(ctx.target.targetHost).QuotedArg(local).Arg(remote).Arg("-c"),
                                 output) == 0;
}

bool UploadInstallers(AppContext& ctx)
{
    // "proceedure" and "recomended" as users have always read them: kept on purpose.
    if (!ctx.ui.AskYesNo(QuestionForm{"Uploading the software package installers to the TG7 will take several minutes.\n"
                                      "This proceedure is not recomended if you are connected over a WAN\n"
                                      "or over a slow or unreliable network\n\nDo you wish to continue ?",
                                      "Upload Installers", MessageIcon::Exclamation}))
        return false;
    if (!PromptTargetAddress(ctx))
        return false;
    ctx.ui.BeginProgress("Installer Upload", "Uploading TGxSoftwareSuite");
    ctx.ui.PulseProgress("Uploading TGxSoftwareSuite Installer\nThis will take a minute or two ...");
    bool uploaded = false;
    wxString result;
    if (!UploadInstaller(ctx, ctx.env.TgxSoftwareInstallerPath, "TGxSoftwareSuite")) {
        result = "Failed to upload TgxSoftwareSuite Installer";
    } else {
        ctx.ui.PulseProgress("Uploading TGxConnect Installer\nThis will take a minute or two ...");
        uploaded = UploadInstaller(ctx, ctx.env.TgxConnectInstallerPath, "TGxConnect");
        result = uploaded ? "Installer upload complete" : "Failed to upload TgxConnect Installer";
    }
    ctx.ui.EndProgress();
    ctx.ui.ShowMessage(result);
    return uploaded;
}

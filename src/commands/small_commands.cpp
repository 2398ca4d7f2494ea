#include "commands/small_commands.h"

#include "base/app_context.h"
#include "deploy/device_tools.h"

wxString AboutDescription(const InstallationEnvironment& env)
{
    struct Line {
        const char* label;  // the tabs line the values up in the About box
        const wxString& value;
    };
    const Line versions[] = {
        {"TGxSoftwareVersion : \t", env.TGxSoftwareVersion},
        {"TGxConnectVersion : \t", env.TGxConnectVersion},
        {"FirmwareVersion : \t", env.FirmwareVersion},
        {"TemplatesVersion : \t", env.TemplatesVersion},
    };
    const Line paths[] = {
        {"TgxSoftwarePath : \t", env.TgxSoftwarePath},
        {"TGxConnectPath : \t", env.TGxConnectPath},
        {"TgxSoftwareInstallerPath : \t", env.TgxSoftwareInstallerPath},
        {"TgxConnectInstallerPath : \t", env.TgxConnectInstallerPath},
        {"TgxTemplatesPath : \t", env.TgxTemplatesPath},
        {"TgxProjectPath : \t\t", env.TgxProjectPath},
        {"TgxFirmwarePath : \t", env.TgxFirmwarePath},
        {"TgxDocumentPath : \t", env.TgxDocumentPath},
        {"TgxBuildPath : \t\t", env.TgxBuildPath},
    };
    wxString text = "Configuration Utility for TG7-Plus HART Gateway\n\n";
    for (const Line& line : versions)
        text << line.label << line.value << "\n";
    text << "\n";
    for (const Line& line : paths)
        text << line.label << line.value << "\n";
    return text;
}

void OpenDocumentation(AppContext& ctx)
{
    FileChoiceForm form{"Select a document", ctx.env.TgxDocumentPath, wxString(), "*.pdf", false, false, true, {}};
    if (ctx.ui.ChooseFile(form) && !form.path.empty())
        ctx.platform.OpenWithDefaultApplication(form.path);
}

void CheckForUpdates(AppContext& ctx)
{
    ctx.tools.SetWorkingDirectory(ctx.env.TgxSoftwarePath);
    const wxString updater = ctx.platform.UpdaterCommand(ctx.env.TgxSoftwarePath);
    if (updater.empty())
        return;
    wxArrayString ignored;
    ctx.tools.RunCaptured(ToolCommand::FixedLine(updater), ignored);
}

void ViewLiveData(AppContext& ctx)
{
    if (PromptTargetAddress(ctx))
        ctx.tools.RunDetached(ToolCommand("tgxview").QuotedArg("-a=" + ctx.target.targetHost));
}

void ChangeNetworkSettings(AppContext& ctx) { ctx.tools.RunDetached(ToolCommand("tgxfinder")); }

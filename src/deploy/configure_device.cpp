#include "deploy/configure_device.h"

#include "base/app_context.h"
#include "deploy/config_generator.h"
#include "deploy/device_tools.h"
#include "deploy/installation_turn.h"
#include "deploy/project_save.h"
#include "project/project.h"
#include "project/project_file.h"

const char* const kTagNamePrompt = "Enter a Tagname for this TG7";

namespace {

void Fail(AppContext& ctx, const wxString& message)
{
    ctx.ui.EndProgress();
    ctx.ui.ShowMessage(message);
}

// The gateway's firmware must be the one this software was built for.
bool CheckGatewayVersions(AppContext& ctx)
{
    ctx.ui.PulseProgress("Checking firmware and templates versions");
    // "ttdevtyp" without its final e: the text users and support know.
    const wxString problem
        = GatewayVersionProblem(ctx, "ttdevtyp Could not connect to TG7, check IP address and network connection");
    if (problem.empty())
        return true;
    Fail(ctx, problem);
    return false;
}

}  // namespace

wxString ReadGatewayVersions(AppContext& ctx, const wxString& cannotConnect, GatewayVersions& versions)
{
    wxArrayString report;
    const long code = ctx.tools.RunCaptured(ToolCommand("ttdevtype").QuotedArg(ctx.target.targetHost), report);
    if (code < 0)
        return cannotConnect;
    if (report.size() < 3)
        return "Could not determine TG7 type, unable to proceed";
    versions = GatewayVersions{report[0], ReportedVersion(report[1]), ReportedVersion(report[2])};
    if (versions.firmware.empty())
        return "Could not determine TG7 Firmware version (ttdevtype format error), unable to proceed";
    if (versions.templates.empty())
        return "Could not determine TG7 Templates (ttdevtype format error), unable to proceed";
    return wxString();
}

wxString GatewayVersionProblem(AppContext& ctx, const wxString& cannotConnect)
{
    GatewayVersions versions;
    const wxString problem = ReadGatewayVersions(ctx, cannotConnect, versions);
    if (!problem.empty())
        return problem;
    if (versions.firmware != ctx.env.FirmwareVersion)
        return "The firmware installed on the TG7 is not compatible with this version of TGx Software Suite. "
               "Before you can configure your device you must update the firmware using the 'Update Firmware' "
               "option under the 'Target' menu";
    return wxString();
}

wxString ReportedVersion(const wxString& line)
{
    const int v = line.Find('v', true);
    const wxString afterV = v == wxNOT_FOUND ? line : line.Mid(v + 1);
    return afterV.BeforeFirst('-');
}

bool ConfigureDevice(AppContext& ctx)
{
    Project& project = ctx.project;
    if (!project.projectFilePath.IsOk()) {
        ctx.ui.ShowMessage("The current project has no name as it has not yet been saved.\n"
                           "You must save this project first");
        return false;
    }
    if (project.modbusMapLines.empty() &&
        !ctx.ui.AskYesNo(QuestionForm{"WARNING : There is no Modbus Map configured for this project\n"
                                      "You can create or edit a map using the Modbus menu\n\n"
                                      "Do you wish to continue without a map ?",
                                      "Warning", MessageIcon::Exclamation}))
        return false;
    if (!PromptTargetAddress(ctx))
        return false;
    TextEntryForm tag{kTagNamePrompt, "User entry required", GetText(project.tagName), kTagCharacters};
    if (!ctx.ui.EnterText(tag))
        return false;
    // Cut without a word, as the gateway has always taken it.
    SetText(project.tagName, tag.value.Left(kGatewayTagLength));

    // Saved before anything is sent, so the project on disk matches what the gateway gets.
    const bool saved = SaveProject(ctx, project.projectFilePath.GetFullPath());
    ctx.ui.RefreshPanel();
    if (!saved)
        return false;

    ctx.ui.BeginProgress("Device configuration", "Configuring device .. Please wait");
    if (!CheckGatewayVersions(ctx))
        return false;
    ctx.ui.PulseProgress("Building Configuration");
    {
        // Built and uploaded in one turn: no other run's files can come between.
        const InstallationTurn turn(ctx);
        wxString errorText, outputFolder, outputName;
        if (!GenerateConfiguration(ctx, errorText, outputFolder, outputName)) {
            Fail(ctx, errorText);
            return false;
        }
        ctx.ui.PulseProgress("Uploading Configuration");
        if (!UploadConfiguration(ctx, errorText)) {
            Fail(ctx, errorText);
            return false;
        }
    }
    ctx.ui.PulseProgress("Restarting the HART Gateway");
    if (!RebootDevice(ctx, 1)) {
        Fail(ctx, "ERROR : Failed to reboot TG7");
        return false;
    }
    ctx.ui.PulseProgress("Done");
    ctx.ui.WaitSeconds(1);
    ctx.ui.EndProgress();
    ctx.ui.ShowMessage("Configuration Complete");
    return true;
}

#include "deploy/firmware_update.h"

#include "base/app_context.h"
#include "base/text_file.h"
#include "deploy/config_generator.h"
#include "deploy/device_tools.h"
#include "deploy/installation_turn.h"
#include "deploy/project_save.h"
#include "project/project.h"
#include "project/project_file.h"

#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/log.h>

#include <memory>

const char* const kMigrateProjectName = "migrateTemp.prj";

namespace {

wxString ProjectFolderFile(const AppContext& ctx, const char* name)
{
    return ctx.env.TgxProjectPath + ctx.platform.PathSeparator() + name;
}

void RemoveQuietly(const wxString& file)
{
    wxLogNull quiet;
    if (wxFileExists(file))
        wxRemoveFile(file);
}

bool RunOnGateway(AppContext& ctx, const ToolCommand& command)
{
    wxArrayString output;
    return ctx.tools.RunCaptured(command, output) == 0;
}

// The device's own project and map become the open project; a download that fails is not
// reported (the defaults, or the map as it is, stay).
void ReadDeviceProject(AppContext& ctx)
{
    Project& project = ctx.project;
    const wxString projectFile = ProjectFolderFile(ctx, "tgxconfig.prj");
    if (FetchDeviceFile(ctx, "TG7/tgxconfig.prj", projectFile)) {
        ProjectLineReader reader;
        ReadTextFile(projectFile, [&](const wxString& line) { ParseProjectLine(project, line, reader); });
        RemoveQuietly(projectFile);
    }
    project.projectOpen = 1;

    const wxString mapFile = ProjectFolderFile(ctx, "MBMAP1.csv");
    if (FetchDeviceFile(ctx, "TG7/MBMAP1.csv", mapFile)) {
        ReadTextLines(mapFile, project.modbusMapLines);
        RemoveQuietly(mapFile);
        return;
    }
    wxArrayString printed;
    if (PrintDeviceMap(ctx, printed))
        project.modbusMapLines = printed;
}

bool Fail(AppContext& ctx, const wxString& errorText)
{
    ctx.ui.EndProgress();
    ctx.ui.ShowMessage("ERROR : " + errorText);
    return false;
}

}  // namespace

bool UploadFirmwarePackage(AppContext& ctx, wxString& errorText)
{
    const wxString& host = ctx.target.targetHost;
    ctx.ui.PulseProgress("Uploading firmware ...");
    ctx.tools.SetWorkingDirectory(ctx.env.TgxFirmwarePath);
    if (!RunOnGateway(ctx, ToolCommand("ttfirmware").QuotedArg(host).Arg("TG7main-v" + ctx.env.FirmwareVersion))) {
        errorText = "Failed to upload firmware";
        return false;
    }
    ctx.ui.PulseProgress("Uploading documentation ...");
    ctx.tools.SetWorkingDirectory(ctx.env.TgxDocumentPath);
    if (!RunOnGateway(ctx, ToolCommand("ttputfile")
                                .QuotedArg(host)
                                .QuotedArg("TG7+ User Guide.pdf")
                                .Arg("/var/www/html/downloads/TG7UserGuide.pdf")) ||
        !RunOnGateway(ctx, ToolCommand("ttputfile")
                                .QuotedArg(host)
                                .QuotedArg("mbEdit User Guide.pdf")
                                .Arg("/var/www/html/downloads/mbEditUserGuide.pdf"))) {
        errorText = "Failed to upload documentation";
        return false;
    }
    ctx.ui.PulseProgress("Uploading website ...");
    ctx.tools.SetWorkingDirectory(ctx.env.TgxFirmwarePath);
    if (!RunOnGateway(ctx, ToolCommand("ttputfile").QuotedArg(host).Arg("index.html").Arg("/var/www/html/index.html"))) {
        errorText = "Failed to upload website";
        return false;
    }
    return true;
}

bool UpdateFirmware(AppContext& ctx)
{
    if (!PromptTargetAddress(ctx))
        return false;
    if (!ctx.ui.AskYesNo(QuestionForm{"Update TG7 firmware to version " + ctx.env.FirmwareVersion +
                                          "\nAre you sure you want to continue",
                                      "Warning", MessageIcon::None}))
        return false;
    ctx.ui.BeginProgress("Firmware Update", "Migrating existing project");
    ctx.ui.PulseProgress("Copying current project file and modbus map from TG7");

    // The user's project waits in a plain copy of the whole record.
    Project& project = ctx.project;
    const auto saved = std::make_unique<Project>(project);
    LoadDefaultProject(project);
    project.automaticModbusMap = 1;
    project.projectSaved = 1;
    project.projectFilePath.Clear();

    // The downloads and the migrated project go to the project folder, which a fresh
    // installation may not have yet.
    {
        wxLogNull quiet;  // a folder that cannot be made shows in the save that follows
        wxFileName::Mkdir(ctx.env.TgxProjectPath, wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
    }
    // From the downloads into the project folder to the removal of the migrated project, the files
    // of this gateway lie under fixed names in the installation's folders.
    const InstallationTurn turn(ctx);
    ReadDeviceProject(ctx);
    const int migratedDevices = project.deviceCount;
    const wxString migratePath = ProjectFolderFile(ctx, kMigrateProjectName);
    project.projectFilePath.Assign(migratePath);
    if (!SaveProject(ctx, migratePath)) {
        project = *saved;
        ctx.ui.EndProgress();
        return false;
    }

    wxString errorText;
    if (!UploadFirmwarePackage(ctx, errorText))
        return Fail(ctx, errorText);
    ctx.ui.PulseProgress("Rebuilding configuration");
    wxString outputFolder, outputName = "tgxconfig.prj";
    if (!GenerateConfiguration(ctx, errorText, outputFolder, outputName))
        return Fail(ctx, errorText);
    ctx.ui.PulseProgress("Uploading configuration");
    if (!UploadConfiguration(ctx, errorText))
        return Fail(ctx, errorText);
    ctx.ui.PulseProgress("Restarting the HART Gateway");
    // The gateway restarts with its own device count, unlike Configure and Reboot (1): kept so.
    if (!RebootDevice(ctx, migratedDevices))
        return Fail(ctx, "Failed to reboot TG7");

    project = *saved;
    ctx.ui.RefreshPanel();
    RemoveQuietly(migratePath);
    RemoveQuietly(MapFilePath(migratePath));
    ctx.ui.EndProgress();
    ctx.ui.ShowMessage("Firmware update complete\n\nYou may wish to upload the software installation files\n"
                       "to the TG7 (this is optional). You can do this from\n"
                       "the 'Upload Installation files' under the 'target' menu.");
    return true;
}

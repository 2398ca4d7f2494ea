#include "commands/project_commands.h"

#include "base/app_context.h"
#include "base/number_text.h"
#include "base/text_file.h"
#include "deploy/project_save.h"
#include "project/project.h"
#include "project/project_file.h"

namespace {

FileChoiceForm ProjectFileForm(const AppContext& ctx, const char* title, bool save)
{
    FileChoiceForm form;
    form.title = title;
    form.folder = ctx.env.TgxProjectPath;
    form.wildcard = "*.prj";
    form.save = save;
    form.overwritePrompt = save;
    form.mustExist = !save;
    return form;
}

// The desktop's file dialog on Linux does not add the filter's extension to a typed name; without
// it the project would not show up in Load from Disk.
wxString WithProjectExtension(const wxString& path)
{
    return path.Lower().EndsWith(".prj") ? path : path + ".prj";
}

void MarkEdited(AppContext& ctx)
{
    ctx.project.projectSaved = 0;
}

// A number chosen or typed in the panel: its leading digits, 0 when there are none.
int TypedInt(const wxString& text)
{
    long value = 0;
    ParseTypedNumber(text, value);
    return static_cast<int>(value);
}

}  // namespace

void NewProject(AppContext& ctx)
{
    if (!ConfirmDiscardUnsaved(ctx))
        return;
    FileChoiceForm form = ProjectFileForm(ctx, "Create New Project", true);
    if (!ctx.ui.ChooseFile(form) || form.path.empty())
        return;
    const wxString path = WithProjectExtension(form.path);
    LoadDefaultProject(ctx.project);
    ctx.project.projectFilePath.Assign(path);
    // The file and its map exist from the first moment.
    SaveProject(ctx, path);
    ctx.ui.RefreshPanel();
}

const char* const kNoContentMessage = "Invalid project file (no content)";

void LoadProjectFromDisk(AppContext& ctx)
{
    if (!ConfirmDiscardUnsaved(ctx))
        return;
    FileChoiceForm form = ProjectFileForm(ctx, "Load Project", false);
    if (!ctx.ui.ChooseFile(form) || form.path.empty())
        return;
    switch (ReadProjectFromDisk(ctx, form.path)) {
    case ProjectReadResult::Unreadable: return;
    case ProjectReadResult::MapUnreadable: return;
    case ProjectReadResult::NoContent: ctx.ui.ShowMessage(kNoContentMessage); return;
    case ProjectReadResult::Read: break;
    }
    ctx.ui.RefreshPanel();
    // Every load rewrites the project and its map in the current format; an older ".mb" map
    // is left in place beside the new ".mbd".
    SaveProject(ctx, form.path);
}

void SaveProjectCommand(AppContext& ctx)
{
    if (!ctx.project.projectFilePath.IsOk()) {
        SaveProjectAs(ctx);
        return;
    }
    SaveProject(ctx, ctx.project.projectFilePath.GetFullPath());
}

void SaveProjectAs(AppContext& ctx)
{
    FileChoiceForm form = ProjectFileForm(ctx, "Save Project As ...", true);
    if (!ctx.ui.ChooseFile(form) || form.path.empty())
        return;
    const wxString path = WithProjectExtension(form.path);
    ctx.project.projectFilePath.Assign(path);
    SaveProject(ctx, path);
    ctx.ui.RefreshPanel();
}

void CloseProject(AppContext& ctx)
{
    if (ctx.project.projectOpen == 0 || !ConfirmDiscardUnsaved(ctx))
        return;
    // The settings stay in memory; the next New or Load replaces them.
    ctx.project.projectSaved = 1;
    ctx.project.projectOpen = 0;
    ctx.project.projectFilePath.Clear();
    ctx.ui.RefreshPanel();
}

void SetSerialPortFunction(AppContext& ctx, const char* function)
{
    SetText(ctx.project.serialPortFunction, function);
    MarkEdited(ctx);
    ctx.ui.RefreshPanel();
}

void SetPollingDeferralMode(AppContext& ctx, const char* mode)
{
    SetText(ctx.project.pollingDeferralMode, mode);
    MarkEdited(ctx);
    ctx.ui.RefreshPanel();
}

void SetInterfaceStandard(AppContext& ctx, const wxString& choice)
{
    SetText(ctx.project.serialPortType, choice);
    MarkEdited(ctx);
}

void SetBaudRate(AppContext& ctx, const wxString& choice)
{
    ctx.project.serialBaudRate = TypedInt(choice);
    MarkEdited(ctx);
}

void SetParity(AppContext& ctx, const wxString& choice)
{
    const char* stored = choice == "Odd" ? "ODDPARITY" : choice == "Even" ? "EVENPARITY" : "NOPARITY";
    SetText(ctx.project.serialParity, stored);
    MarkEdited(ctx);
}

void SetStopBits(AppContext& ctx, const wxString& choice)
{
    ctx.project.serialStopBits = TypedInt(choice);
    MarkEdited(ctx);
}

void SetRtuAddress(AppContext& ctx, const wxString& text)
{
    // The entry also loses the focus when the panel is hidden by Close: that is not an edit.
    if (ctx.project.projectOpen == 0)
        return;
    ctx.project.modbusRtuAddress = TypedInt(text);
    MarkEdited(ctx);
}

void SetFloatSwap(AppContext& ctx, FloatSwap which, bool on)
{
    int& field = which == FloatSwap::Bytes   ? ctx.project.floatSwapBytes
                 : which == FloatSwap::Words ? ctx.project.floatSwapWords
                                             : ctx.project.floatSwapLongs;
    field = on ? 1 : 0;
    MarkEdited(ctx);
}

void SetNanControl(AppContext& ctx, bool on)
{
    ctx.project.nanControl = on ? 1 : 0;
    MarkEdited(ctx);
}

void SetPrimaryMaster(AppContext& ctx, bool primary)
{
    ctx.project.primaryMaster = primary ? 1 : 0;
    MarkEdited(ctx);
}

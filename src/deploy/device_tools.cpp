#include "deploy/device_tools.h"

#include "base/app_context.h"
#include "base/text_file.h"

const char* const kTargetAddressPrompt = "Enter device IP address or domain name";

bool PromptTargetAddress(AppContext& ctx)
{
    TextEntryForm form{kTargetAddressPrompt, "User entry required", ctx.target.targetEntry, {}};
    if (!ctx.ui.EnterText(form))
        return false;
    ApplyTargetAddress(ctx, form.value);
    return true;
}

void ApplyTargetAddress(AppContext& ctx, const wxString& text)
{
    const int colon = text.Find(':', true);
    const wxString host = colon == wxNOT_FOUND ? wxString() : text.Left(colon);
    if (host.empty()) {
        // No host before a colon: the whole text is the address, the port stays as it was.
        ctx.target.targetEntry = text;
        ctx.target.targetHost = text;
        return;
    }
    const wxString port = text.Mid(colon + 1);
    ctx.tools.SetEnvironment("TT_SSH_PORT", port);
    ctx.target.targetEntry = host + ":" + port;
    ctx.target.targetHost = host;
}

wxString BuildFolder(const AppContext& ctx, const char* name)
{
    return ctx.env.TgxBuildPath + ctx.platform.PathSeparator() + name;
}

bool UploadConfiguration(AppContext& ctx, wxString& errorText)
{
    ctx.tools.SetWorkingDirectory(BuildFolder(ctx, "OUTPUT"));
    wxArrayString output;
    const long code = ctx.tools.RunCaptured(ToolCommand("ttrestore").QuotedArg(ctx.target.targetHost).Arg("config"), output);
    if (code == 0)
        return true;
    errorText = wxString::Format("Failed to upload configuration files to TG7 - (ttrestore returned %ld).\n"
                                 "Check IP address, Power and Network connection",
                                 code);
    return false;
}

bool RebootDevice(AppContext& ctx, int a)
{
    wxArrayString output;
    return ctx.tools.RunCaptured(ToolCommand("ttreboot")
                                     .QuotedArg(ctx.target.targetHost)
                                     .Arg(wxString::Format("-s=%d", 60))
                                     .Arg("-w")
                                     .Arg(wxString::Format("-a=%d", a)),
                                 output) == 0;
}

bool FetchDeviceFile(AppContext& ctx, const char* remote, const wxString& local)
{
    wxArrayString output;
    return ctx.tools.RunCaptured(
               ToolCommand("ttgetfile").QuotedArg(ctx.target.targetHost).Arg(remote).QuotedArg(local), output) == 0;
}

bool PrintDeviceMap(AppContext& ctx, wxArrayString& lines)
{
    if (ctx.tools.RunCaptured(ToolCommand("ttmbprint").QuotedArg(ctx.target.targetHost).Arg("-f=2"), lines) != 0)
        return false;
    // No gateway takes a larger map: what a damaged printout has beyond is dropped.
    if (lines.size() > kMaxTextFileLines)
        lines.RemoveAt(kMaxTextFileLines, lines.size() - kMaxTextFileLines);
    return true;
}

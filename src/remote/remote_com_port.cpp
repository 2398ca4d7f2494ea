#include "remote/remote_com_port.h"

#include "base/app_context.h"
#include "base/unicode_text.h"
#include "deploy/installation_turn.h"
#include "project/project.h"

#include <wx/log.h>

#include <cstdio>

const char* const kNoFreeComNames
    = "Unable to create virtual com port because there are no free COM port names on this PC";
const char* const kCannotCreateVirtualPort = "Unable to create virtual com port.";

namespace {

// A new port's address: deliberately the gateway's factory address, not the project's target.
const char* const kFactoryAddress = "192.168.1.250";

}  // namespace

bool ParseVirtualPortReport(const wxString& line, VirtualPortReport& report)
{
    // The report has always been read with this scan format, its quirks included (the address
    // may hold blanks, leading blanks are skipped).
    char name[256], address[256], state[256];
    int port = 0;
    // A report with damaged bytes must not stop the tool when it is encoded for the scan.
    const std::string text = Utf8Bytes(line);
    if (std::sscanf(text.c_str(), "%255s %255[^:]:%d %255s", name, address, &port, state) != 4)
        return false;
    report.comName = wxString::FromUTF8(name);
    report.address = wxString::FromUTF8(address);
    report.port = port;
    return true;
}

bool RemoteComPortCommand(AppContext& ctx)
{
    wxLogNull quiet;  // a ttvsp that cannot be started shows its own message, not a log box
    const ComPortTurn comPort(ctx);
    const wxArrayString freeNames = ctx.platform.FreeComPortNames();
    wxArrayString output;
    if (ctx.tools.RunCaptured(ToolCommand("ttvsp").Arg("-g"), output) == -1) {
        ctx.ui.ShowMessage("Remote Coms Port functionality requires TGxConnect software to be installed");
        return false;
    }
    wxString comName, address, port;
    if (!output.empty()) {
        VirtualPortReport report;
        if (!ParseVirtualPortReport(output[0], report)) {
            ctx.ui.ShowMessage("Unable to determine name of current VSP port");
            return false;
        }
        comName = report.comName;
        address = report.address;
        port = wxString::Format("%d", report.port);
    } else {
        if (freeNames.empty()) {
            ctx.ui.ShowMessage(kNoFreeComNames);
            return false;
        }
        comName = freeNames[0];
        address = kFactoryAddress;
        port = wxString::Format("%d", ctx.project.vcpPort);
        wxArrayString created;
        if (ctx.tools.RunCaptured(ToolCommand("ttvsp").QuotedArg(comName).QuotedArg(address).QuotedArg(wxString::Format("-p=%d", ctx.project.vcpPort)),
                                  created) != 0) {
            ctx.ui.ShowMessage(kCannotCreateVirtualPort);
            return false;
        }
    }

    RemoteForm form{freeNames, comName, address, port};
    // The current name comes last, even when it is free as well.
    form.comNames.Add(comName);
    if (!ctx.ui.EditRemote(form))
        return false;
    wxArrayString ignored;
    if (form.comName != comName)
        ctx.tools.RunCaptured(ToolCommand("ttvsp").Arg("-d"), ignored);
    // Address and port go to ttvsp as typed.
    if (ctx.tools.RunCaptured(ToolCommand("ttvsp").Arg(form.comName).Arg(form.address).Arg("-p=" + form.port), ignored) !=
        0) {
        ctx.ui.ShowMessage("Unable to create virtual com port. Please ensure you have the latest version of TARN "
                           "tools installed");
        return false;
    }
    return true;
}

#include "mux/mux_rebuild.h"

#include "base/app_context.h"
#include "base/mux_scan_window.h"
#include "base/unicode_text.h"
#include "deploy/installation_turn.h"
#include "mux/mux_scan.h"
#include "project/project.h"
#include "remote/remote_com_port.h"

#include <cstdio>

wxString RebuildEstimateText(const MuxRebuildForm& form)
{
    int n = 0;
    for (bool ticked : form.loops)
        n += ticked ? 1 : 0;
    int seconds = 0;
    if (form.firstDeviceSearch)
        seconds = 14 * n + 8;
    else if (form.addressZeroSearch)
        seconds = static_cast<int>(0.85 * n + 8);
    return wxString::Format("%i Secs", seconds);
}

int RebuildLoopMask(const MuxRebuildForm& form)
{
    int mask = 0;
    for (int k = 0; k < 16; ++k) {
        // The box labelled 6 sets bit 5, and bit 6 is never sent: the multiplexers in the field
        // have always been instructed so.
        const int bit = k == 6 ? 5 : k;
        if (form.loops[k])
            mask |= 1 << bit;
    }
    return mask;
}

bool RebuildComplete(const wxString& statusLine)
{
    unsigned int status[5] = {};
    // A status line with damaged bytes must not stop the tool when it is encoded for the scan.
    const std::string text = Utf8Bytes(statusLine);
    if (std::sscanf(text.c_str(), "Additional device status : %x %x %x %x %x", &status[0], &status[1], &status[2],
                    &status[3], &status[4]) != 5)
        return false;
    return (status[0] & 0x40) == 0;  // 0x40: the rebuild is still running
}

bool RebuildMuxLoops(AppContext& ctx, MuxScanWindow& window)
{
    MuxRebuildForm form;
    if (!ctx.ui.EditMuxRebuild(form))
        return false;
    const wxString instructing = "Instructing multiplexer to rebuild its loops - please wait";
    ctx.ui.BeginProgressOver(window, "Multiplexer Status", instructing);
    ctx.ui.PulseProgress(instructing);
    // A failure leaves the progress dialog up under its message, until the handler ends.
    auto fail = [&ctx](const wxString& message) {
        ctx.ui.ShowMessage(message);
        ctx.ui.EndProgress();
        return false;
    };
    const ComPortTurn comPort(ctx);
    const wxArrayString freeNames = ctx.platform.FreeComPortNames();
    if (freeNames.empty())
        return fail(kNoFreeComNames);
    const wxString comName = freeNames[0];
    wxArrayString output;
    if (ctx.tools.RunCaptured(ToolCommand("ttvsp").Arg(comName).Arg(ctx.target.targetHost).Arg(
                              wxString::Format("-p=%d", ctx.project.vcpPort)),
                          output) != 0)
        return fail(kCannotCreateVirtualPort);
    ctx.ui.WaitSeconds(2);
    const ToolCommand rebuild = ToolCommand("pfmux")
                                    .Arg(comName)
                                    .Arg("-wm=1")
                                    .Arg("-wrl=1:1")
                                    .Arg("-wmm=1")
                                    .Arg(wxString::Format("-wlm=%d", form.addressZeroSearch ? 0 : 1))
                                    .Arg(wxString::Format("-rl=%d", RebuildLoopMask(form)));
    const ToolCommand removePort = ToolCommand("ttvsp").Arg(comName).Arg("-d");
    if (ctx.tools.RunCaptured(rebuild, output) != 0) {
        // "Unable communicate": the text as it has always read.
        ctx.ui.ShowMessage("Unable communicate with Multiplexer.");
        ctx.tools.RunCaptured(removePort, output);
        ctx.ui.EndProgress();
        return false;
    }
    ctx.ui.PulseProgress("Waiting for multiplexer to complete rebuild ..");
    // No timeout and no cancel, on purpose: only the multiplexer ends the rebuild.
    for (;;) {
        output.clear();
        ctx.tools.RunCaptured(ToolCommand("pfmux").Arg(comName).Arg("-rads"), output);
        if (!output.empty() && RebuildComplete(output[0]))
            break;
        ctx.ui.PulseProgress(wxString());
        ctx.ui.WaitSeconds(1);
    }
    window.ShowRows({});
    ctx.ui.PulseProgress("Checking multiplexer for discovered devices ..");
    wxArrayString lines;
    const bool listed = ReadMuxDeviceList(ctx, comName, false, 0, lines);
    ctx.ui.EndProgress();
    ctx.tools.RunCaptured(removePort, output);
    if (!listed) {
        ctx.ui.ShowMessage(kMuxNoContact);
        return false;
    }
    window.ShowRows(MuxRowsFromDeviceList(lines));
    return true;
}

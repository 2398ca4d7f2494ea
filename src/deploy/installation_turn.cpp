#include "deploy/installation_turn.h"

#include "base/app_context.h"

#include <wx/filename.h>

const char* const kInstallationLockName = "tgxconfig.lock";

namespace {

// Takes the lock of `file`, waiting (and saying so) while another run holds it. Unavailable: the
// file's folder is not there, and the run fails where it needs it.
void TakeTurn(AppContext& ctx, const wxString& file, const wxString& waiting, std::unique_ptr<InterProcessLock>& lock)
{
    if (ctx.platform.TryLock(file, lock) == LockAttempt::Busy)
        ctx.ui.WaitForOtherRun(waiting, [&] { return ctx.platform.TryLock(file, lock) != LockAttempt::Busy; });
}

}  // namespace

InstallationTurn::InstallationTurn(AppContext& ctx)
{
    // Always in this order, so two runs never wait for each other's second lock.
    const wxString waiting = "Waiting for another run of the configuration tool to finish with ";
    const wxString sep = ctx.platform.PathSeparator();
    TakeTurn(ctx, ctx.env.TgxBuildPath + sep + kInstallationLockName, waiting + ctx.env.TgxBuildPath, buildLock);
    if (wxDirExists(ctx.env.TgxProjectPath))
        TakeTurn(ctx, ctx.env.TgxProjectPath + sep + kInstallationLockName, waiting + ctx.env.TgxProjectPath, projectLock);
}

ComPortTurn::ComPortTurn(AppContext& ctx)
{
    TakeTurn(ctx, wxFileName::GetTempDir() + ctx.platform.PathSeparator() + "tgxconfig-com-port.lock",
             "Waiting for another run of the configuration tool to finish with the virtual COM port", lock);
}

// Runs of the tool on one installation (tgxcfg processes, desktop windows, at once) take turns over
// what they share: the build folder's INCLUDE, ADDITIONAL and OUTPUT, which the suite's tools read
// and write under fixed names, and the working files of the project folder (a download, the
// migrated or base project). A turn is held from its making to its end, by inter-process locks on
// "tgxconfig.lock" in the build folder and (when it is there) in the project folder, which a run
// that ends in any way gives up: the build folder is the installation's, the project folder the
// user's, and two installations may share one user's. A run that must wait says so. Nested turns
// of one run are one turn.
#pragma once

#include "base/process_locks.h"

#include <memory>

struct AppContext;

class InstallationTurn {
public:
    explicit InstallationTurn(AppContext& ctx);

private:
    std::unique_ptr<InterProcessLock> buildLock, projectLock;
};

// The same for the PC's virtual COM port, which the remote COM port settings and the multiplexer
// scan and rebuild create, use and remove under names of the PC's free COM names: one run at a
// time, by a lock in the system's temporary folder.
class ComPortTurn {
public:
    explicit ComPortTurn(AppContext& ctx);

private:
    std::unique_ptr<InterProcessLock> lock;
};

// The file whose lock the installation's turns take, in the build and the project folder.
extern const char* const kInstallationLockName;

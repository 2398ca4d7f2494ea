// Exit codes of the simulated tools. The configuration tool judges only zero against non-zero
// (and -1 for a tool that could not be started); distinct values tell a person or a test why.
#pragma once

namespace sim {

constexpr int kExitOk = 0;
constexpr int kExitFailed = 1;  // the operation failed: a file missing on either side, no map
constexpr int kExitMissingTemplate = 2;  // ttbuild: a template named in the script does not exist
constexpr int kExitTemplateError = 3;  // ttbuild: a script or template line it cannot expand
constexpr int kExitMissingInput = 4;  // ttbuild: ct.ini, the -s folder or an ADDITIONAL file missing
constexpr int kExitCannotWrite = 5;  // a file could not be written (output folder, local file, gateway)
constexpr int kExitUsage = 64;  // wrong command line
constexpr int kExitUnknownTool = 69;  // started under a name the simulator does not know
constexpr int kExitStateFolder = 74;  // the state folder cannot be created or written
constexpr int kExitFaultFile = 78;  // the fault file has a line the simulator cannot read

}  // namespace sim

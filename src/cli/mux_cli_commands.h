// tgxcfg vcp, mux-scan and mux-rebuild: the remote COM port and multiplexer commands with the
// console answering their dialogs from the command line.
#pragma once

#include "cli/command_line.h"

#include <ostream>

struct AppContext;
class ConsoleUserInterface;

// Exit status as the other commands: 0 success, 1 failure (its message on `err`).
int RunVcp(AppContext& ctx, ConsoleUserInterface& ui, const CliRequest& request, std::ostream& out,
           std::ostream& err);
// newProject: the absolute path of NEW.prj, empty when not given.
int RunMuxScan(AppContext& ctx, ConsoleUserInterface& ui, const CliRequest& request, const wxString& newProject,
               std::ostream& err);
int RunMuxRebuild(AppContext& ctx, ConsoleUserInterface& ui, const CliRequest& request, std::ostream& out,
                  std::ostream& err);

// The commands of tgxcfg on the desktop tool's logic: the installation read as at start-up, the
// project loaded as Load from Disk loads it, then one command.
#pragma once

#include "cli/command_line.h"

#include <ostream>

// Exit status of a command: 0 success, 1 failure (its message on `err`); check: 1 when it found
// problems.
int RunCliRequest(const CliRequest& request, std::ostream& out, std::ostream& err);

// The simulated tools by name.
#pragma once

#include "tool.h"

#include <wx/arrstr.h>

#include <memory>

namespace sim {

// Null when the simulator has no tool of that name.
std::unique_ptr<Tool> CreateTool(const wxString& name);
wxArrayString ToolNames();

}  // namespace sim

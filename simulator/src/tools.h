// The simulated tools, one factory each (rows of the registry in tool_registry.cpp).
#pragma once

#include "tool.h"

#include <memory>

namespace sim {

std::unique_ptr<Tool> MakeDevTypeTool();  // ttdevtype   device_tools.cpp
std::unique_ptr<Tool> MakeRestoreTool();  // ttrestore   device_tools.cpp
std::unique_ptr<Tool> MakeRebootTool();  // ttreboot    device_tools.cpp
std::unique_ptr<Tool> MakeGetFileTool();  // ttgetfile   file_transfer_tools.cpp
std::unique_ptr<Tool> MakePutFileTool();  // ttputfile   file_transfer_tools.cpp
std::unique_ptr<Tool> MakeMbPrintTool();  // ttmbprint   device_tools.cpp
std::unique_ptr<Tool> MakeBuildTool();  // ttbuild     build_tool.cpp
std::unique_ptr<Tool> MakeIniFileTool();  // inifile     map_tools.cpp
std::unique_ptr<Tool> MakeDbToJsonTool();  // dbtojson    map_tools.cpp
std::unique_ptr<Tool> MakeMbEditTool();  // mbedit      map_tools.cpp
std::unique_ptr<Tool> MakeFirmwareTool();  // ttfirmware  maintenance_tools.cpp
std::unique_ptr<Tool> MakeLiveViewTool();  // tgxview     maintenance_tools.cpp
std::unique_ptr<Tool> MakeFinderTool();  // tgxfinder   maintenance_tools.cpp
std::unique_ptr<Tool> MakeUpdaterTool();  // updater     maintenance_tools.cpp

std::unique_ptr<Tool> MakeVspTool();  // ttvsp       mux_tools.cpp
std::unique_ptr<Tool> MakeMuxTool();  // pfmux       mux_tools.cpp

}  // namespace sim

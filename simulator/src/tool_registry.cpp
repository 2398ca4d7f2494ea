#include "tool_registry.h"

#include "tools.h"

namespace sim {

namespace {

struct ToolRow {
    const char* name;
    std::unique_ptr<Tool> (*make)();
};

// A new row here, its name in simulator/CMakeLists.txt, and the tool is on PATH.
const ToolRow kTools[] = {
    {"ttdevtype", MakeDevTypeTool},
    {"ttbuild", MakeBuildTool},
    {"ttrestore", MakeRestoreTool},
    {"ttreboot", MakeRebootTool},
    {"ttgetfile", MakeGetFileTool},
    {"ttputfile", MakePutFileTool},
    {"ttmbprint", MakeMbPrintTool},
    {"inifile", MakeIniFileTool},
    {"dbtojson", MakeDbToJsonTool},
    {"mbedit", MakeMbEditTool},
    {"ttfirmware", MakeFirmwareTool},
    {"tgxview", MakeLiveViewTool},
    {"tgxfinder", MakeFinderTool},
    {"updater", MakeUpdaterTool},
    {"ttvsp", MakeVspTool},
    {"pfmux", MakeMuxTool},
};

}  // namespace

std::unique_ptr<Tool> CreateTool(const wxString& name)
{
    for (const ToolRow& row : kTools)
        if (name == row.name)
            return row.make();
    return nullptr;
}

wxArrayString ToolNames()
{
    wxArrayString names;
    for (const ToolRow& row : kTools)
        names.Add(row.name);
    return names;
}

}  // namespace sim

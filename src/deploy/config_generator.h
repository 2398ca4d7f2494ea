// Turns the open project into the gateway's configuration: the script of template inclusions
// (INCLUDE/ct.ini), the parameter file (ADDITIONAL/dbsave.txt), a copy of the project file and the
// Modbus map beside it, then runs ttbuild, which expands them into the files uploaded to the gateway.
#pragma once

#include "base/tool_command.h"

#include <wx/arrstr.h>
#include <wx/string.h>

struct AppContext;
struct DeviceTypeTable;
struct Project;

// The operating mode as both files carry it: 0 gateway, 1 bridge server, 2 bridge client,
// 3 multiplexer. Any text other than the three named ones counts as a gateway.
int ConfigModeCode(const Project& project);

// 2 x swap bytes + 4 x swap words + 8 x swap longs.
int FloatSwapCode(const Project& project);

// The lines of ct.ini.
wxArrayString BuildCtIniLines(const Project& project, const DeviceTypeTable& deviceTypes);

// The lines of dbsave.txt.
wxArrayString BuildDbSaveLines(const Project& project);

// The ttbuild command line for the build folder and the output folder.
ToolCommand TtbuildCommand(const wxString& buildPath, const wxString& outputFolder, const wxString& separator);

// Writes the four files into the build folder `buildPath` (its INCLUDE and ADDITIONAL folders,
// joined with `sep`): ct.ini, dbsave.txt, a copy of the project file and the map. An empty time
// server address is replaced by the default, in the project. What cannot be written is not
// reported: ttbuild runs on what is there, and its exit code is the one verdict.
void WriteConfiguration(Project& project, const DeviceTypeTable& deviceTypes, const wxString& buildPath,
                        const wxString& sep);

// Makes the templates folder current and runs ttbuild on the written files.
// outputFolder: when empty, set to the build folder's OUTPUT; handed to ttbuild.
// outputName: when empty, set to the project file's name without folder and extension.
// True when ttbuild exits with 0; otherwise errorText says so, with the exit code.
bool BuildConfiguration(AppContext& ctx, wxString& errorText, wxString& outputFolder, wxString& outputName);

// WriteConfiguration, then BuildConfiguration: what Configure and the map commands do.
bool GenerateConfiguration(AppContext& ctx, wxString& errorText, wxString& outputFolder, wxString& outputName);

// What the desktop tool accepts without a word but a gateway will not run as meant: damage in a
// hand-edited or foreign project file that loading passes over, and values the dialogs would
// have refused.
#pragma once

#include <wx/arrstr.h>
#include <wx/string.h>

#include <vector>

struct DeviceTypeTable;
struct Project;

struct ProjectProblem {
    bool inMapFile = false;  // a line of the map file, else of the project file
    int line = 0;            // from 1; 0 when the file holds no line for it (a default value)
    wxString text;
};

// The problems of a project file, in the order of their lines (those without a line first, the
// map file's last). The file at `projectPath` is read again, line by line; `project` and its map
// lines are what loading it gave. Devices and commands are numbered from 0, as in the file and
// the lists.
std::vector<ProjectProblem> CheckProject(const Project& project, const DeviceTypeTable& deviceTypes,
                                         const wxString& projectPath);

// False for a file that check calls no project file at all (binary content, or no line that holds
// a setting), and for one that cannot be read.
bool IsProjectFile(const wxString& path);

// One problem as compilers print theirs: "FILE:LINE: text", or "FILE: text" without a line.
wxString FormatProblem(const ProjectProblem& problem, const wxString& projectFile, const wxString& mapFile);

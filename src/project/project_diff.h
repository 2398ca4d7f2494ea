// What differs between two loaded projects, in the user's terms: settings by their project file
// key, devices by their identity (the poll address, or the long address in multiplexer mode; never
// the slot), commands by their number within a matched device, map lines by SECTION and ADDRESS.
#pragma once

#include "project/project.h"

#include <wx/string.h>

#include <vector>

struct ProjectDifference {
    enum class Kind { Setting, Device, Command, MapLine };
    enum class Change { Added, Removed, Changed };
    Kind kind;
    Change change;
    wxString subject;  // "SERIAL PORT BAUDRATE", "device at poll address 2", "... command 3", "map HOLDING,40001"
    wxString before;   // empty when added
    wxString after;    // empty when removed
};

// In the order of the first project: settings, devices (each followed by its commands), then the
// map; what only the second has comes after what both have, in its order.
std::vector<ProjectDifference> DiffProjects(const Project& a, const Project& b);

// One line: "SUBJECT: BEFORE -> AFTER", "SUBJECT added: AFTER", "SUBJECT removed: BEFORE".
wxString FormatDifference(const ProjectDifference& difference);

const char* KindName(ProjectDifference::Kind kind);
const char* ChangeName(ProjectDifference::Change change);

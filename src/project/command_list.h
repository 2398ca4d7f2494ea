// The lines of the main window's HART command list.
#pragma once

#include <wx/arrstr.h>
#include <wx/string.h>

struct HartCommandEntry;
struct Project;

// "CMD 009:01,02 - CYCLICAL READ 10   " and its siblings.
wxString CommandListLine(const HartCommandEntry& command);

// The lines of the selected device's commands; none without devices.
wxArrayString CommandListLines(const Project& project);

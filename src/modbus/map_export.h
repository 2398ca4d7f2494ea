// The Modbus map as an export file: CSV (the map lines under a header) or a fixed-width text
// table for reading and printing. Pure functions: the caller writes the lines.
#pragma once

#include <wx/arrstr.h>
#include <wx/string.h>

// The layout follows the file's name alone: a path whose lower-cased form ends in ".csv" is CSV,
// every other path a text table.
bool IsCsvExportPath(const wxString& path);

// The header, then every map line unchanged.
wxArrayString MapCsvLines(const wxArrayString& mapLines);

// Five heading lines, then one row per map line with its fields reordered into the columns.
wxArrayString MapTextTableLines(const wxArrayString& mapLines);

// The lines of the export to `path`, in the layout its name chooses.
wxArrayString MapExportLines(const wxString& path, const wxArrayString& mapLines);

// The Modbus map as an export file: CSV (the map lines under a header) or a fixed-width text
// table for reading and printing, made line by line: no copy of the whole export is held.
#pragma once

#include "base/text_lines.h"

#include <wx/string.h>

#include <functional>
#include <string_view>

// The layout follows the file's name alone: a path whose lower-cased form ends in ".csv" is CSV,
// every other path a text table.
bool IsCsvExportPath(const wxString& path);

// The bytes of the export to `path`, in the layout its name chooses, every line ended by CR LF,
// handed to `put` in order: CSV is the header, then every map line unchanged; the text table five
// heading lines, then one row per map line with its fields reordered into the columns.
void MapExportText(const wxString& path, const TextLines& mapLines, const std::function<void(std::string_view)>& put);

// Writes the export to `path` as every save is written (text_file.h). False when it cannot be
// written, `reason` then saying why.
bool WriteMapExport(const wxString& path, const TextLines& mapLines, wxString* reason = nullptr);

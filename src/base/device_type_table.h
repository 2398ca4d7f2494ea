// The device types of the installed template set, read once from ct.cfg at start-up. Column 1 is
// the type name offered in the device dialog; columns 2 to 6 name the templates that the
// configuration generator includes for that type.
#pragma once

#include "base/text_file.h"

#include <wx/arrstr.h>
#include <wx/string.h>

#include <cstddef>

constexpr int kMaxDeviceTypes = 256;
constexpr int kDeviceTypeColumns = 6;
constexpr std::size_t kDeviceTypeTextSize = 64;

struct DeviceTypeTable {
    // Fixed cells of at most 63 characters, as the template set's own tools read them.
    char cells[kDeviceTypeColumns][kMaxDeviceTypes][kDeviceTypeTextSize] = {};
    int deviceTypeCount = 0;

    // column counts from 1, row from 0; row must be below deviceTypeCount.
    wxString Text(int column, int row) const;
    wxString TypeName(int row) const { return Text(1, row); }
};

struct InstallationEnvironment;

// Where ct.cfg lives: the BUILD folder of the templates path.
wxString DeviceTypeFilePath(const InstallationEnvironment& env);

// Adds the row of one "DEV_TYPE " line with exactly six values; every other line is skipped.
void ParseDeviceTypeLine(const wxString& line, DeviceTypeTable& table);

// Reads every line of ct.cfg into the table. A file that cannot be read (Refused) leaves it empty,
// as a damaged line is skipped.
TextFileRead LoadDeviceTypeTable(const wxString& path, DeviceTypeTable& table);

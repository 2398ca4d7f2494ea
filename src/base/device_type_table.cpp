#include "base/device_type_table.h"

#include "base/installation_environment.h"
#include "base/text_file.h"
#include "base/unicode_text.h"

#include <wx/filename.h>
#include <wx/tokenzr.h>

wxString DeviceTypeTable::Text(int column, int row) const
{
    if (column < 1 || column > kDeviceTypeColumns || row < 0 || row >= deviceTypeCount)
        return wxString();
    return GetText(cells[column - 1][row]);
}

wxString DeviceTypeFilePath(const InstallationEnvironment& env)
{
    wxFileName file;
    file.AssignDir(env.TgxTemplatesPath);
    file.AppendDir("BUILD");
    file.SetFullName("ct.cfg");
    return file.GetFullPath();
}

void ParseDeviceTypeLine(const wxString& line, DeviceTypeTable& table)
{
    // The blank after DEV_TYPE is part of the prefix: a tab there does not count.
    wxString rest;
    if (!line.StartsWith("DEV_TYPE ", &rest) || table.deviceTypeCount >= kMaxDeviceTypes)
        return;
    wxStringTokenizer tokens(rest, " \t\r\n", wxTOKEN_STRTOK);
    if (tokens.CountTokens() != kDeviceTypeColumns)
        return;
    for (int column = 0; column < kDeviceTypeColumns; ++column)
        SetText(table.cells[column][table.deviceTypeCount], kDeviceTypeTextSize, tokens.GetNextToken());
    ++table.deviceTypeCount;
}

TextFileRead LoadDeviceTypeTable(const wxString& path, DeviceTypeTable& table)
{
    // Read line by line: only the DEV_TYPE lines that fit the table are kept, whatever the size.
    return ReadTextFile(path, [&table](const wxString& line) { ParseDeviceTypeLine(line, table); });
}

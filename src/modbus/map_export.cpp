#include "modbus/map_export.h"

namespace {

// "TAGNANE" is misspelt on purpose: the files' consumers look for the column under this name.
const char kCsvHeader[] = "SECTION,ADDRESS,BYTE_ORDER,TYPE,TAGNANE,DESCRIPTION,REG_COUNT";

const char* const kTextHeading[] = {
    "Modbus Register Map",
    "-------------------",
    "",
    "SECTION  ADDRESS  TYPE    REG_COUNT  ORDER  TAGNAME               DESCRIPTION",
    "~~~~~~~  ~~~~~~~  ~~~~    ~~~~~~~~~  ~~~~~  ~~~~~~~~~~~~~~~~~~~~  ~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~",
};

// A map line's fields in file order: SECTION, ADDRESS, BYTE_ORDER, TYPE, TAGNAME, DESCRIPTION,
// REG_COUNT.
constexpr size_t kMapFields = 7;

// Split at every comma, empty fields kept, each trimmed of blanks; fields a short line lacks are
// empty. A comma inside a description splits it too, as it always has in this export.
wxArrayString MapFields(const wxString& line)
{
    wxArrayString fields;
    wxString field;
    for (const wxUniChar c : line) {
        if (c == ',') {
            fields.Add(field);
            field.clear();
        } else {
            field += c;
        }
    }
    fields.Add(field);
    for (wxString& f : fields)
        f.Trim(true).Trim(false);
    while (fields.size() < kMapFields)
        fields.Add(wxString());
    return fields;
}

} // namespace

bool IsCsvExportPath(const wxString& path) { return path.Lower().EndsWith(".csv"); }

wxArrayString MapCsvLines(const wxArrayString& mapLines)
{
    wxArrayString lines;
    lines.Add(kCsvHeader);
    for (const wxString& line : mapLines)
        lines.Add(line);
    return lines;
}

wxArrayString MapTextTableLines(const wxArrayString& mapLines)
{
    wxArrayString lines;
    for (const char* heading : kTextHeading)
        lines.Add(heading);
    for (const wxString& line : mapLines) {
        const wxArrayString f = MapFields(line);
        // Columns SECTION, ADDRESS, TYPE, REG_COUNT, ORDER, TAGNAME, DESCRIPTION; a field wider
        // than its column is not cut and pushes the rest of its row along.
        lines.Add(
            wxString::Format("%-7s  %-7s  %-6s  %-9s  %-5s  %-20s  %s", f[0], f[1], f[3], f[6], f[2], f[4], f[5]));
    }
    return lines;
}

wxArrayString MapExportLines(const wxString& path, const wxArrayString& mapLines)
{
    return IsCsvExportPath(path) ? MapCsvLines(mapLines) : MapTextTableLines(mapLines);
}

#include "modbus/map_export.h"

#include "project/text_file.h"
#include "project/unicode_text.h"

#include <wx/arrstr.h>

#include <algorithm>
#include <cstring>
#include <string>

namespace {

// "TAGNANE" is misspelt on purpose: the files' consumers look for the column under this name.
const char kCsvHeader[] = "SECTION,ADDRESS,BYTE_ORDER,TYPE,TAGNANE,DESCRIPTION,REG_COUNT\r\n";

const char kTextHeading[] =
    "Modbus Register Map\r\n"
    "-------------------\r\n"
    "\r\n"
    "SECTION  ADDRESS  TYPE    REG_COUNT  ORDER  TAGNAME               DESCRIPTION\r\n"
    "~~~~~~~  ~~~~~~~  ~~~~    ~~~~~~~~~  ~~~~~  ~~~~~~~~~~~~~~~~~~~~  ~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~\r\n";

// A map line's fields in file order: SECTION, ADDRESS, BYTE_ORDER, TYPE, TAGNAME, DESCRIPTION,
// REG_COUNT.
constexpr size_t kMapFields = 7;

// Columns SECTION, ADDRESS, TYPE, REG_COUNT, ORDER, TAGNAME, DESCRIPTION: the field shown in each
// and the column's width; a field wider than its column is not cut and pushes the rest of its row
// along. The last is not padded.
constexpr struct {
    std::size_t field;
    std::size_t width;
} kColumns[] = {{0, 7}, {1, 7}, {3, 6}, {6, 9}, {2, 5}, {4, 20}, {5, 0}};

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

// The blanks the fields are trimmed of (those of wxString::Trim).
bool IsBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

// The row of a line of ASCII without NUL, built from its bytes as the text's row is built.
void AppendAsciiRow(std::string& row, std::string_view line)
{
    std::string_view fields[kMapFields];
    std::size_t count = 0;
    for (std::size_t start = 0; count < kMapFields;) {
        const std::size_t comma = std::min(line.find(',', start), line.size());
        std::string_view field = line.substr(start, comma - start);
        while (!field.empty() && IsBlank(field.front()))
            field.remove_prefix(1);
        while (!field.empty() && IsBlank(field.back()))
            field.remove_suffix(1);
        fields[count++] = field;
        if (comma == line.size())
            break;
        start = comma + 1;
    }
    for (const auto& column : kColumns) {
        const std::string_view field = fields[column.field];
        row.append(field);
        if (column.width == 0)
            break;
        row.append(column.width > field.size() ? column.width - field.size() : 0, ' ');
        row.append("  ");
    }
}

// Any other line: its text split and formatted, the widths counted in characters.
void AppendTextRow(std::string& row, std::string_view line)
{
    const wxArrayString f = MapFields(wxString::FromUTF8(line.data(), line.size()));
    const wxString text =
        wxString::Format("%-7s  %-7s  %-6s  %-9s  %-5s  %-20s  %s", f[0], f[1], f[3], f[6], f[2], f[4], f[5]);
    if (!AppendUtf8Line(row, text))
        row += Utf8Bytes(text);
}

bool IsAsciiWithoutNul(std::string_view line)
{
    return std::none_of(line.begin(), line.end(), [](char c) { return c == '\0' || (c & 0x80) != 0; });
}

} // namespace

bool IsCsvExportPath(const wxString& path) { return path.Lower().EndsWith(".csv"); }

void MapExportText(const wxString& path, const TextLines& mapLines, const std::function<void(std::string_view)>& put)
{
    if (IsCsvExportPath(path)) {
        put(kCsvHeader);
        put(mapLines.Bytes());
        return;
    }
    put(kTextHeading);
    std::string row;
    for (const std::string_view line : mapLines) {
        row.clear();
        if (IsAsciiWithoutNul(line))
            AppendAsciiRow(row, line);
        else
            AppendTextRow(row, line);
        row += "\r\n";
        put(row);
    }
}

bool WriteMapExport(const wxString& path, const TextLines& mapLines, wxString* reason)
{
    if (!mapLines.Savable())
        return WriteTextLines(path, mapLines, reason);  // refused, as for the map's own file
    TextFileSave file(path);
    MapExportText(path, mapLines, [&file](std::string_view bytes) { file.Write(bytes); });
    return file.Finish(reason);
}

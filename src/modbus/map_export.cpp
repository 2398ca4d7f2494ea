#include "modbus/map_export.h"

#include "base/text_file.h"
#include "base/unicode_text.h"

#include <wx/arrstr.h>

#include <algorithm>
#include <cstdint>
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
// and the column's width, two blanks between columns; a field wider than its column is not cut
// and pushes the rest of its row along. The last (width 0) is not padded.
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

std::string_view Trimmed(std::string_view field)
{
    while (!field.empty() && IsBlank(field.front()))
        field.remove_prefix(1);
    while (!field.empty() && IsBlank(field.back()))
        field.remove_suffix(1);
    return field;
}

// True when no byte is above 0x7F or NUL: eight bytes at a time.
bool IsAsciiWithoutNul(std::string_view line)
{
    constexpr std::uint64_t kOnes = 0x0101010101010101ull, kHighs = 0x8080808080808080ull;
    std::uint64_t any = 0;
    std::size_t i = 0;
    for (; i + 8 <= line.size(); i += 8) {
        std::uint64_t word;
        std::memcpy(&word, line.data() + i, 8);
        any |= word | ((word - kOnes) & ~word & kHighs);  // the high bit of a NUL byte's place
    }
    for (; i < line.size(); ++i)
        any |= static_cast<unsigned char>(line[i]) | (line[i] == '\0' ? 0x80u : 0u);
    return (any & kHighs) == 0;
}

// The row of a line of ASCII without NUL, built from its bytes as the text's row is formatted,
// appended to `out`. False, with nothing appended, for any other line.
bool AppendAsciiRow(std::string& out, std::string_view line)
{
    if (!IsAsciiWithoutNul(line))
        return false;
    std::string_view fields[kMapFields];
    for (std::size_t count = 0, start = 0; count < kMapFields; ++count) {
        const std::size_t comma = std::min(line.find(',', start), line.size());
        fields[count] = Trimmed(line.substr(start, comma - start));
        if (comma == line.size())
            break;
        start = comma + 1;
    }
    std::size_t length = 0;
    for (const auto& column : kColumns)
        length += std::max(column.width, fields[column.field].size()) + (column.width == 0 ? 0 : 2);
    const std::size_t at = out.size();
    out.resize(at + length, ' ');
    char* to = &out[at];
    for (const auto& column : kColumns) {
        const std::string_view field = fields[column.field];
        std::copy(field.begin(), field.end(), to);
        to += std::max(column.width, field.size()) + (column.width == 0 ? 0 : 2);
    }
    return true;
}

// Any other line: its text split and formatted, the widths counted in characters.
void AppendTextRow(std::string& out, std::string_view line)
{
    const wxArrayString f = MapFields(Utf8Text(line));
    const wxString text =
        wxString::Format("%-7s  %-7s  %-6s  %-9s  %-5s  %-20s  %s", f[0], f[1], f[3], f[6], f[2], f[4], f[5]);
    if (!AppendUtf8Line(out, text))
        out += Utf8Bytes(text);
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
    // The rows handed on some 64 KiB at a time.
    constexpr std::size_t kPiece = 64 * 1024;
    std::string rows;
    rows.reserve(kPiece + 1024);  // a piece and the row that completes it
    for (const std::string_view line : mapLines) {
        if (!AppendAsciiRow(rows, line))
            AppendTextRow(rows, line);
        rows += "\r\n";
        if (rows.size() >= kPiece) {
            put(rows);
            rows.clear();
        }
    }
    if (!rows.empty())
        put(rows);
}

bool WriteMapExport(const wxString& path, const TextLines& mapLines, wxString* reason)
{
    if (!mapLines.Savable())
        return WriteTextLines(path, mapLines, reason);  // refused, as for the map's own file
    TextFileSave file(path);
    MapExportText(path, mapLines, [&file](std::string_view bytes) { file.Write(bytes); });
    return file.Finish(reason);
}

// The project file (*.prj): one KEY:VALUE setting per line, the format gateways and older
// versions of the tool exchange, and the Modbus map file (*.mbd) beside it.
#pragma once

#include "base/text_file.h"

#include <wx/arrstr.h>
#include <wx/string.h>

struct AppContext;
struct Project;


// The project's lines in the order the writer emits them: as the file's bytes, and as text.
TextLines ProjectFileText(const Project& project);
wxArrayString ProjectFileLines(const Project& project);

// The settings' lines ("KEY:VALUE") as the file holds them: after its version line, up to the
// devices (DEVICE COUNT excluded).
wxArrayString ProjectSettingLines(const Project& project);

// The two writes of a save (the whole save, with the map regenerated in between in automatic
// mode, is SaveProject's): the project file at `path`; the map file beside it, after which the
// project is marked saved. A file that cannot be written is put to the interface at once ("Could
// not save FILE: REASON", ContinueAfterFailedSave): when it lets the save go on, the write counts
// as done; otherwise the result is false and the save stops there.
bool WriteProjectFile(AppContext& ctx, const wxString& path);
bool WriteProjectMapFile(AppContext& ctx, const wxString& path);

// The reader's position, carried from line to line.
struct ProjectLineReader {
    int currentDevice = -1;
    int lastCommandRead = -1;
};

// Applies one line to the project. Unknown and malformed lines change nothing.
bool ParseProjectLine(Project& project, const wxString& line, ProjectLineReader& reader);

// How the reader takes a line: by the key it starts with (matched as the reader matches keys,
// `key` receives it with its colon) and the kind of its value. None: the reader ignores the line.
enum class ProjectValueKind { None, Text, Number, Numbers };
ProjectValueKind ProjectLineKey(const wxString& line, wxString& key);
// The numbers of a HARTCMD or CMDARGS value, split as the reader splits them.
wxArrayString ProjectValueTokens(const wxString& value);

// The map file of a project file: extension "mbd", or "mb" for older projects.
wxString MapFilePath(const wxString& projectPath, const char* extension = "mbd");

// Reads the map file beside a project (".mbd", else the older ".mb") into `lines`. Read: one was
// read. Refused: the one there cannot be read (`refused` names it). Missing: neither is there.
// Anything but Read leaves `lines` as they were.
TextFileRead ReadProjectMap(const wxString& projectPath, TextLines& lines, wxString* refused = nullptr);

// How reading a project file went. MapUnreadable: its map file is there but cannot be read.
enum class ProjectReadResult { Read, Unreadable, NoContent, MapUnreadable };

// Applies a project file to the project as a load does: defaults, automatic map, every line
// through the reader, first device selected. Unreadable and NoContent (a file with no lines)
// change nothing.
ProjectReadResult ApplyProjectFile(AppContext& ctx, const wxString& path);

// Load from Disk after its dialog and before its final save: the file applied as above, the file
// becomes the project's file, and its map file (".mbd", else ".mb") is read. Anything but Read
// changes nothing; MapUnreadable names the map file in `unreadableMap`.
ProjectReadResult ReadProjectFromDisk(AppContext& ctx, const wxString& path, wxString* unreadableMap = nullptr);

// The Project menu's commands and the main panel's edits of the project.
#pragma once

#include <wx/arrstr.h>
#include <wx/string.h>

struct AppContext;

// Asks before unsaved edits are lost; true when the command may go on.
bool ConfirmDiscardUnsaved(AppContext& ctx);

void NewProject(AppContext& ctx);
void LoadProjectFromDisk(AppContext& ctx);
void SaveProjectCommand(AppContext& ctx);
void SaveProjectAs(AppContext& ctx);
void CloseProject(AppContext& ctx);

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

// What Load from Disk shows for a file with no lines.
extern const char* const kNoContentMessage;

// Panel edits: each stores its one setting and marks the project edited.
void SetSerialPortFunction(AppContext& ctx, const char* function);  // "MODEM", "MODBUS"
void SetPollingDeferralMode(AppContext& ctx, const char* mode);     // "NONE", "PARTIAL", "FULL"
void SetInterfaceStandard(AppContext& ctx, const wxString& choice);
void SetBaudRate(AppContext& ctx, const wxString& choice);
void SetParity(AppContext& ctx, const wxString& choice);  // "None", "Odd", "Even"
void SetStopBits(AppContext& ctx, const wxString& choice);
void SetRtuAddress(AppContext& ctx, const wxString& text);
enum class FloatSwap { Bytes, Words, Longs };
void SetFloatSwap(AppContext& ctx, FloatSwap which, bool on);
void SetNanControl(AppContext& ctx, bool on);
void SetPrimaryMaster(AppContext& ctx, bool primary);

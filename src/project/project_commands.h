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

// Applies the lines of a project file to the project as a load does: defaults, automatic map,
// every line through the reader, first device selected. False for a file with no lines.
bool ApplyProjectFile(AppContext& ctx, const wxArrayString& lines);

// Load from Disk after its dialog and before its final save: the file's lines applied as above,
// the file becomes the project's file, and its map file (".mbd", else ".mb") is read. An
// unreadable file changes nothing; an empty one leaves the project at its defaults.
enum class ProjectReadResult { Read, Unreadable, NoContent };
ProjectReadResult ReadProjectFromDisk(AppContext& ctx, const wxString& path);

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

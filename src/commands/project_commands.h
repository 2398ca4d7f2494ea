// The Project menu's commands and the main panel's edits of the project.
#pragma once

#include <wx/arrstr.h>
#include <wx/string.h>

struct AppContext;

void NewProject(AppContext& ctx);
void LoadProjectFromDisk(AppContext& ctx);
void SaveProjectCommand(AppContext& ctx);
void SaveProjectAs(AppContext& ctx);
void CloseProject(AppContext& ctx);

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

// Modbus > Export: the map written to a file the user chooses, as CSV or as a text table.
#pragma once

struct AppContext;

// No message follows, neither on success nor when the file cannot be written.
void ExportModbusMap(AppContext& ctx);

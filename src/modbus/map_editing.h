// Modbus > Edit the Modbus Map: the map opened in the external editor (mbedit) with every data
// point the configuration offers, and taken back into the project when the editor closes.
#pragma once

struct AppContext;

// The whole command; false when it stopped before the editor ran.
bool EditModbusMap(AppContext& ctx);

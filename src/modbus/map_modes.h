// The Modbus menu's two map modes (automatic, user defined) and the deletion of the map.
#pragma once

struct AppContext;

// A click on one of the two check items. `toAutomatic`: which item; `itemWasUnchecked`: the
// click was on the item that was not checked (the menu reports it checked now). The caller has
// already toggled the item back; on Yes the mode changes, the panel is refreshed (which sets the
// check marks) and the project is saved. True when the mode changed.
bool SwitchMapMode(AppContext& ctx, bool toAutomatic, bool itemWasUnchecked);

// Clears the map after a question; neither the mode nor the file changes.
void DeleteModbusMap(AppContext& ctx);

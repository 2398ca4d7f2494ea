#include "modbus/automatic_map.h"

#include "app/app_context.h"

void GenerateAutomaticMap(AppContext&)
{
    // Filled in with the map chain (configuration build, inifile). Until then a save in
    // automatic mode keeps the map lines the project already holds.
}

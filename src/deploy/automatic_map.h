// The Modbus map generated from the project in automatic map mode.
#pragma once

struct AppContext;

// Rebuilds the project's map lines from its devices and commands. Called by every save in
// automatic mode, between writing the project file and writing the map file.
void GenerateAutomaticMap(AppContext& ctx);

// The map lines written out as the export's CSV file and as its text table.
#include "fuzz_support.h"
#include "modbus/map_export.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const wxArrayString lines = FuzzLines(data, size);
    MapExportText("map.csv", lines, [](std::string_view) {});
    MapExportText("map.txt", lines, [](std::string_view) {});
    return 0;
}

// The map lines written out as the export's CSV file and as its text table.
#include "fuzz_support.h"
#include "modbus/map_export.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const wxArrayString lines = FuzzLines(data, size);
    MapExportLines("map.csv", lines);
    MapExportLines("map.txt", lines);
    return 0;
}

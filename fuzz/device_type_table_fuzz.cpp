// ct.cfg read as start-up reads it (LoadDeviceTypeTable: the file line by line), then every cell
// the device dialog and the generator take: each a whole text, never cut inside a character.
#include "base/device_type_table.h"
#include "fuzz_support.h"

#include <cstring>
#include <memory>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    auto table = std::make_unique<DeviceTypeTable>();
    if (LoadDeviceTypeTable(FuzzFile("ct.cfg", data, size), *table) != TextFileRead::Read)
        return 0;
    FUZZ_CHECK(table->deviceTypeCount >= 0 && table->deviceTypeCount <= kMaxDeviceTypes);
    for (int row = 0; row < table->deviceTypeCount; ++row)
        for (int column = 1; column <= kDeviceTypeColumns; ++column) {
            const char* cell = table->cells[column - 1][row];
            FUZZ_CHECK(std::strlen(cell) < kDeviceTypeTextSize && (cell[0] == '\0' || !table->Text(column, row).empty()));
        }
    return 0;
}

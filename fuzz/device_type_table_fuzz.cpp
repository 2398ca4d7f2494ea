// The lines of ct.cfg, the installed template set's device type table.
#include "app/device_type_table.h"
#include "fuzz_support.h"

#include <memory>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    auto table = std::make_unique<DeviceTypeTable>();
    for (const wxString& line : FuzzLines(data, size))
        ParseDeviceTypeLine(line, *table);
    for (int row = 0; row < table->deviceTypeCount; ++row)
        for (int column = 1; column <= kDeviceTypeColumns; ++column)
            table->Text(column, row);
    return 0;
}

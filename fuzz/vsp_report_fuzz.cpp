// The line "ttvsp -g" reports for the virtual COM port: "COM7 10.0.0.5:772 up".
#include "fuzz_support.h"
#include "remote/remote_com_port.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    VirtualPortReport report;
    ParseVirtualPortReport(FuzzText(data, size), report);
    return 0;
}

// The first line "ttvsp -g" prints, as a captured run gives it: the virtual COM port's report,
// "COM7 10.0.0.5:772 up".
#include "fuzz_support.h"
#include "remote/remote_com_port.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const wxArrayString output = FuzzLines(data, size);
    VirtualPortReport report;
    if (!output.empty())
        ParseVirtualPortReport(output[0], report);
    return 0;
}

// The first line "pfmux COM -rads" prints, as a captured run gives it: the status line,
// "Additional device status : 00 00 00 00 00".
#include "fuzz_support.h"
#include "mux/mux_rebuild.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const wxArrayString output = FuzzLines(data, size);
    if (!output.empty())
        RebuildComplete(output[0]);
    return 0;
}

// The status line of "pfmux COM -rads": "Additional device status : 00 00 00 00 00".
#include "fuzz_support.h"
#include "mux/mux_rebuild.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    RebuildComplete(FuzzText(data, size));
    return 0;
}

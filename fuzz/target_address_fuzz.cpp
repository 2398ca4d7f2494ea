// The text typed at the address prompt, "HOST[:PORT]".
#include "deploy/device_tools.h"
#include "fakes/test_context.h"
#include "fuzz_support.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    TestContext t;
    ApplyTargetAddress(t.ctx, FuzzText(data, size));
    return 0;
}

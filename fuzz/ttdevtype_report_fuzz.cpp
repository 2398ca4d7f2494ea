// The report of ttdevtype, from which Configure reads the gateway's firmware and templates.
#include "deploy/configure_device.h"
#include "fakes/test_context.h"
#include "fuzz_support.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    TestContext t;
    t.env.FirmwareVersion = "6.2.2";
    t.tools.fallback.lines = FuzzLines(data, size);
    GatewayVersionProblem(t.ctx, "cannot connect");
    return 0;
}

// The device list of "pfmux COM -rdl", turned into the grid's rows and then, as Add All does,
// into the project's devices.
#include "fakes/test_context.h"
#include "fuzz_support.h"
#include "mux/mux_scan.h"
#include "project/project_file.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    TestContext t;
    t.ui.scanWindow.ShowRows(MuxRowsFromDeviceList(FuzzLines(data, size)));
    AddAllMuxDevices(t.ctx, t.ui.scanWindow);
    ProjectFileLines(t.project);
    return 0;
}

// The device list of "pfmux COM -rdl", turned into the grid's rows and then, as Add All does,
// into the project's devices.
#include "fakes/test_context.h"
#include "fuzz_support.h"
#include "mux/mux_scan.h"
#include "project/project_file.h"

namespace {
struct Window : MuxScanWindow {
    std::vector<MuxRow> rows;
    void ShowRows(const std::vector<MuxRow>& r) override { rows = r; }
    std::vector<MuxRow> Rows() const override { return rows; }
    std::vector<int> SelectedRows() const override { return {}; }
    void CloseScanWindow() override {}
};
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    Window window;
    window.ShowRows(MuxRowsFromDeviceList(FuzzLines(data, size)));
    TestContext t;
    AddAllMuxDevices(t.ctx, window);
    ProjectFileLines(t.project);
    return 0;
}

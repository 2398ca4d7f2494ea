// Benchmarks of the work the tool repeats: reading the device types at every start and
// working out the panel after every edit of a full project.
#include "base/device_type_table.h"
#include "project/panel_view.h"
#include "project/project.h"

#include <benchmark/benchmark.h>
#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/init.h>
#include <wx/textfile.h>

namespace {

wxString WriteFullDeviceTypeFile()
{
    const wxString path = wxFileName::CreateTempFileName("tgxbench");
    wxTextFile file(path);
    file.Create();
    for (int i = 0; i < 256; ++i)
        file.AddLine(wxString::Format("DEV_TYPE Type%03d dev%03dtmpl.ini mb1%03d.ini mb2%03d.ini mb3%03d.ini dmb%03d.ini",
                                      i, i, i, i, i, i));
    file.Write();
    return path;
}

void BM_LoadDeviceTypeTable(benchmark::State& state)
{
    const wxString path = WriteFullDeviceTypeFile();
    for (auto _ : state) {
        DeviceTypeTable table;
        LoadDeviceTypeTable(path, table);
        benchmark::DoNotOptimize(table.deviceTypeCount);
    }
    wxRemoveFile(path);
}
BENCHMARK(BM_LoadDeviceTypeTable);

// The floor for the above: the same file read line by line, nothing parsed.
void BM_ReadLinesOnly(benchmark::State& state)
{
    const wxString path = WriteFullDeviceTypeFile();
    for (auto _ : state) {
        wxTextFile file(path);
        file.Open();
        benchmark::DoNotOptimize(file.GetLineCount());
    }
    wxRemoveFile(path);
}
BENCHMARK(BM_ReadLinesOnly);

void BM_PanelViewOfFullProject(benchmark::State& state)
{
    static Project project;
    LoadDefaultProject(project);
    project.deviceCount = MAX_DEVICES;
    project.selectedDevice = MAX_DEVICES - 1;
    for (ProjectDevice& device : project.devices) {
        SetText(device.deviceName, "FT-1001");
        SetText(device.typeName, "Generic");
        device.enabled = 1;
        device.commandCount = MAX_COMMANDS;
        for (HartCommandEntry& command : device.commands) {
            command = HartCommandEntry{48, {1, 2, 3, 4, 5, 6, 7, 8}, 8, 10, 1, 0};
        }
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(BuildPanelView(project));
}
BENCHMARK(BM_PanelViewOfFullProject);

}  // namespace

int main(int argc, char** argv)
{
    wxInitializer toolkit;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

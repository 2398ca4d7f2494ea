// The map export against plain writing of the same bytes, at two map sizes (65,536 lines and a
// quarter of that), so that the export's cost is seen to grow linearly and its overhead over the
// bare write stays visible.
#include "modbus/map_export.h"
#include "project/text_file.h"

#include <benchmark/benchmark.h>
#include <wx/filefn.h>
#include <wx/filename.h>

#include <fstream>
#include <string>

namespace {

wxArrayString MapOfLines(int count)
{
    wxArrayString lines;
    lines.reserve(count);
    for (int i = 0; i < count; ++i)
        lines.Add(wxString::Format("HOLDING,%d,4,FLOAT,L0D%d:PV,Primary variable of device %d,2", i, i % 16, i % 16));
    return lines;
}

// Export to `extension` (".csv" or ".txt"): the lines made and written, as the menu command does.
void BM_ExportMap(benchmark::State& state, const char* extension)
{
    const wxArrayString map = MapOfLines(static_cast<int>(state.range(0)));
    const wxString path = wxFileName::CreateTempFileName("tgxbench") + extension;
    for (auto _ : state)
        benchmark::DoNotOptimize(WriteTextLines(path, MapExportLines(path, map)));
    state.SetComplexityN(state.range(0));
    wxRemoveFile(path);
}

// The floor: the bytes of the CSV export, already made, written in one go.
void BM_PlainWrite(benchmark::State& state)
{
    const wxString path = wxFileName::CreateTempFileName("tgxbench");
    std::string bytes;
    for (const wxString& line : MapCsvLines(MapOfLines(static_cast<int>(state.range(0)))))
        bytes += line.utf8_string() + "\r\n";
    for (auto _ : state) {
        std::ofstream out(path.fn_str(), std::ios::binary | std::ios::trunc);
        out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        benchmark::DoNotOptimize(out.good());
    }
    state.SetComplexityN(state.range(0));
    wxRemoveFile(path);
}

}  // namespace

BENCHMARK_CAPTURE(BM_ExportMap, csv, ".csv")->Arg(16384)->Arg(65536)->Unit(benchmark::kMillisecond)->Complexity(benchmark::oN);
BENCHMARK_CAPTURE(BM_ExportMap, text, ".txt")->Arg(16384)->Arg(65536)->Unit(benchmark::kMillisecond)->Complexity(benchmark::oN);
BENCHMARK(BM_PlainWrite)->Arg(16384)->Arg(65536)->Unit(benchmark::kMillisecond)->Complexity(benchmark::oN);

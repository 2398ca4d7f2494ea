// The map export against writing the same bytes, at two map sizes (65,536 lines and a quarter of
// that), so that the export's cost is seen to grow linearly and its overhead over the bare write
// stays visible.
#include "modbus/map_export.h"

#include <benchmark/benchmark.h>
#include <wx/file.h>
#include <wx/filefn.h>
#include <wx/filename.h>

#include <string>

namespace {

TextLines MapOfLines(int count)
{
    TextLines lines;
    for (int i = 0; i < count; ++i)
        lines.Add(wxString::Format("HOLDING,%d,4,FLOAT,L0D%d:PV,Primary variable of device %d,2", i, i % 16, i % 16));
    return lines;
}

// Export to `extension` (".csv" or ".txt"): the lines made and written, as the menu command does.
void BM_ExportMap(benchmark::State& state, const char* extension)
{
    const TextLines map = MapOfLines(static_cast<int>(state.range(0)));
    const wxString path = wxFileName::CreateTempFileName("tgxbench") + extension;
    for (auto _ : state)
        benchmark::DoNotOptimize(WriteMapExport(path, map));
    state.SetComplexityN(state.range(0));
    wxRemoveFile(path);
}

// The bytes of the export to `extension`, already made, written in one call; with `flush`,
// flushed to the disk as the export is (the floor), else left in the system's cache.
void WriteSameBytes(benchmark::State& state, const char* extension, bool flush)
{
    const wxString path = wxFileName::CreateTempFileName("tgxbench");
    std::string bytes;
    MapExportText(extension, MapOfLines(static_cast<int>(state.range(0))), [&bytes](std::string_view piece) { bytes += piece; });
    for (auto _ : state) {
        wxFile file(path, wxFile::write);
        benchmark::DoNotOptimize(file.Write(bytes.data(), bytes.size()) == bytes.size() && (!flush || file.Flush()));
    }
    state.SetComplexityN(state.range(0));
    wxRemoveFile(path);
}

void BM_PlainWrite(benchmark::State& state, const char* extension) { WriteSameBytes(state, extension, false); }
void BM_PlainWriteFlushed(benchmark::State& state, const char* extension) { WriteSameBytes(state, extension, true); }

}  // namespace

BENCHMARK_CAPTURE(BM_ExportMap, csv, ".csv")->Arg(16384)->Arg(65536)->Unit(benchmark::kMillisecond)->Complexity(benchmark::oN);
BENCHMARK_CAPTURE(BM_ExportMap, text, ".txt")->Arg(16384)->Arg(65536)->Unit(benchmark::kMillisecond)->Complexity(benchmark::oN);
BENCHMARK_CAPTURE(BM_PlainWrite, csv, ".csv")->Arg(16384)->Arg(65536)->Unit(benchmark::kMillisecond)->Complexity(benchmark::oN);
BENCHMARK_CAPTURE(BM_PlainWriteFlushed, csv, ".csv")->Arg(16384)->Arg(65536)->Unit(benchmark::kMillisecond)->Complexity(benchmark::oN);
BENCHMARK_CAPTURE(BM_PlainWriteFlushed, text, ".txt")->Arg(16384)->Arg(65536)->Unit(benchmark::kMillisecond)->Complexity(benchmark::oN);

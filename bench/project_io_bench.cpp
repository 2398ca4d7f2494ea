// Load and save of the largest project (16 devices x 50 commands, a 65,536-line map) as Load from
// Disk and Save do them, against reading and writing the same bytes plainly.
#include "commands/project_commands.h"
#include "deploy/project_save.h"
#include "fakes/test_context.h"
#include "project/project.h"
#include "project/project_file.h"

#include <benchmark/benchmark.h>
#include <wx/ffile.h>
#include <wx/file.h>
#include <wx/filename.h>

#include <string>

namespace {

class MaximalProject : public TestContext {
public:
    MaximalProject()
    {
        root = wxFileName::CreateTempFileName(wxFileName::GetTempDir() + "/tgxbench");
        wxRemoveFile(root);
        wxFileName::Mkdir(root);
        LoadDefaultProject(project);
        project.automaticModbusMap = 0;
        project.deviceCount = MAX_DEVICES;
        for (int d = 0; d < MAX_DEVICES; ++d) {
            ProjectDevice& device = project.devices[d];
            SetText(device.typeName, "Generic");
            SetText(device.deviceName, wxString::Format("Device %d", d));
            device.pollAddress = d;
            device.commandCount = MAX_COMMANDS;
            for (int c = 0; c < MAX_COMMANDS; ++c)
                device.commands[c] = HartCommandEntry{c, {1, 2, 3, 4, 5, 6, 7, 8}, MAX_COMMAND_ARGS, 60, 1, 0};
        }
        for (int r = 0; r < 65536; ++r)
            project.modbusMapLines.Add(wxString::Format("HOLDING,%d,ABCD,FLOAT,TAG%d,Register %d,2", 40001 + r, r, r));
        SaveProject(ctx, Path("source.prj"));
    }
    ~MaximalProject() { wxFileName::Rmdir(root, wxPATH_RMDIR_RECURSIVE); }
    MaximalProject(const MaximalProject&) = delete;
    MaximalProject& operator=(const MaximalProject&) = delete;
    wxString Path(const char* name) const { return root + "/" + name; }
    // A save leaves a file that already holds its bytes as it is: each round saves anew.
    void RemoveSaved(benchmark::State& state) const
    {
        state.PauseTiming();
        wxRemoveFile(Path("saved.prj"));
        wxRemoveFile(Path("saved.mbd"));
        state.ResumeTiming();
    }

    wxString root;
};

std::string Bytes(const wxString& path)
{
    std::string bytes;
    wxFFile file(path, "rb");
    bytes.resize(static_cast<std::size_t>(file.Length()));
    file.Read(bytes.data(), bytes.size());
    return bytes;
}

void BM_LoadAndSaveMaximalProject(benchmark::State& state)
{
    MaximalProject p;
    for (auto _ : state) {
        p.RemoveSaved(state);
        benchmark::DoNotOptimize(ReadProjectFromDisk(p.ctx, p.Path("source.prj")));
        benchmark::DoNotOptimize(SaveProject(p.ctx, p.Path("saved.prj")));
    }
}
BENCHMARK(BM_LoadAndSaveMaximalProject)->Unit(benchmark::kMillisecond);

// The two files' bytes read, then written in one call each; with `flush`, flushed to the disk
// as a save must be (it leaves the old file or the new one after a crash). What the save does
// beyond that is its own cost: the lines to and from text, the temporary file, its mode and the
// rename.
void ReadAndWriteSameBytes(benchmark::State& state, bool flush)
{
    MaximalProject p;
    for (auto _ : state) {
        p.RemoveSaved(state);
        for (const char* extension : {".prj", ".mbd"}) {
            const std::string bytes = Bytes(p.Path("source") + extension);
            wxFile file(p.Path("saved") + extension, wxFile::write);
            benchmark::DoNotOptimize(file.Write(bytes.data(), bytes.size()) == bytes.size() && (!flush || file.Flush()));
        }
    }
}

// Left in the system's cache: no save that must survive a crash can be this fast. Kept to show
// what the flush costs.
void BM_ReadAndWriteSameBytes(benchmark::State& state) { ReadAndWriteSameBytes(state, false); }
BENCHMARK(BM_ReadAndWriteSameBytes)->Unit(benchmark::kMillisecond);

// The floor for load and save.
void BM_ReadAndWriteSameBytesFlushed(benchmark::State& state) { ReadAndWriteSameBytes(state, true); }
BENCHMARK(BM_ReadAndWriteSameBytesFlushed)->Unit(benchmark::kMillisecond);

}  // namespace

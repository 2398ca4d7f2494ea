// The configuration generator's file writing for the largest project the tool can hold (16
// devices x 50 commands x 8 arguments, a full type table), against the floor of writing the
// same bytes to the same files. ttbuild is not run: this is the writer alone.
#include "deploy/config_generator.h"
#include "fakes/test_context.h"
#include "project/project.h"

#include <benchmark/benchmark.h>
#include <wx/ffile.h>
#include <wx/file.h>
#include <wx/filename.h>

#include <memory>
#include <string>
#include <vector>

namespace {

// A build folder with the maximal project and its type table, removed again at the end.
class MaximalBuild : public TestContext {
public:
    MaximalBuild()
    {
        // Real folders: the separator of the platform the benchmark runs on.
        platform.separator = CreatePlatform()->PathSeparator();
        root = wxFileName::CreateTempFileName(wxFileName::GetTempDir() + "/tgxbench");
        wxRemoveFile(root);
        const wxString sep = platform.separator;
        env.TgxBuildPath = root + sep + "tgxconfigure";
        env.TgxTemplatesPath = root;
        for (const char* folder : {"INCLUDE", "ADDITIONAL", "OUTPUT"})
            wxFileName::Mkdir(env.TgxBuildPath + sep + folder, wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);

        // The devices' types sit at the end of a full table: every match scans all rows.
        for (int row = 0; row < kMaxDeviceTypes; ++row)
            ParseDeviceTypeLine(wxString::Format("DEV_TYPE Type%03d dev%03d.ini mba%03d.ini mbb%03d.ini mbc%03d.ini "
                                                 "dmb%03d.ini",
                                    row, row, row, row, row, row),
                deviceTypes);

        LoadDefaultProject(project);
        SetText(project.tagName, "Maximal_Plant");
        project.deviceCount = MAX_DEVICES;
        for (int i = 0; i < MAX_DEVICES; ++i) {
            ProjectDevice& device = project.devices[i];
            SetText(device.typeName, wxString::Format("Type%03d", kMaxDeviceTypes - MAX_DEVICES + i));
            SetText(device.longAddress, "00112233445566778899");
            device.pollAddress = i;
            device.enabled = 1;
            device.commandCount = MAX_COMMANDS;
            for (int k = 0; k < MAX_COMMANDS; ++k)
                device.commands[k] = HartCommandEntry{
                    128 + k, {1000, -2000, 3000, -4000, 5000, -6000, 7000, -8000}, MAX_COMMAND_ARGS, 3600, 1, k % 2};
            for (int k = 0; k < MAX_COMMANDS; ++k)
                project.modbusMapLines.Add(
                    wxString::Format("%d,D%02d CMD %03d,FLOAT,2", 40001 + 2 * (i * 50 + k), i, k));
        }

        wxString projectText;
        for (int line = 0; line < 4000; ++line)
            projectText << "HARTCMD=48,3600,1,0\r\nCMDARGS=1000,-2000,3000,-4000,5000,-6000,7000,-8000\r\n";
        const wxString projectFile = root + sep + "maximal.prj";
        wxFile(projectFile, wxFile::write).Write(projectText);
        project.projectFilePath = projectFile;

        files = {env.TgxBuildPath + sep + "INCLUDE" + sep + "ct.ini",
            env.TgxBuildPath + sep + "ADDITIONAL" + sep + "dbsave.txt",
            env.TgxBuildPath + sep + "ADDITIONAL" + sep + "tgxconfig.prj",
            env.TgxBuildPath + sep + "ADDITIONAL" + sep + "MBMAP1.csv"};
    }
    ~MaximalBuild() { wxFileName::Rmdir(root, wxPATH_RMDIR_RECURSIVE); }
    MaximalBuild(const MaximalBuild&) = delete;
    MaximalBuild& operator=(const MaximalBuild&) = delete;

    void Generate() { WriteConfiguration(project, deviceTypes, env.TgxBuildPath, platform.separator); }

    wxString root;
    std::vector<wxString> files;
};

void BM_GenerateConfigurationMaximalProject(benchmark::State& state)
{
    const auto build = std::make_unique<MaximalBuild>();
    for (auto _ : state)
        build->Generate();
}
BENCHMARK(BM_GenerateConfigurationMaximalProject)->Unit(benchmark::kMicrosecond);

// The generator's floor: the bytes it writes, written again to the same four files in one call per
// file and left in the system's cache, as the generator leaves its scratch files for ttbuild. The
// temporary files and renames are the generator's own cost.
void BM_WriteSameBytes(benchmark::State& state)
{
    const auto build = std::make_unique<MaximalBuild>();
    build->Generate();
    std::vector<std::string> contents;
    for (const wxString& path : build->files) {
        std::string bytes;
        wxFFile file(path, "rb");
        const wxFileOffset length = file.Length();
        bytes.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
        file.Read(bytes.data(), bytes.size());
        contents.push_back(bytes);
    }
    bool written = true;
    for (auto _ : state) {
        for (std::size_t f = 0; f < build->files.size(); ++f) {
            wxFile file;
            const std::string& bytes = contents[f];
            written = file.Create(build->files[f], true) && file.Write(bytes.data(), bytes.size()) == bytes.size() && written;
        }
    }
    benchmark::DoNotOptimize(written);
}
BENCHMARK(BM_WriteSameBytes)->Unit(benchmark::kMicrosecond);

} // namespace

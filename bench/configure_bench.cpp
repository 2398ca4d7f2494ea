// Configure's own time: the whole workflow on the boiler-house example, with the real tool
// runner starting the gateway simulator's tools, minus the wall time spent inside those tools.
// The interface answers as a user would and records the closing one-second pause, not waiting it.
#include "base/app_context.h"
#include "commands/project_commands.h"
#include "commands/startup.h"
#include "deploy/configure_device.h"
#include "fakes/scripted_user_interface.h"
#include "platform/wx_tool_runner.h"
#include "project/project.h"
#include "project/project_file.h"

#include <benchmark/benchmark.h>
#include <wx/dir.h>
#include <wx/ffile.h>
#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/utils.h>

#include <chrono>
#include <memory>

namespace {

using Clock = std::chrono::steady_clock;

double SecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

// Passes every run on to the real runner and adds up the wall time spent in the runs.
class TimedToolRunner : public ToolRunner {
public:
    explicit TimedToolRunner(ToolRunner& tools)
        : tools(tools)
    {
    }
    long RunCaptured(const ToolCommand& command, wxArrayString& output) override
    {
        const Clock::time_point start = Clock::now();
        const long code = tools.RunCaptured(command, output);
        seconds += SecondsSince(start);
        return code;
    }
    long RunBlockingHidden(const ToolCommand& command) override
    {
        const Clock::time_point start = Clock::now();
        const long code = tools.RunBlockingHidden(command);
        seconds += SecondsSince(start);
        return code;
    }
    long RunDetached(const ToolCommand& command) override
    {
        const Clock::time_point start = Clock::now();
        const long code = tools.RunDetached(command);
        seconds += SecondsSince(start);
        return code;
    }
    bool SetWorkingDirectory(const wxString& directory) override { return tools.SetWorkingDirectory(directory); }
    void SetEnvironment(const wxString& name, const wxString& value) override { tools.SetEnvironment(name, value); }

    double seconds = 0;

private:
    ToolRunner& tools;
};

void CopyTree(const wxString& from, const wxString& to)
{
    wxArrayString files;
    wxDir::GetAllFiles(from, &files);
    for (const wxString& file : files) {
        wxFileName target(to + file.Mid(from.length()));
        wxFileName::Mkdir(target.GetPath(), wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
        wxCopyFile(file, target.GetFullPath());
    }
}

// A copy of the sample installation named by a registry file, the example project, and a
// gateway of the simulator's own, all in a scratch folder removed at the end.
class SampleGateway {
public:
    SampleGateway()
    {
        root = wxFileName::CreateTempFileName(wxFileName::GetTempDir() + "/tgxbench");
        wxRemoveFile(root);
        CopyTree(TGX_SOURCE_DIR "/simulator/installation", root + "/installation");
        for (const char* file : {"boiler_house.prj", "boiler_house.mbd"})
            wxCopyFile(TGX_SOURCE_DIR "/docs/examples/" + wxString(file), root + "/" + file);
        wxFFile(root + "/registry.ini", "w")
            .Write("[HKEY_CURRENT_USER/Software/TARN SYSTEMS LTD/TGx Software Suite]\nPath=" + root
                   + "/installation/\nVersion=6.2.2\nFirmwareVersion=6.2.2\nTemplatesVersion=3.1.0\n");
        wxSetEnv("TGX_REGISTRY", root + "/registry.ini");
        wxSetEnv("TGX_DOCUMENTS", root + "/Documents");
        wxSetEnv("TGXSIM_HOME", root + "/gateway");
        wxString path;
        wxGetEnv("PATH", &path);
        wxSetEnv("PATH", wxString(TGX_SIMULATOR_BIN) + wxPATH_SEP + path);
    }
    ~SampleGateway()
    {
        wxSetWorkingDirectory(wxFileName::GetTempDir());  // Configure leaves it in the build folder
        wxFileName::Rmdir(root, wxPATH_RMDIR_RECURSIVE);
    }
    SampleGateway(const SampleGateway&) = delete;
    SampleGateway& operator=(const SampleGateway&) = delete;

    wxString root;
};

void BM_ConfigureOwnTime(benchmark::State& state)
{
    SampleGateway gateway;
    std::unique_ptr<Platform> platform = CreatePlatform();
    Project project;
    InstallationEnvironment env;
    TargetAddress target;
    DeviceTypeTable deviceTypes;
    WxToolRunner realTools;
    TimedToolRunner tools(realTools);
    MessageForm fault;
    ScriptedUserInterface loading;
    AppContext loadingContext{project, env, target, deviceTypes, loading, tools, *platform};
    if (!ReadInstallation(*platform, env, fault) || !ReadDeviceTypes(env, deviceTypes, fault)
        || ReadProjectFromDisk(loadingContext, gateway.root + "/boiler_house.prj") != ProjectReadResult::Read) {
        state.SkipWithError("the sample installation or project cannot be read");
        return;
    }
    double toolSeconds = 0;
    for (auto _ : state) {
        ScriptedUserInterface ui;
        ui.texts = {wxString("127.0.0.1"), wxString("BOILER1")};
        AppContext ctx{project, env, target, deviceTypes, ui, tools, *platform};
        tools.seconds = 0;
        const Clock::time_point start = Clock::now();
        const bool configured = ConfigureDevice(ctx);
        const double total = SecondsSince(start);
        if (!configured || ui.messages.size() != 1 || ui.messages[0].text != "Configuration Complete") {
            state.SkipWithError("Configure did not complete");
            return;
        }
        state.SetIterationTime(total - tools.seconds);
        toolSeconds += tools.seconds;
    }
    state.SetLabel(wxString::Format("tools %.1f ms", toolSeconds * 1e3 / state.iterations()).ToStdString());
}
// The median of five rounds: the machine's other work (disk flushes above all) comes in bursts.
BENCHMARK(BM_ConfigureOwnTime)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(10)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);

}  // namespace

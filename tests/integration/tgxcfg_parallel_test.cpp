// Runs of tgxcfg at once on one installation, each against its own simulated gateway: each
// gateway ends up running exactly its own project.
#ifndef _WIN32
#include "tgxcfg_fixture.h"

#include <spawn.h>
#include <sys/wait.h>

#include <string>

namespace {

class Parallel : public TgxcfgScratch {
protected:
    // Starts tgxcfg with `args` in the scratch folder, its output into FILE.out; the process id.
    pid_t Start(const std::vector<wxString>& args, const wxString& output)
    {
        std::vector<std::string> words{TGX_CLI_BINARY, OwnInstallation().utf8_string()}, environment;
        for (const wxString& arg : args)
            words.push_back(arg.utf8_string());
        env.env["TGX_REGISTRY"] = registry;
        for (const auto& variable : env.env)
            environment.push_back((variable.first + "=" + variable.second).utf8_string());
        std::vector<char*> argv, envp;
        for (std::string& word : words)
            argv.push_back(&word[0]);
        for (std::string& variable : environment)
            envp.push_back(&variable[0]);
        argv.push_back(nullptr);
        envp.push_back(nullptr);
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_addopen(&actions, 1, output.fn_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        pid_t pid = -1;
        const bool started = posix_spawn(&pid, TGX_CLI_BINARY, &actions, nullptr, argv.data(), envp.data()) == 0;
        posix_spawn_file_actions_destroy(&actions);
        return started ? pid : -1;
    }
};

}  // namespace

// Eight plants configured at once, the build and the upload slowed down as on a real network.
TEST_F(Parallel, EightConfigureRunsEachSendTheirOwnProject)
{
    Write("gateway/faults.txt", Lines({"delay ttbuild 0.3", "delay ttrestore 0.2"}));
    const wxArrayString plant = Read("boiler_house.prj");
    std::vector<pid_t> runs;
    for (int n = 2; n <= 9; ++n) {
        wxArrayString own = plant;
        own[own.Index("TGX TAGNAME:BOILER1")] = wxString::Format("TGX TAGNAME:PLANT%d", n);
        Write(wxString::Format("plant%d.prj", n), own);
        wxCopyFile(dir.path + "/boiler_house.mbd", dir.path + wxString::Format("/plant%d.mbd", n));
    }
    for (int n = 2; n <= 9; ++n)
        runs.push_back(Start({"configure", dir.path + wxString::Format("/plant%d.prj", n), wxString::Format("--target=127.0.0.%d", n),
                              "--yes"},
                             dir.path + wxString::Format("/plant%d.out", n)));
    for (const pid_t pid : runs) {
        int status = -1;
        ASSERT_TRUE(pid > 0 && waitpid(pid, &status, 0) == pid);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    }
    int waited = 0;
    for (int n = 2; n <= 9; ++n) {
        SCOPED_TRACE(n);
        const wxString gateway = wxString::Format("gateway/gateways/127.0.0.%d/TG7/", n);
        EXPECT_EQ(Read(gateway + "tgxconfig.prj"), Read(wxString::Format("plant%d.prj", n)));
        EXPECT_EQ(Read(gateway + "MBMAP1.csv"), Read("boiler_house.mbd"));
        const wxArrayString defs = Read(gateway + "config/defs.ini");
        EXPECT_TRUE(std::any_of(defs.begin(), defs.end(), [n](const wxString& line) {
            return line.Contains(wxString::Format("PLANT%d", n));
        }));
        const wxArrayString said = Read(wxString::Format("plant%d.out", n));
        waited += std::any_of(said.begin(), said.end(), [](const wxString& line) { return line.StartsWith("Waiting for another run"); });
    }
    EXPECT_GT(waited, 0);  // they took turns, and said so
}

// Projects of different plants re-saved at once in automatic map mode: each map is its own
// project's, as a save alone makes it.
TEST_F(Parallel, AutomaticMapsOfSavesAtOnceStayApart)
{
    const char* const plants[] = {"boiler_house", "tank_farm_mux", "legacy_plant"};
    wxArrayString alone;
    for (const char* plant : plants) {
        ASSERT_EQ(Run({OwnInstallation(), "resave", wxString(plant) + ".prj", wxString(plant) + "_alone.prj"}).status, 0);
        alone.Add(wxJoin(Read(wxString(plant) + "_alone.mbd"), '\n'));
    }
    Write("gateway/faults.txt", Lines({"delay inifile 0.2", "delay ttbuild 0.1"}));
    std::vector<pid_t> runs;
    for (int round = 0; round < 2; ++round)
        for (const char* plant : plants)
            runs.push_back(Start({"resave", dir.path + "/" + plant + ".prj",
                                  dir.path + wxString::Format("/%s_%d.prj", plant, round)},
                                 dir.path + wxString::Format("/%s_%d.out", plant, round)));
    for (const pid_t pid : runs) {
        int status = -1;
        ASSERT_TRUE(pid > 0 && waitpid(pid, &status, 0) == pid && WIFEXITED(status) && WEXITSTATUS(status) == 0);
    }
    for (int round = 0; round < 2; ++round)
        for (size_t p = 0; p < alone.size(); ++p)
            EXPECT_EQ(wxJoin(Read(wxString::Format("%s_%d.mbd", plants[p], round)), '\n'), alone[p]) << plants[p];
}
#endif

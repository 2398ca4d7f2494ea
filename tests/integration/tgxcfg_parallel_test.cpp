// Runs of tgxcfg at once on one installation, each against its own simulated gateway: each
// gateway ends up running exactly its own project.
#include "tgxcfg_fixture.h"

#include <algorithm>
#include <cstdlib>
#include <thread>

namespace {

class Parallel : public TgxcfgScratch {
protected:
    // Runs tgxcfg once per line of `runs` (its arguments and the file that takes its output), all
    // at once; true when every run ended with status 0.
    bool RunAtOnce(const std::vector<std::pair<wxString, wxString>>& runs)
    {
        env.env["TGX_REGISTRY"] = registry;
        for (const auto& variable : env.env)
            wxSetEnv(variable.first, variable.second);
        wxString binary = TGX_CLI_BINARY;
#ifdef __WINDOWS__
        if (binary.StartsWith("/"))
            binary = "Z:" + binary;  // the build folder as Wine's drive shows it to cmd.exe
#endif
        std::vector<int> codes(runs.size());
        std::vector<std::thread> threads;
        for (size_t i = 0; i < runs.size(); ++i)
            threads.emplace_back([&, i] {
                wxString line = "\"" + binary + "\" " + OwnInstallation() + " " + runs[i].first + " >\"" + dir.path + "/"
                                + runs[i].second + "\"";
#ifdef __WINDOWS__
                line = "\"" + line + "\"";  // cmd.exe /c drops the first and the last quote of the line
#endif
                codes[i] = std::system(line.utf8_str());
            });
        for (std::thread& thread : threads)
            thread.join();
        return std::all_of(codes.begin(), codes.end(), [](int code) { return code == 0; });
    }
};

}  // namespace

// Eight plants configured at once, the build and the upload slowed down as on a real network.
TEST_F(Parallel, EightConfigureRunsEachSendTheirOwnProject)
{
    Write("gateway/faults.txt", Lines({"delay ttbuild 0.3", "delay ttrestore 0.2"}));
    const wxArrayString plant = Read("boiler_house.prj");
    std::vector<std::pair<wxString, wxString>> runs;
    for (int n = 2; n <= 9; ++n) {
        wxArrayString own = plant;
        own[own.Index("TGX TAGNAME:BOILER1")] = wxString::Format("TGX TAGNAME:PLANT%d", n);
        Write(wxString::Format("plant%d.prj", n), own);
        wxCopyFile(dir.path + "/boiler_house.mbd", dir.path + wxString::Format("/plant%d.mbd", n));
    }
    for (int n = 2; n <= 9; ++n)
        runs.emplace_back(wxString::Format("configure %s/plant%d.prj --target=127.0.0.%d --yes", dir.path, n, n),
                          wxString::Format("plant%d.out", n));
    EXPECT_TRUE(RunAtOnce(runs));
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
    std::vector<std::pair<wxString, wxString>> runs;
    for (int round = 0; round < 2; ++round)
        for (const char* plant : plants)
            runs.emplace_back(wxString::Format("resave %s/%s.prj %s/%s_%d.prj", dir.path, plant, dir.path, plant, round),
                              wxString::Format("%s_%d.out", plant, round));
    ASSERT_TRUE(RunAtOnce(runs));
    for (int round = 0; round < 2; ++round)
        for (size_t p = 0; p < alone.size(); ++p)
            EXPECT_EQ(wxJoin(Read(wxString::Format("%s_%d.mbd", plants[p], round)), '\n'), alone[p]) << plants[p];
}

// tgxcfg diff as a site visit uses it: a project against the simulated gateway it was sent to.
#include "project/text_file.h"
#include "wx_test_support.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <wx/filename.h>
#include <wx/utils.h>

TEST(TgxcfgDiff, ReportsExactlyTheEditSinceTheLastConfigure)
{
    const wxString scratch = wxFileName::CreateTempFileName(wxFileName::GetTempDir() + "/tgxcfgdiff");
    wxRemoveFile(scratch);
    CopyTree(wxString(TGX_SOURCE_DIR) + "/simulator/installation", scratch + "/installation");
    CopyTree(wxString(TGX_SOURCE_DIR) + "/docs/examples", scratch);
    wxArrayString registry = Lines({"[HKEY_CURRENT_USER/Software/TARN SYSTEMS LTD/TGx Software Suite]",
        "Version=6.2.2", "FirmwareVersion=6.2.2", "TemplatesVersion=3.1.0"});
    registry.Add("Path=" + scratch + "/installation/");
    WriteTextLines(scratch + "/registry.ini", registry);
    wxExecuteEnv env;
    wxGetEnvMap(&env.env);
    env.env["TGX_REGISTRY"] = scratch + "/registry.ini";
    env.env["TGX_DOCUMENTS"] = scratch + "/Documents";
    env.env["TGXSIM_HOME"] = scratch + "/gateway";
    env.env["PATH"] = wxString(TGX_SIMULATOR_BIN) + wxPATH_SEP + env.env["PATH"];
    env.cwd = scratch;
    wxArrayString out, err;
    auto run = [&](const wxString& args) {
        out.clear();
        err.clear();
        return wxExecute("\"" TGX_CLI_BINARY "\" " + args, out, err,
            wxEXEC_SYNC | wxEXEC_NODISABLE, &env);
    };

    EXPECT_EQ(run("diff boiler_house.prj --target=127.0.0.1"), 1);  // nothing configured yet
    EXPECT_EQ(err, Lines({"Failed to obtain configuration from TG7."}));
    ASSERT_EQ(run("configure boiler_house.prj --target=127.0.0.1 --yes"), 0) << wxJoin(err, '\n');
    EXPECT_EQ(run("diff boiler_house.prj --target=127.0.0.1"), 0);
    EXPECT_TRUE(out.empty()) << wxJoin(out, '\n');

    wxArrayString lines;
    ASSERT_TRUE(ReadTextLines(scratch + "/boiler_house.prj", lines));
    lines[lines.Index("SERIAL PORT BAUDRATE:19200")] = "SERIAL PORT BAUDRATE:9600";
    WriteTextLines(scratch + "/boiler_house.prj", lines);
    EXPECT_EQ(run("diff boiler_house.prj --target=127.0.0.1"), 1);
    EXPECT_EQ(out, Lines({"SERIAL PORT BAUDRATE: 9600 -> 19200"}));
    EXPECT_EQ(run("diff boiler_house.prj --target=127.0.0.1 --format=json"), 1);
    const auto json = nlohmann::json::parse(wxJoin(out, '\n').utf8_string());
    EXPECT_EQ(json, nlohmann::json::parse(R"({"same": false, "differences": [{"kind": "setting", "change": "changed",
        "subject": "SERIAL PORT BAUDRATE", "before": "9600", "after": "19200"}]})"));

    ASSERT_EQ(run("configure boiler_house.prj --target=127.0.0.1 --yes"), 0) << wxJoin(err, '\n');
    EXPECT_EQ(run("diff boiler_house.prj --target=127.0.0.1 --format=json"), 0);
    EXPECT_EQ(nlohmann::json::parse(wxJoin(out, '\n').utf8_string())["same"], true);

    // The other two documents, in their documented shapes.
    EXPECT_EQ(run("show boiler_house.prj --format=json"), 0);
    const auto shown = nlohmann::json::parse(wxJoin(out, '\n').utf8_string());
    EXPECT_EQ(shown["settings"]["SERIAL PORT BAUDRATE"], "9600");
    EXPECT_EQ(shown["devices"][2]["commands"][2], nlohmann::json::parse(R"({"number": 35, "interval": 1,
        "polled": true, "writeOnTrigger": true, "arguments": [0, 12]})"));
    EXPECT_EQ(shown["map"].size(), 5u);
    lines.Add("FOR DEVICE:16");
    WriteTextLines(scratch + "/boiler_house.prj", lines);
    EXPECT_EQ(run("check boiler_house.prj --format=json"), 1);
    EXPECT_EQ(nlohmann::json::parse(wxJoin(out, '\n').utf8_string()),
        nlohmann::json::parse(R"({"problems": [{"file": "boiler_house.prj", "line": )" + std::to_string(lines.size())
            + R"(, "message": "device 16 is outside 0..15: its lines are ignored"}]})"));
    wxFileName::Rmdir(scratch, wxPATH_RMDIR_RECURSIVE);
}

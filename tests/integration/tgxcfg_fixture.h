// tgxcfg as a script runs it: the built program in a scratch folder holding a copy of the sample
// installation (named by a registry file), the example projects and the simulated gateway's state
// (gateway/), with the simulator's tools first on PATH.
#pragma once

#include "base/tool_command.h"
#include "base/text_file.h"
#include "unit/temp_dir.h"
#include "wx_test_support.h"

#include <gtest/gtest.h>
#include <wx/utils.h>

#include <vector>

// One argument of a command line that wxExecute splits back into the same argument: by the Windows
// rules there, by the toolkit's own elsewhere (inside quotes a backslash escapes).
inline wxString ExecuteArgument(const wxString& argument)
{
#ifdef __WINDOWS__
    return ToolCommand("x").QuotedArg(argument).CommandLine().Mid(2);
#else
    wxString quoted = argument;
    quoted.Replace("\\", "\\\\");
    quoted.Replace("\"", "\\\"");
    return "\"" + quoted + "\"";
#endif
}

struct CliRun {
    long status = -1;
    wxArrayString out, err;
};

class TgxcfgScratch : public ::testing::Test {
protected:
    TgxcfgScratch()
    {
        CopyTree(wxString(TGX_SOURCE_DIR) + "/simulator/installation", dir.path + "/installation");
        CopyTree(wxString(TGX_SOURCE_DIR) + "/docs/examples", dir.path);
        wxFileName::Mkdir(dir.path + "/gateway/TG7", wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
        registry = dir.Write("registry.ini", "[HKEY_CURRENT_USER/Software/TARN SYSTEMS LTD/TGx Software Suite]\nPath="
            + dir.path + "/installation/\nVersion=6.2.2\nFirmwareVersion=6.2.2\nTemplatesVersion=3.1.0\n"
            "[HKEY_LOCAL_MACHINE/Software/TARN SYSTEMS LTD/TGx Connect]\nPath=" + dir.path + "/installation/tgxconnect/\n");
        wxGetEnvMap(&env.env);
        env.env["TGX_DOCUMENTS"] = dir.path + "/Documents";
        env.env["TGXSIM_HOME"] = dir.path + "/gateway";
        // The simulated PC's temporary folder, where the lock of its virtual COM port lies.
        wxMkdir(dir.path + "/tmp");
        for (const char* temp : {"TMPDIR", "TMP", "TEMP"})
            env.env[temp] = dir.path + "/tmp";
        env.env.erase("TT_SSH_PORT");
        env.env["PATH"] = wxString(TGX_SIMULATOR_BIN) + wxPATH_SEP + env.env["PATH"];
        env.cwd = dir.path;
    }

    // Runs tgxcfg in the scratch folder, standard output and error kept apart.
    CliRun Run(const std::vector<wxString>& args)
    {
        env.env["TGX_REGISTRY"] = registry;
        wxString command;
        for (const wxString& word : wrapper)
            command << ExecuteArgument(word) << " ";
        command << "\"" TGX_CLI_BINARY "\"";
        if (!installationOption.empty())
            command << " " << ExecuteArgument(installationOption);
        for (const wxString& arg : args)
            command << " " << ExecuteArgument(arg);
        CliRun run;
        run.status = wxExecute(command, run.out, run.err, wxEXEC_SYNC | wxEXEC_NODISABLE, &env);
        return run;
    }
    // An admin command of the simulator on the scratch gateway: its standard output.
    wxArrayString Sim(const wxString& admin)
    {
        wxArrayString out, err;
        EXPECT_EQ(wxExecute(TGX_SIMULATOR_BIN "/tgxsim " + admin, out, err, wxEXEC_SYNC | wxEXEC_NODISABLE, &env), 0)
            << admin;
        return out;
    }
    wxArrayString Read(const wxString& relative) const
    {
        wxArrayString lines;
        return ReadTextLines(dir.path + "/" + relative, lines) ? lines : Lines({"(missing)"});
    }
    void Write(const wxString& relative, const wxArrayString& lines) const { WriteTextLines(dir.path + "/" + relative, lines); }

    // Each test's own installation. Under Windows the registry (not the registry file) names the
    // installation, one for all tests, whose build folder parallel tests would share.
    wxString OwnInstallation() const { return "--software-path=" + dir.path + "/installation"; }

    TempDir dir;
    wxString registry;
    wxString installationOption;  // put before every command's arguments when set
    std::vector<wxString> wrapper;  // a command that runs tgxcfg, its arguments following
    wxExecuteEnv env;
};

#include "sim_state.h"

#include "text_io.h"

#include <wx/datetime.h>
#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/tokenzr.h>
#include <wx/utils.h>

namespace sim {

const wxUniChar SimState::sep = wxFileName::GetPathSeparator();

namespace {

const char* const kSettingsFile = "settings.ini";

// Folders a gateway has from the factory; uploads into them work without creating anything.
const char* const kGatewayFolders[] = {"TG7", "TG7/config", "root/var/www/html/downloads", "root/tmp"};

// Everything Reset may remove: the simulator's own files, never anything else in the folder.
const char* const kStateEntries[]
    = {"settings.ini", "TG7", "root", "faults.txt", "fault-counters.txt", "run.log", "boot.log",
       "mbedit.txt", "vsp.txt", "pc-com-ports.txt", "com-ports.txt", "mux.txt"};

bool MakeFolder(const wxString& path)
{
    return wxDirExists(path) || wxFileName::Mkdir(path, wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
}

}  // namespace

wxString SimState::FolderFromEnvironment()
{
    wxString folder;
    if (wxGetEnv("TGXSIM_HOME", &folder) && !folder.empty())
        return folder;
    return wxGetHomeDir() + sep + ".tgxsim";
}

SimState::SimState(const wxString& folder_)
    : folder(folder_)
{
    while (folder.length() > 1 && (folder.Last() == '/' || folder.Last() == sep))
        folder.RemoveLast();
}

wxString SimState::File(const wxString& relative) const
{
    wxString path = folder;
    for (const wxString& part : wxStringTokenize(relative, "/", wxTOKEN_STRTOK))
        path << sep << part;
    return path;
}

bool SimState::Open(wxString& problem)
{
    for (const char* name : kGatewayFolders) {
        if (!MakeFolder(File(name))) {
            problem = "cannot create the state folder " + File(name);
            return false;
        }
    }
    if (!wxFileExists(File(kSettingsFile)) && !SaveSettings(GatewaySettings())) {
        problem = "cannot write " + File(kSettingsFile);
        return false;
    }
    return true;
}

bool SimState::Reset(wxString& problem)
{
    for (const char* name : kStateEntries) {
        const wxString path = File(name);
        if (wxDirExists(path))
            wxFileName::Rmdir(path, wxPATH_RMDIR_RECURSIVE);
        else if (wxFileExists(path))
            wxRemoveFile(path);
        if (wxFileName::Exists(path)) {
            problem = "cannot remove " + path;
            return false;
        }
    }
    return Open(problem);
}

bool SimState::ResolveRemote(const wxString& remote, wxString& local) const
{
    if (remote.empty() || remote.Contains("\\"))
        return false;
    local = remote.StartsWith("/") ? File("root") : folder;
    bool any = false;
    for (const wxString& part : wxStringTokenize(remote, "/", wxTOKEN_STRTOK)) {
        if (part == "..")
            return false;
        if (part == ".")
            continue;
        local << sep << part;
        any = true;
    }
    return any;
}

bool SimState::LoadSettings(GatewaySettings& settings) const
{
    settings = GatewaySettings();
    wxArrayString lines;
    if (!ReadLines(File(kSettingsFile), lines))
        return false;
    for (const wxString& line : lines) {
        const wxString key = line.BeforeFirst('=').Trim().Trim(false).Lower();
        const wxString value = line.AfterFirst('=').Trim().Trim(false);
        if (key == "type")
            settings.deviceType = value;
        else if (key == "firmware")
            settings.firmware = value;
        else if (key == "templates")
            settings.templates = value;
    }
    return true;
}

bool SimState::SaveSettings(const GatewaySettings& settings) const
{
    wxArrayString lines;
    lines.Add("; the simulated gateway: change with 'tgxsim set type|firmware|templates VALUE'");
    lines.Add("type=" + settings.deviceType);
    lines.Add("firmware=" + settings.firmware);
    lines.Add("templates=" + settings.templates);
    return WriteLines(File(kSettingsFile), lines);
}

bool SimState::AppendRunLog(const wxString& line) const { return AppendLine(File("run.log"), line); }

bool SimState::AppendBootLog(const wxString& line) const { return AppendLine(File("boot.log"), line); }

wxString Timestamp() { return wxDateTime::UNow().Format("%Y-%m-%d %H:%M:%S.%l"); }

wxString SshPortForLog()
{
    wxString port;
    return wxGetEnv("TT_SSH_PORT", &port) ? port : wxString("(unset)");
}

}  // namespace sim

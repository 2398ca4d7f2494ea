#include "sim_state.h"

#include "text_io.h"

#include <wx/datetime.h>
#include <wx/dir.h>
#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/tokenzr.h>
#include <wx/utils.h>

#include <algorithm>

namespace sim {

const wxUniChar SimState::sep = wxFileName::GetPathSeparator();

namespace {

const char* const kSettingsFile = "settings.ini";

// Folders a gateway has from the factory; uploads into them work without creating anything.
const char* const kGatewayFolders[] = {"TG7", "TG7/config", "root/var/www/html/downloads", "root/tmp"};

// Everything Reset may remove: the simulator's own files, never anything else in the folder.
const char* const kGatewayEntries[] = {"settings.ini", "TG7", "root", "boot.log", "mux.txt"};
const char* const kSharedEntries[] = {"faults.txt", "fault-counters.txt", "fault-counters.lock", "run.log",
    "mbedit.txt", "vsp.txt", "pc-com-ports.txt", "com-ports.txt", "gateways"};

const char* const kGatewaysFolder = "gateways";

wxString Below(const wxString& folder, const wxString& relative)
{
    wxString path = folder;
    for (const wxString& part : wxStringTokenize(relative, "/", wxTOKEN_STRTOK))
        path << SimState::sep << part;
    return path;
}

// Another process may be creating the same folders at the same moment: a step of the path that
// appeared meanwhile fails one attempt, and the next goes on from it.
bool MakeFolder(const wxString& path)
{
    for (int attempt = 0; attempt < 8; ++attempt)
        if (wxDirExists(path) || wxFileName::Mkdir(path, wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL))
            return true;
    return false;
}

bool RemoveEntry(const wxString& path, wxString& problem)
{
    if (wxDirExists(path))
        wxFileName::Rmdir(path, wxPATH_RMDIR_RECURSIVE);
    else if (wxFileExists(path))
        wxRemoveFile(path);
    if (!wxFileName::Exists(path))
        return true;
    problem = "cannot remove " + path;
    return false;
}

// The gateway's standard folders and settings, where missing.
bool OpenGateway(const wxString& gatewayFolder, wxString& problem)
{
    for (const char* name : kGatewayFolders) {
        if (!MakeFolder(Below(gatewayFolder, name))) {
            problem = "cannot create the state folder " + Below(gatewayFolder, name);
            return false;
        }
    }
    const wxString settings = Below(gatewayFolder, kSettingsFile);
    if (!wxFileExists(settings)) {
        SimState gateway(gatewayFolder);
        if (!gateway.SaveSettings(GatewaySettings())) {
            problem = "cannot write " + settings;
            return false;
        }
    }
    return true;
}

// The four numbers of a gateway's name, for sorting by address.
unsigned long AddressKey(const wxString& name)
{
    unsigned long key = 0;
    for (const wxString& part : wxSplit(name, '.', '\0')) {
        unsigned long number = 0;
        part.ToULong(&number);
        key = key * 256 + number;
    }
    return key;
}

}  // namespace

wxString SimState::FolderFromEnvironment()
{
    wxString folder;
    if (wxGetEnv("TGXSIM_HOME", &folder) && !folder.empty())
        return folder;
    return wxGetHomeDir() + sep + ".tgxsim";
}

wxString SimState::GatewayName(const wxString& address)
{
    const wxArrayString parts = wxSplit(address, '.', '\0');
    if (parts.size() != 4 || parts[0] != "127" || address == "127.0.0.1")
        return wxString();
    for (const wxString& part : parts) {
        unsigned long number = 0;
        if (part.empty() || part.length() > 3 || part.find_first_not_of("0123456789") != wxString::npos ||
            (part.length() > 1 && part[0] == '0') || !part.ToULong(&number) || number > 255)
            return wxString();
    }
    return address;
}

SimState::SimState(const wxString& folder_)
    : folder(folder_)
{
    while (folder.length() > 1 && (folder.Last() == '/' || folder.Last() == sep))
        folder.RemoveLast();
    gatewayFolder = folder;
}

wxString SimState::File(const wxString& relative) const { return Below(folder, relative); }

wxString SimState::GatewayFile(const wxString& relative) const { return Below(gatewayFolder, relative); }

bool SimState::Open(wxString& problem) { return OpenGateway(folder, problem); }

bool SimState::SelectGateway(const wxString& address, wxString& problem)
{
    gateway = GatewayName(address);
    gatewayFolder = gateway.empty() ? folder : File(kGatewaysFolder) + sep + gateway;
    return gateway.empty() || OpenGateway(gatewayFolder, problem);
}

bool SimState::Reset(wxString& problem)
{
    for (const char* name : kGatewayEntries)
        if (!RemoveEntry(File(name), problem))
            return false;
    for (const char* name : kSharedEntries)
        if (!RemoveEntry(File(name), problem))
            return false;
    gateway.clear();
    gatewayFolder = folder;
    return Open(problem);
}

bool SimState::ResetGateway(wxString& problem)
{
    for (const char* name : kGatewayEntries)
        if (!RemoveEntry(GatewayFile(name), problem))
            return false;
    return OpenGateway(gatewayFolder, problem);
}

wxArrayString SimState::GatewayNames() const
{
    wxArrayString names;
    wxDir dir;
    if (!wxDirExists(File(kGatewaysFolder)) || !dir.Open(File(kGatewaysFolder)))
        return names;
    wxString name;
    for (bool more = dir.GetFirst(&name, wxEmptyString, wxDIR_DIRS); more; more = dir.GetNext(&name))
        if (GatewayName(name) == name && !name.empty())
            names.Add(name);
    std::sort(names.begin(), names.end(),
        [](const wxString& a, const wxString& b) { return AddressKey(a) < AddressKey(b); });
    return names;
}

bool SimState::ResolveRemote(const wxString& remote, wxString& local) const
{
    if (remote.empty() || remote.Contains("\\"))
        return false;
    local = remote.StartsWith("/") ? GatewayFile("root") : gatewayFolder;
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
    if (!ReadLines(GatewayFile(kSettingsFile), lines))
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
    return WriteLines(GatewayFile(kSettingsFile), lines);
}

bool SimState::AppendRunLog(const wxString& line) const { return AppendLine(File("run.log"), line); }

bool SimState::AppendBootLog(const wxString& line) const { return AppendLine(GatewayFile("boot.log"), line); }

wxString Timestamp() { return wxDateTime::UNow().Format("%Y-%m-%d %H:%M:%S.%l"); }

wxString SshPortForLog()
{
    wxString port;
    return wxGetEnv("TT_SSH_PORT", &port) ? port : wxString("(unset)");
}

}  // namespace sim

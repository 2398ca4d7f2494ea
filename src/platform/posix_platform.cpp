#include "platform/posix_platform.h"

#ifndef __WINDOWS__

#include <wx/fileconf.h>
#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/log.h>
#include <wx/stdpaths.h>
#include <wx/utils.h>
#include <wx/wfstream.h>

#include <utility>

namespace {

// Reads one key's group of the registry file; false when the file or the group is missing.
bool ReadGroup(const wxString& file, const wxString& group, const wxString& name, wxString* value)
{
    wxLogNull quiet;  // a damaged file reads as a missing key, without a log box
    if (file.empty() || !wxFileExists(file))
        return false;
    wxFileInputStream stream(file);
    if (!stream.IsOk())
        return false;
    wxFileConfig config(stream);
    config.SetExpandEnvVars(false);
    if (!config.HasGroup(group))
        return false;
    if (value != nullptr && !config.Read(group + "/" + name, value))
        value->clear();
    return true;
}

// Quotes a word for /bin/sh when it needs it.
wxString ShellWord(const wxString& word)
{
    if (!word.empty() && word.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_-+=.,/:@%") ==
                             wxString::npos)
        return word;
    wxString quoted = word;
    quoted.Replace("'", "'\\''");
    return "'" + quoted + "'";
}

}  // namespace

PosixPlatform::PosixPlatform(const wxString& registryFile, ComPortProbe comPortProbe)
    : registryFile(registryFile.empty() ? DefaultRegistryFile() : registryFile), comPortProbe(std::move(comPortProbe))
{
}

wxString PosixPlatform::DefaultRegistryFile()
{
    wxString file;
    if (wxGetEnv("TGX_REGISTRY", &file) && !file.empty())
        return file;
    wxString configHome;
    if (!wxGetEnv("XDG_CONFIG_HOME", &configHome) || configHome.empty())
        configHome = wxGetHomeDir() + "/.config";
    return configHome + "/tgx/registry.ini";
}

wxString PosixPlatform::RegistryGroup(RegistryHive hive, const wxString& key)
{
    wxString group = hive == RegistryHive::CurrentUser ? "/HKEY_CURRENT_USER/" : "/HKEY_LOCAL_MACHINE/";
    wxString path = key;
    path.Replace("\\", "/");
    return group + path;
}

bool PosixPlatform::RegistryKeyExists(RegistryHive hive, const wxString& key)
{
    return ReadGroup(registryFile, RegistryGroup(hive, key), wxString(), nullptr);
}

wxString PosixPlatform::RegistryValue(RegistryHive hive, const wxString& key, const wxString& name)
{
    wxString value;
    if (!ReadGroup(registryFile, RegistryGroup(hive, key), name, &value))
        value.clear();
    return value;
}

wxString PosixPlatform::DocumentsDir() const
{
    // TGX_DOCUMENTS stands in for the documents folder, so a demo or a test keeps its projects
    // out of the user's own.
    wxString documents;
    if (wxGetEnv("TGX_DOCUMENTS", &documents) && !documents.empty())
        return documents;
    return wxStandardPaths::Get().GetDocumentsDir();
}

wxString PosixPlatform::SilentUpdaterCommand(const wxString& softwarePath) const
{
    // No PowerShell here: an updater shipped in the software folder is run directly, if present.
    const wxString updater = softwarePath + "updater";
    if (!wxFileName::IsFileExecutable(updater))
        return wxString();
    return "./updater /silent";
}

wxString PosixPlatform::UpdaterCommand(const wxString& softwarePath) const
{
    return wxFileName::IsFileExecutable(softwarePath + "updater") ? wxString("./updater") : wxString();
}

void PosixPlatform::OpenWithDefaultApplication(const wxString& path)
{
    // wxLaunchDefaultApplication lives in the GUI library here; xdg-open is what it runs. Started
    // without a shell, so no character of the path is interpreted.
    const wxString opener = "xdg-open";
    const wxChar* const argv[] = {opener.wc_str(), path.wc_str(), nullptr};
    wxLogNull quiet;
    wxExecute(argv, wxEXEC_ASYNC);
}

wxArrayString PosixPlatform::FreeComPortNames()
{
    return ScanFreeComPortNames(comPortProbe ? comPortProbe : TakenComPortListProbe());
}

ToolCommand PosixPlatform::RedirectedCommand(const wxString& command, const wxString& outputFile) const
{
    // The shell's place is cmd.exe's: the same command and the same ">" into the file.
    return ToolCommand("/bin/sh").Arg("-c").Arg(command + " >" + ShellWord(outputFile));
}

ToolCommand PosixPlatform::ShellCommand(const wxString& command) const
{
    return ToolCommand("/bin/sh").Arg("-c").Arg(command);
}

std::unique_ptr<Platform> CreatePlatform()
{
    return std::make_unique<PosixPlatform>();
}

#endif

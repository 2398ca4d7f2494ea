// Where the gateway's software suite is installed and which versions it holds, read once from
// the registry at start-up. The member names are the labels the About box shows.
#pragma once

#include <wx/string.h>

class Platform;

extern const char* const kSuiteRegistryKey;
extern const char* const kConnectRegistryKey;

struct InstallationEnvironment {
    wxString TgxSoftwarePath;
    wxString TGxConnectPath;
    wxString TgxSoftwareInstallerPath;
    wxString TgxConnectInstallerPath;
    wxString TgxProjectPath;
    wxString TgxTemplatesPath;
    wxString TgxFirmwarePath;
    wxString TgxDocumentPath;
    wxString TgxBuildPath;
    wxString TGxSoftwareVersion;
    wxString TGxConnectVersion;
    wxString FirmwareVersion;
    wxString TemplatesVersion;
};

// Reads the suite key (current user) and the connect key (machine); false when the suite key is
// missing. Missing values and a missing connect key leave empty texts.
bool ReadInstallationEnvironment(Platform& platform, InstallationEnvironment& env);

// Derives the folders from the software path by plain concatenation: the registry's "Path" value
// ends with a separator, and no separator is ever inserted (installations in the field rely on it).
void DeriveInstallationPaths(InstallationEnvironment& env, const wxString& separator, const wxString& documentsDir);

// "TGxSoftwareSuite ... , TGxConnect ..." for the status bar.
wxString VersionStatusLine(const InstallationEnvironment& env);

#include "base/installation_environment.h"

#include "base/platform.h"

const char* const kSuiteRegistryKey = "Software\\TARN SYSTEMS LTD\\TGx Software Suite";
const char* const kConnectRegistryKey = "Software\\TARN SYSTEMS LTD\\TGx Connect";

bool ReadInstallationEnvironment(Platform& platform, InstallationEnvironment& env)
{
    // The suite key lives in the user's hive and the connect key in the machine's: intended.
    if (!platform.RegistryKeyExists(RegistryHive::CurrentUser, kSuiteRegistryKey))
        return false;
    auto suite = [&](const char* name) { return platform.RegistryValue(RegistryHive::CurrentUser, kSuiteRegistryKey, name); };
    env.TgxSoftwarePath = suite("Path");
    env.TGxSoftwareVersion = suite("Version");
    env.FirmwareVersion = suite("FirmwareVersion");
    env.TemplatesVersion = suite("TemplatesVersion");

    if (platform.RegistryKeyExists(RegistryHive::LocalMachine, kConnectRegistryKey)) {
        env.TGxConnectVersion = platform.RegistryValue(RegistryHive::LocalMachine, kConnectRegistryKey, "Version");
        env.TGxConnectPath = platform.RegistryValue(RegistryHive::LocalMachine, kConnectRegistryKey, "Path");
    } else {
        env.TGxConnectVersion.clear();
        env.TGxConnectPath.clear();
    }
    return true;
}

void DeriveInstallationPaths(InstallationEnvironment& env, const wxString& separator, const wxString& documentsDir)
{
    env.TgxTemplatesPath = env.TgxSoftwarePath + "tgxtemplates";
    env.TgxFirmwarePath = env.TgxSoftwarePath + "tgxfirmware";
    env.TgxDocumentPath = env.TgxSoftwarePath + "tgxconfigure" + separator + "DOCUMENTATION";
    env.TgxBuildPath = env.TgxSoftwarePath + "tgxconfigure";
    env.TgxSoftwareInstallerPath = env.TgxSoftwarePath + "installer";
    env.TgxConnectInstallerPath = env.TGxConnectPath + "installer";
    // The documents folder has no separator at its end, so this suffix brings its own.
    env.TgxProjectPath = documentsDir + separator + "tgxconfigure" + separator + "PROJECTS";
}

wxString VersionStatusLine(const InstallationEnvironment& env)
{
    const wxString connect = env.TGxConnectVersion.empty() ? wxString("not installed") : env.TGxConnectVersion;
    return wxString::Format("TGxSoftwareSuite %s , Firmware %s , Templates %s , TGxConnect %s", env.TGxSoftwareVersion,
                            env.FirmwareVersion, env.TemplatesVersion, connect);
}

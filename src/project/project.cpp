#include "project/project.h"

#include "base/unicode_text.h"

#include <algorithm>
#include <cstring>

const char* const kDefaultTimeServer = "pool.ntp.org";
const char* const kTagCharacters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz1234567890";


namespace {

void ClearDevice(ProjectDevice& device)
{
    // Plain data: zero is the empty state of every field, texts included.
    std::memset(&device, 0, sizeof device);
}

}  // namespace

void LoadDefaultProject(Project& project)
{
    project.projectSaved = 0;
    project.projectOpen = 1;
    project.projectFilePath.Clear();
    project.deviceCount = 0;
    project.selectedDevice = -1;
    project.primaryMaster = 1;
    project.floatSwapBytes = 0;
    project.floatSwapWords = 1;
    project.floatSwapLongs = 0;
    project.nanControl = 0;
    project.vcpPort = 772;
    project.modbusTcpPort = 502;
    project.mencapPort = 1100;
    project.intercomPort = 503;
    project.syslogPort = 50000;
    project.hartIpTcpPort = 5094;
    project.timeServerEnable = 1;
    SetText(project.timeServerAddress, kDefaultTimeServer);
    SetText(project.serialPortType, "RS232");
    SetText(project.pollingDeferralMode, "NONE");
    SetText(project.serialPortFunction, "MODEM");
    SetText(project.serialParity, "NOPARITY");
    project.serialBaudRate = 9600;
    project.serialDataBits = 8;
    project.serialStopBits = 1;
    project.modbusRtuAddress = 1;
    project.automaticModbusMap = 1;
    project.bridgeBufferTime = 20;
    SetText(project.remoteIp, "0.0.0.0");
    SetText(project.tagName, "Unnamed");
    SetText(project.mode, "GATEWAY");
    for (ProjectDevice& device : project.devices)
        ClearDevice(device);
    project.modbusMapLines.Clear();
    // selectedCommand is left as it was.
}

void LoadMuxEmptyDefaults(Project& project)
{
    // The port numbers survive on purpose: the scan tunnels through the gateway on the virtual
    // serial port that the user set before starting it.
    const int vcp = project.vcpPort, mtcp = project.modbusTcpPort, mencap = project.mencapPort;
    const int intercom = project.intercomPort, syslog = project.syslogPort;
    const int hartIp = project.hartIpTcpPort;
    LoadDefaultProject(project);
    project.vcpPort = vcp;
    project.modbusTcpPort = mtcp;
    project.mencapPort = mencap;
    project.intercomPort = intercom;
    project.syslogPort = syslog;
    project.hartIpTcpPort = hartIp;

    SetText(project.tagName, "MUX Empty");
    SetText(project.mode, "MULTIPLEXOR");
    SetText(project.serialPortType, "RS485");
    SetText(project.pollingDeferralMode, "FULL");
    // "ODD", not "ODDPARITY": deliberate, the gateway's multiplexer templates expect this text.
    SetText(project.serialParity, "ODD");
    project.deviceCount = 1;
    ProjectDevice& mux = project.devices[0];
    SetText(mux.typeName, "KFD2");
    SetText(mux.longAddress, "0000000000");
    mux.enabled = 1;
    mux.pollAddress = 0;
}

bool IsMultiplexerMode(const Project& project)
{
    return std::strcmp(project.mode, "MULTIPLEXOR") == 0;
}

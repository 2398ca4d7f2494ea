// The one project the tool edits: gateway settings, serial port, Modbus options, network ports,
// time server and up to 16 HART devices with up to 50 commands each. A record of fixed size:
// nothing is allocated per device or per command.
#pragma once

#include "base/text_lines.h"
#include "base/unicode_text.h"

#include <wx/arrstr.h>
#include <wx/filename.h>
#include <wx/string.h>

#include <cstddef>

constexpr int MAX_DEVICES = 16;
constexpr int MAX_COMMANDS = 50;
// The highest HART poll address and command number the dialogs take and the gateway runs.
constexpr int kMaxPollAddress = 63;
constexpr int kMaxCommandNumber = 255;
// The serial baud rates the panel and the multiplexer scan offer, in the order they offer them.
constexpr const char* kBaudRates[7] = {"4800", "9600", "19200", "38400", "57600", "76800", "115200"};
constexpr int MAX_COMMAND_ARGS = 8;

// Text fields are narrow character arrays of fixed size (at most size - 1 characters), kept so
// because the gateway's own tools and older project files rely on these limits.
constexpr std::size_t kTextFieldSize = 64;
constexpr std::size_t kLongAddressSize = 21;

// The gateway's tag name: only these characters, at most the first kGatewayTagLength of them.
extern const char* const kTagCharacters;
constexpr std::size_t kGatewayTagLength = 8;

// Time server used when a project names none.
extern const char* const kDefaultTimeServer;

struct HartCommandEntry {
    int commandNumber;
    int args[MAX_COMMAND_ARGS];
    int argCount;  // tokens the CMDARGS line held; may exceed MAX_COMMAND_ARGS
    int cycleInterval;
    int pollEnabled;   // 1 = enabled for polling, anything else disabled
    int writeCommand;  // non-zero = sent on trigger instead of read cyclically
};

struct ProjectDevice {
    char typeName[kTextFieldSize];
    char deviceName[kTextFieldSize];
    int pollAddress;
    char longAddress[kLongAddressSize];
    int enabled;  // bit 0 enabled for polling, bit 1 auto addressing
    int commandCount;
    HartCommandEntry commands[MAX_COMMANDS];
};

struct Project {
    wxFileName projectFilePath;
    int projectSaved = 1;
    int projectOpen = 0;
    int deviceCount = 0;
    int selectedDevice = -1;
    int selectedCommand = 0;
    int primaryMaster = 1;
    int floatSwapBytes = 0;
    int floatSwapWords = 0;
    int floatSwapLongs = 0;
    int nanControl = 0;
    int vcpPort = 0;
    int modbusTcpPort = 0;
    int mencapPort = 0;
    int intercomPort = 0;
    int syslogPort = 0;
    int hartIpTcpPort = 0;
    int timeServerEnable = 0;
    char timeServerAddress[kTextFieldSize] = {};
    char pollingDeferralMode[kTextFieldSize] = {};
    char serialPortType[kTextFieldSize] = {};
    char serialPortFunction[kTextFieldSize] = {};
    char serialParity[kTextFieldSize] = {};
    int serialBaudRate = 0;
    int serialDataBits = 8;
    int serialStopBits = 0;
    int modbusRtuAddress = 0;
    int automaticModbusMap = 1;
    int bridgeBufferTime = 0;
    TextLines modbusMapLines;
    char remoteIp[kTextFieldSize] = {};
    char tagName[kTextFieldSize] = {};
    char mode[kTextFieldSize] = {};
    ProjectDevice devices[MAX_DEVICES] = {};
};

// Defaults of a new project.
void LoadDefaultProject(Project& project);
// Defaults of the empty multiplexer project that the multiplexer scan starts from.
void LoadMuxEmptyDefaults(Project& project);

bool IsMultiplexerMode(const Project& project);

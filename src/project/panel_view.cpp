#include "project/panel_view.h"

#include "project/command_list.h"
#include "project/device_list.h"
#include "project/project.h"

#include <cstring>

const char* const kInterfaceStandardChoices[3] = {"RS232", "RS422", "RS485"};
const char* const kParityChoices[3] = {"None", "Odd", "Even"};
const char* const kStopBitChoices[2] = {"1", "2"};

wxString ParityChoiceText(const wxString& stored)
{
    if (stored == "NOPARITY")
        return kParityChoices[0];
    if (stored == "ODDPARITY")
        return kParityChoices[1];
    if (stored == "EVENPARITY")
        return kParityChoices[2];
    return wxString();
}

PanelView BuildPanelView(const Project& project)
{
    PanelView view;
    if (project.projectOpen == 0)
        return view;

    view.panelShown = true;
    view.projectItemsEnabled = true;
    view.modbusItemsEnabled = true;
    view.automaticMapChecked = project.automaticModbusMap == 1;

    view.configurationName = project.projectFilePath.GetFullPath().empty() ? wxString("None")
                                                                           : project.projectFilePath.GetName();
    view.tagName = GetText(project.tagName);
    const wxString function = GetText(project.serialPortFunction);
    view.serialFunctionEnabled = project.deviceCount == 0;
    view.serialModem = function == "MODEM";
    view.serialModbus = function == "MODBUS";
    view.interfaceStandard = GetText(project.serialPortType);
    view.baudRate = wxString::Format("%d", project.serialBaudRate);
    view.parity = ParityChoiceText(GetText(project.serialParity));
    view.stopBits = wxString::Format("%d", project.serialStopBits);
    const wxString deferral = GetText(project.pollingDeferralMode);
    view.deferralNone = deferral == "NONE";
    view.deferralPartial = deferral == "PARTIAL";
    view.deferralFull = deferral == "FULL";
    view.rtuAddress = wxString::Format("%d", project.modbusRtuAddress);
    view.swapBytes = project.floatSwapBytes != 0;
    view.swapWords = project.floatSwapWords != 0;
    view.swapLongs = project.floatSwapLongs != 0;
    view.nanControl = project.nanControl != 0;
    view.primaryMaster = project.primaryMaster == 1;
    view.secondaryMaster = project.primaryMaster == 0;

    view.deviceLines = DeviceListLines(project);
    if (project.selectedDevice >= 0 && project.selectedDevice < static_cast<int>(view.deviceLines.size()))
        view.deviceSelection = project.selectedDevice;
    view.commandLines = CommandListLines(project);
    if (project.selectedCommand >= 0 && project.selectedCommand < static_cast<int>(view.commandLines.size()))
        view.commandSelection = project.selectedCommand;
    return view;
}

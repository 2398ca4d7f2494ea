// What the main panel and the menus show for the project, worked out without a window so that
// the window only copies it into its controls.
#pragma once

#include <wx/arrstr.h>
#include <wx/string.h>

struct Project;

// The choices of the panel, in the order the panel lists them.
extern const char* const kInterfaceStandardChoices[3];
extern const char* const kParityChoices[3];
extern const char* const kStopBitChoices[2];

struct PanelView {
    // No project open: the panel is hidden, only these menu states are written.
    bool panelShown = false;
    bool loadFromDiskEnabled = true;
    bool rebootEnabled = true;
    bool projectItemsEnabled = false;  // Save, Save As, Close, Configure
    bool modbusItemsEnabled = false;   // the seven items of the Modbus menu
    bool automaticMapChecked = false;  // check marks, written only while a project is open

    wxString configurationName;
    wxString tagName;
    bool serialFunctionEnabled = true;  // the port serves the HART devices while there are any
    bool serialModem = false;   // "Serial HART modem"
    bool serialModbus = false;  // "Modbus RTU slave"
    wxString interfaceStandard; // texts of the choices; an unknown text selects nothing
    wxString baudRate;
    wxString parity;
    wxString stopBits;
    bool deferralNone = false;
    bool deferralPartial = false;
    bool deferralFull = false;
    wxString rtuAddress;
    bool swapBytes = false;
    bool swapWords = false;
    bool swapLongs = false;
    bool nanControl = false;
    bool primaryMaster = false;
    bool secondaryMaster = false;
    wxArrayString deviceLines;
    int deviceSelection = -1;
    wxArrayString commandLines;
    int commandSelection = -1;
};

PanelView BuildPanelView(const Project& project);

// "NOPARITY" and its siblings as the parity choice shows them; empty for any other text.
wxString ParityChoiceText(const wxString& stored);

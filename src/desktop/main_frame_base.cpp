#include "desktop/main_frame_base.h"

#include "project/panel_view.h"
#include "project/project.h"

#include <wx/sizer.h>

namespace {

constexpr int kGap = 4;
constexpr int kMargin = 8;  // left and right edge of the panel

wxFont HeadingFont()
{
    return wxFont(wxFontInfo(10).Bold().FaceName("Arial"));
}

wxFont ListFont()
{
    return wxFont(wxFontInfo(9).FaceName("Trebuchet MS"));
}

template <std::size_t N>
wxArrayString Choices(const char* const (&texts)[N])
{
    wxArrayString choices;
    for (const char* text : texts)
        choices.Add(text);
    return choices;
}

}  // namespace

MainFrameBase::MainFrameBase(wxWindow* parent, wxWindowID id, const wxString& title, const wxPoint& pos,
                             const wxSize& size, long style, bool panelAtOnce)
    : wxFrame(parent, id, title, pos, size, style)
{
    SetSizeHints(wxDefaultSize, wxDefaultSize);
    CreateMenus();
    if (panelAtOnce)
        CreatePanel();
    Centre(wxBOTH);
    BindEvents();
}

MainFrameBase::~MainFrameBase()
{
    UnbindEvents();
}

void MainFrameBase::CreateMenus()
{
    m_menubar = new wxMenuBar(0);

    m_menuProject = new wxMenu();
    m_menuItemNew = m_menuProject->Append(wxID_ANY, "New", "Create a new empty configuration");
    m_menuProject->AppendSeparator();
    m_menuItemLoadFromDisk = m_menuProject->Append(wxID_ANY, "Load from Disk", "Load an existing configuration from disk");
    // The same help text as the item above: it has always read so.
    m_menuItemLoadFromTG7 = m_menuProject->Append(wxID_ANY, "Load From TG7", "Load an existing configuration from disk");
    m_menuItemSave = m_menuProject->Append(wxID_ANY, "Save", "Save the configuration to disk");
    m_menuItemSaveAs = m_menuProject->Append(wxID_ANY, "Save As", "Save the configuration to disk, specifying a name");
    m_menuProject->AppendSeparator();
    m_menuItemClose = m_menuProject->Append(wxID_ANY, "Close", "Close the current configuration");
    m_menuProject->AppendSeparator();
    m_menuItemExit = m_menuProject->Append(wxID_EXIT, "E&xit\tAlt+X", wxEmptyString);
    m_menubar->Append(m_menuProject, "Project");

    m_menuTarget = new wxMenu();
    m_menuItemConfigure = m_menuTarget->Append(wxID_ANY, "Configure", "Send the configuration to the HART gateway device");
    m_menuItemViewLiveData = m_menuTarget->Append(wxID_ANY, "View live data", wxEmptyString);
    m_menuTarget->AppendSeparator();
    m_menuItemChangeNetworkSettings = m_menuTarget->Append(wxID_ANY, "Change Network Settings", wxEmptyString);
    m_menuItemUpdateFirmware = m_menuTarget->Append(wxID_ANY, "Update Firmware", wxEmptyString);
    m_menuItemUploadInstallers = m_menuTarget->Append(wxID_ANY, "Upload Installers", wxEmptyString);
    m_menuItemReboot = m_menuTarget->Append(wxID_ANY, "Reboot", "Reboot the HART gateway device");
    m_menuTarget->AppendSeparator();
    m_menuItemOptions = m_menuTarget->Append(wxID_ANY, "Options", wxEmptyString);
    m_menubar->Append(m_menuTarget, "Target");

    // Items are created first and appended in menu order, as the generated code always did.
    m_menuModbus = new wxMenu();
    m_menuItemAutomaticMap = new wxMenuItem(m_menuModbus, wxID_ANY, "Automatic Map",
                                            "Automatically generate a Modbus map based on the current configuration",
                                            wxITEM_CHECK);
    m_menuItemUserDefinedMap =
        new wxMenuItem(m_menuModbus, wxID_ANY, "User defined Map", "Let the user define a custom Modbus map", wxITEM_CHECK);
    m_menuItemEditModbusMap = new wxMenuItem(m_menuModbus, wxID_ANY, "Edit the Modbus Map", "Edit the Modbus Register Map");
    m_menuItemDeleteModbusMap =
        new wxMenuItem(m_menuModbus, wxID_ANY, "Delete the Modbus Map", "Delete the current modbus map");
    m_menuItemImportMapFromTG7 = new wxMenuItem(m_menuModbus, wxID_ANY, "Import Map from TG7", "Import a map from an TG7");
    m_menuItemImportMapFromProject =
        new wxMenuItem(m_menuModbus, wxID_ANY, "Import Map from another project", "Copy a map from another project");
    m_menuItemExportMap =
        new wxMenuItem(m_menuModbus, wxID_ANY, "Export as text or CSV", "Export maop as text file or CSV for excel");
    m_menuModbus->Append(m_menuItemAutomaticMap);
    m_menuModbus->Append(m_menuItemUserDefinedMap);
    m_menuModbus->AppendSeparator();
    m_menuModbus->Append(m_menuItemEditModbusMap);
    m_menuModbus->AppendSeparator();
    m_menuModbus->Append(m_menuItemDeleteModbusMap);
    m_menuModbus->Append(m_menuItemImportMapFromTG7);
    m_menuModbus->Append(m_menuItemImportMapFromProject);
    m_menuModbus->AppendSeparator();
    m_menuModbus->Append(m_menuItemExportMap);
    m_menubar->Append(m_menuModbus, "Modbus");

    m_menuRemote = new wxMenu();
    m_menuItemRemoteComPort = m_menuRemote->Append(wxID_ANY, "Remote COM port settings", wxEmptyString);
    m_menubar->Append(m_menuRemote, "Remote");

    m_menuMultiplexer = new wxMenu();
    m_menuItemScan = m_menuMultiplexer->Append(wxID_ANY, "Scan", wxEmptyString);
    m_menubar->Append(m_menuMultiplexer, "Multiplexer");

    m_menuHelp = new wxMenu();
    m_menuItemDocumentation = m_menuHelp->Append(wxID_ANY, "Documentation", wxEmptyString);
    m_menuItemCheckForUpdates = m_menuHelp->Append(wxID_ANY, "Check For Updates", wxEmptyString);
    m_menuItemAbout = m_menuHelp->Append(wxID_ANY, "About", wxEmptyString);
    m_menubar->Append(m_menuHelp, "Help");

    SetMenuBar(m_menubar);
#ifdef __WXGTK__
    // Under a window manager GTK first gives the new window the 2 x 1 pixels it was realized with
    // while the manager reports its decorations, and the menu bar cannot be narrower than its
    // menus. So the bar joins the window once the window is shown.
    m_menubar->Hide();
    Bind(wxEVT_SHOW, [this](wxShowEvent& event) {
        event.Skip();
        if (event.IsShown() && !m_menubar->IsShown()) {
            m_menubar->Show();
            SendSizeEvent();
        }
    });
#endif
}

void MainFrameBase::CreatePanel()
{
    wxBoxSizer* frameSizer = new wxBoxSizer(wxVERTICAL);
    m_mainPanel = new wxPanel(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL);
    wxBoxSizer* panelSizer = new wxBoxSizer(wxVERTICAL);

    // A section heading on a row of its own, which may also hold the section's buttons.
    auto heading = [&](wxStaticText*& text, wxStaticLine*& line, const wxString& label) {
        wxBoxSizer* headingRow = new wxBoxSizer(wxHORIZONTAL);
        text = new wxStaticText(m_mainPanel, wxID_ANY, label);
        text->SetFont(HeadingFont());
        headingRow->Add(text, 0, wxALIGN_BOTTOM);
        headingRow->AddStretchSpacer();
        panelSizer->Add(headingRow, 0, wxEXPAND | wxLEFT | wxRIGHT | wxTOP, kGap);
                line = new wxStaticLine(m_mainPanel, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxLI_HORIZONTAL);
        panelSizer->Add(line, 0, wxEXPAND | wxLEFT | wxRIGHT | wxBOTTOM, 2);
        return headingRow;
    };
    auto label = [&](const wxString& text) { return new wxStaticText(m_mainPanel, wxID_ANY, text); };
    auto row = [&]() {
        wxBoxSizer* sizer = new wxBoxSizer(wxHORIZONTAL);
        panelSizer->Add(sizer, 0, wxEXPAND | wxLEFT | wxRIGHT | wxBOTTOM, 2);
        return sizer;
    };
    auto grid = [&](int columns) {
        wxFlexGridSizer* sizer = new wxFlexGridSizer(0, columns, 2, 2 * kGap);
        sizer->SetFlexibleDirection(wxBOTH);
        panelSizer->Add(sizer, 0, wxEXPAND | wxLEFT | wxRIGHT | wxBOTTOM, 2);
        return sizer;
    };
    const int centred = wxALIGN_CENTER_VERTICAL;

    heading(m_headingGeneral, m_lineGeneral, "GENERAL SETTINGS");
    wxFlexGridSizer* general = grid(2);
    general->AddGrowableCol(1);
    m_labelConfigurationName = label("Configuration Name");
    m_textConfigurationName = new wxTextCtrl(m_mainPanel, wxID_ANY, "----", wxDefaultPosition, wxDefaultSize, wxTE_READONLY);
    m_labelTagName = label("TG7 Tagname");
    m_textTagName = new wxTextCtrl(m_mainPanel, wxID_ANY, "----", wxDefaultPosition, wxDefaultSize, wxTE_READONLY);
    general->Add(m_labelConfigurationName, 0, centred);
    general->Add(m_textConfigurationName, 0, wxEXPAND);
    general->Add(m_labelTagName, 0, centred);
    general->Add(m_textTagName, 0, wxEXPAND);

    heading(m_headingSerial, m_lineSerial, "SERIAL PORT");
    wxBoxSizer* function = row();
    m_labelPortFunction = label("Port shall act as a:");
    m_radioSerialModem = new wxRadioButton(m_mainPanel, wxID_ANY, "Serial HART modem", wxDefaultPosition,
                                           wxDefaultSize, wxRB_GROUP);
    m_radioSerialModbus = new wxRadioButton(m_mainPanel, wxID_ANY, "Modbus RTU slave");
    function->Add(m_labelPortFunction, 0, centred | wxRIGHT, 2 * kGap);
    function->Add(m_radioSerialModem, 0, centred | wxRIGHT, 2 * kGap);
    function->Add(m_radioSerialModbus, 0, centred);
    wxFlexGridSizer* serial = grid(4);
    m_labelInterfaceStandard = label("Interface standard");
    m_choiceInterfaceStandard =
        new wxChoice(m_mainPanel, wxID_ANY, wxDefaultPosition, wxDefaultSize, Choices(kInterfaceStandardChoices));
    m_labelBaudRate = label("Baud Rate");
    m_choiceBaudRate = new wxChoice(m_mainPanel, wxID_ANY, wxDefaultPosition, wxDefaultSize, Choices(kBaudRates));
    m_labelParity = label("Parity");
    m_choiceParity = new wxChoice(m_mainPanel, wxID_ANY, wxDefaultPosition, wxDefaultSize, Choices(kParityChoices));
    m_labelStopBits = label("Stop Bits");
    m_choiceStopBits = new wxChoice(m_mainPanel, wxID_ANY, wxDefaultPosition, wxDefaultSize, Choices(kStopBitChoices));
    serial->Add(m_labelInterfaceStandard, 0, centred);
    serial->Add(m_choiceInterfaceStandard, 0, wxEXPAND);
    serial->Add(m_labelBaudRate, 0, centred | wxLEFT, 2 * kGap);
    serial->Add(m_choiceBaudRate, 0, wxEXPAND);
    serial->Add(m_labelParity, 0, centred);
    serial->Add(m_choiceParity, 0, wxEXPAND);
    serial->Add(m_labelStopBits, 0, centred | wxLEFT, 2 * kGap);
    serial->Add(m_choiceStopBits, 0, wxEXPAND);

    heading(m_headingModem, m_lineModem, "HART MODEM OPTIONS");
    wxBoxSizer* deferral = row();
    m_labelDeferral = label("Polling deferral mode:");
    m_radioDeferralNone = new wxRadioButton(m_mainPanel, wxID_ANY, "None", wxDefaultPosition, wxDefaultSize, wxRB_GROUP);
    m_radioDeferralPartial = new wxRadioButton(m_mainPanel, wxID_ANY, "Partial");
    m_radioDeferralFull = new wxRadioButton(m_mainPanel, wxID_ANY, "Full");
    deferral->Add(m_labelDeferral, 0, centred | wxRIGHT, 2 * kGap);
    deferral->Add(m_radioDeferralNone, 0, centred | wxRIGHT, 2 * kGap);
    deferral->Add(m_radioDeferralPartial, 0, centred | wxRIGHT, 2 * kGap);
    deferral->Add(m_radioDeferralFull, 0, centred);

    heading(m_headingModbus, m_lineModbus, "MODBUS OPTIONS");
    wxFlexGridSizer* modbus = grid(2);
    m_labelRtuAddress = label("RTU slave address");
    m_textRtuAddress = new wxTextCtrl(m_mainPanel, wxID_ANY, "100");
    m_labelByteOrdering = label("Floating point byte ordering");
    m_checkSwapBytes = new wxCheckBox(m_mainPanel, wxID_ANY, "Swap bytes in 16 bit words");
    m_checkSwapWords = new wxCheckBox(m_mainPanel, wxID_ANY, "Swap words in 32 bit longs");
    m_checkSwapLongs = new wxCheckBox(m_mainPanel, wxID_ANY, "Swap longs in 64 bit long longs");
    m_labelTransmitterFailure = label("On transmitter failure");
    m_checkNanControl = new wxCheckBox(m_mainPanel, wxID_ANY, "Set PV, SV, TV && QV to NaN");
    wxBoxSizer* swaps = new wxBoxSizer(wxVERTICAL);
    swaps->Add(m_checkSwapBytes, 0);
    swaps->Add(m_checkSwapWords, 0);
    swaps->Add(m_checkSwapLongs, 0);
    modbus->Add(m_labelRtuAddress, 0, centred);
    modbus->Add(m_textRtuAddress, 0);
    modbus->Add(m_labelByteOrdering, 0, wxTOP, 2);
    modbus->Add(swaps, 0);
    modbus->Add(m_labelTransmitterFailure, 0, centred);
    modbus->Add(m_checkNanControl, 0);

    heading(m_headingGateway, m_lineGateway, "GATEWAY CONFIGURATION");
    wxBoxSizer* master = row();
    m_labelMasterRole = label("Gateway shall act as a:");
    m_radioPrimaryMaster = new wxRadioButton(m_mainPanel, wxID_ANY, "Primary Master", wxDefaultPosition,
                                             wxDefaultSize, wxRB_GROUP);
    m_radioSecondaryMaster = new wxRadioButton(m_mainPanel, wxID_ANY, "Secondary Master");
    master->Add(m_labelMasterRole, 0, centred | wxRIGHT, 2 * kGap);
    master->Add(m_radioPrimaryMaster, 0, centred | wxRIGHT, 2 * kGap);
    master->Add(m_radioSecondaryMaster, 0, centred);

    // Each list below its heading, its three buttons on the heading's row.
    auto listSection = [&](wxBoxSizer* headingRow, wxButton*& add, wxButton*& modify, wxButton*& remove,
                           wxListBox*& list) {
        add = new wxButton(m_mainPanel, wxID_ANY, "Add");
        modify = new wxButton(m_mainPanel, wxID_ANY, "Modify");
        remove = new wxButton(m_mainPanel, wxID_ANY, "Delete");
        headingRow->Add(add, 0, wxLEFT, kGap);
        headingRow->Add(modify, 0, wxLEFT, kGap);
        headingRow->Add(remove, 0, wxLEFT, kGap);
        list = new wxListBox(m_mainPanel, wxID_ANY, wxDefaultPosition, wxSize(-1, 60), 0, nullptr, wxLB_SINGLE);
        list->SetFont(ListFont());
        panelSizer->Add(list, 1, wxEXPAND | wxLEFT | wxRIGHT | wxBOTTOM, kGap);
    };
    listSection(heading(m_headingDevices, m_lineDevices, "DEVICES"), m_buttonAddDevice, m_buttonModifyDevice,
                m_buttonDeleteDevice, m_listDevices);
    listSection(heading(m_headingCommands, m_lineCommands, "HART COMMANDS"), m_buttonAddCommand,
                m_buttonModifyCommand, m_buttonDeleteCommand, m_listCommands);

    wxBoxSizer* margins = new wxBoxSizer(wxVERTICAL);
    margins->Add(panelSizer, 1, wxEXPAND | wxLEFT | wxRIGHT, kMargin - kGap);
    m_mainPanel->SetSizer(margins);
    m_mainPanel->Layout();
    frameSizer->Add(m_mainPanel, 1, wxEXPAND, 0);
    SetSizer(frameSizer);
    Layout();
}

void MainFrameBase::BindEvents()
{
    Bind(wxEVT_CLOSE_WINDOW, &MainFrameBase::OnCloseFrame, this);

    const std::pair<wxMenuItem*, void (MainFrameBase::*)(wxCommandEvent&)> menuHandlers[] = {
        {m_menuItemNew, &MainFrameBase::OnNew},
        {m_menuItemLoadFromDisk, &MainFrameBase::OnLoadFromDisk},
        {m_menuItemLoadFromTG7, &MainFrameBase::OnLoadFromTG7},
        {m_menuItemSave, &MainFrameBase::OnSave},
        {m_menuItemSaveAs, &MainFrameBase::OnSaveAs},
        {m_menuItemClose, &MainFrameBase::OnCloseProject},
        {m_menuItemExit, &MainFrameBase::OnExit},
        {m_menuItemConfigure, &MainFrameBase::OnConfigure},
        {m_menuItemChangeNetworkSettings, &MainFrameBase::OnChangeNetworkSettings},
        {m_menuItemUpdateFirmware, &MainFrameBase::OnUpdateFirmware},
        {m_menuItemUploadInstallers, &MainFrameBase::OnUploadInstallers},
        {m_menuItemReboot, &MainFrameBase::OnReboot},
        {m_menuItemViewLiveData, &MainFrameBase::OnViewLiveData},
        {m_menuItemOptions, &MainFrameBase::OnOptions},
        {m_menuItemRemoteComPort, &MainFrameBase::OnRemoteComPort},
        {m_menuItemScan, &MainFrameBase::OnScan},
        {m_menuItemDocumentation, &MainFrameBase::OnDocumentation},
        {m_menuItemCheckForUpdates, &MainFrameBase::OnCheckForUpdates},
        {m_menuItemAbout, &MainFrameBase::OnAbout},
        {m_menuItemEditModbusMap, &MainFrameBase::OnEditModbusMap},
        {m_menuItemImportMapFromTG7, &MainFrameBase::OnImportMapFromTG7},
        {m_menuItemImportMapFromProject, &MainFrameBase::OnImportMapFromProject},
        {m_menuItemAutomaticMap, &MainFrameBase::OnAutomaticMap},
        {m_menuItemUserDefinedMap, &MainFrameBase::OnUserDefinedMap},
        {m_menuItemDeleteModbusMap, &MainFrameBase::OnDeleteModbusMap},
        {m_menuItemExportMap, &MainFrameBase::OnExportMap},
    };
    for (const auto& [item, handler] : menuHandlers)
        Bind(wxEVT_MENU, handler, this, item->GetId());

    if (m_mainPanel != nullptr)
        ConnectControls(true);
}

void MainFrameBase::CreatePanelOnce()
{
    if (m_mainPanel != nullptr)
        return;
    CreatePanel();
    ConnectControls(true);
}

void MainFrameBase::UnbindEvents()
{
    Unbind(wxEVT_CLOSE_WINDOW, &MainFrameBase::OnCloseFrame, this);
    if (m_mainPanel != nullptr)
        ConnectControls(false);
}

void MainFrameBase::ConnectControls(bool connect)
{
    auto link = [&](wxEvtHandler* control, const auto& type, auto handler) {
        if (connect)
            control->Bind(type, handler, this);
        else
            control->Unbind(type, handler, this);
    };
    link(m_radioSerialModem, wxEVT_RADIOBUTTON, &MainFrameBase::OnSerialModem);
    link(m_radioSerialModbus, wxEVT_RADIOBUTTON, &MainFrameBase::OnSerialModbus);
    link(m_choiceInterfaceStandard, wxEVT_CHOICE, &MainFrameBase::OnInterfaceStandard);
    link(m_choiceBaudRate, wxEVT_CHOICE, &MainFrameBase::OnBaudRate);
    link(m_choiceParity, wxEVT_CHOICE, &MainFrameBase::OnParity);
    link(m_choiceStopBits, wxEVT_CHOICE, &MainFrameBase::OnStopBits);
    link(m_radioDeferralNone, wxEVT_RADIOBUTTON, &MainFrameBase::OnDeferralNone);
    link(m_radioDeferralPartial, wxEVT_RADIOBUTTON, &MainFrameBase::OnDeferralPartial);
    link(m_radioDeferralFull, wxEVT_RADIOBUTTON, &MainFrameBase::OnDeferralFull);
    link(m_textRtuAddress, wxEVT_KILL_FOCUS, &MainFrameBase::OnRtuAddressKillFocus);
    link(m_checkSwapBytes, wxEVT_CHECKBOX, &MainFrameBase::OnSwapBytes);
    link(m_checkSwapWords, wxEVT_CHECKBOX, &MainFrameBase::OnSwapWords);
    link(m_checkSwapLongs, wxEVT_CHECKBOX, &MainFrameBase::OnSwapLongs);
    link(m_checkNanControl, wxEVT_CHECKBOX, &MainFrameBase::OnNanControl);
    link(m_radioPrimaryMaster, wxEVT_RADIOBUTTON, &MainFrameBase::OnPrimaryMaster);
    link(m_radioSecondaryMaster, wxEVT_RADIOBUTTON, &MainFrameBase::OnSecondaryMaster);
    link(m_buttonAddDevice, wxEVT_BUTTON, &MainFrameBase::OnAddDevice);
    link(m_buttonModifyDevice, wxEVT_BUTTON, &MainFrameBase::OnModifyDevice);
    link(m_buttonDeleteDevice, wxEVT_BUTTON, &MainFrameBase::OnDeleteDevice);
    link(m_listDevices, wxEVT_LEFT_DCLICK, &MainFrameBase::OnDeviceDoubleClick);
    link(m_listDevices, wxEVT_LISTBOX, &MainFrameBase::OnDeviceSelected);
    link(m_buttonAddCommand, wxEVT_BUTTON, &MainFrameBase::OnAddCommand);
    link(m_buttonModifyCommand, wxEVT_BUTTON, &MainFrameBase::OnModifyCommand);
    link(m_buttonDeleteCommand, wxEVT_BUTTON, &MainFrameBase::OnDeleteCommand);
    link(m_listCommands, wxEVT_LEFT_DCLICK, &MainFrameBase::OnCommandDoubleClick);
    link(m_listCommands, wxEVT_LISTBOX, &MainFrameBase::OnCommandSelected);
}

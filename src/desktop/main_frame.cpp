#include "desktop/main_frame.h"

#include "commands/command_editing.h"
#include "commands/device_editing.h"
#include "commands/project_commands.h"
#include "commands/small_commands.h"
#include "commands/startup.h"
#include "deploy/configure_device.h"
#include "deploy/firmware_update.h"
#include "deploy/load_from_device.h"
#include "deploy/maintenance_commands.h"
#include "deploy/project_save.h"
#include "desktop/about_box.h"
#include "desktop/desktop_tool_runner.h"
#include "desktop/mux_scan_frame.h"
#include "modbus/map_editing.h"
#include "modbus/map_export_command.h"
#include "modbus/map_import.h"
#include "modbus/map_modes.h"
#include "mux/mux_scan.h"
#include "project/panel_view.h"
#include "remote/options_editing.h"
#include "remote/remote_com_port.h"

// Windows takes the icon from the program's resources (tgxconfig.rc), with its small size too.
#ifndef wxHAS_IMAGES_IN_RESOURCES
#include "desktop/icon_program.xpm"
#endif

#include <wx/sizer.h>

#include <algorithm>

MainFrame::MainFrame(Project& project, Platform& platform, ToolRunner& tools, const UserInterfaceMaker& makeUi)
    // The panel is built when a project is first shown: no project is open at start-up, and its
    // controls were a third of start-up's time and most of its memory (the radio buttons' images).
    : MainFrameBase(nullptr, wxID_ANY, "TG7+ Configuration tool", wxDefaultPosition, wxSize(545, 765),
                    wxDEFAULT_FRAME_STYLE | wxTAB_TRAVERSAL, false),
      ui(makeUi ? makeUi(*this) : std::make_unique<WxUserInterface>(*this)),
      context{project, env, target, deviceTypes, *ui, tools, platform}
{
    SetIcon(wxICON(icon_program));
    // Without a size grip, the version line fits at the window's usual width; a longer one is
    // shown whole in the field's tooltip.
    CreateStatusBar(1, wxSTB_DEFAULT_STYLE & ~wxSTB_SIZEGRIP);
    startedUp = RunStartup(context);
}

MainFrame::~MainFrame()
{
    if (muxScanFrame != nullptr)
        muxScanFrame->Destroy();
}

MuxScanWindow* MainFrame::OpenMuxScanFrame()
{
    m_menuItemScan->Enable(false);
    muxScanFrame = new MUXScanFrame(context, [this] {
        m_menuItemScan->Enable(true);
        muxScanFrame = nullptr;
    });
    const wxRect rect = GetScreenRect();
    muxScanFrame->Move(rect.GetLeft() + rect.GetWidth() - 1, rect.GetTop());
    muxScanFrame->Show();
    return muxScanFrame;
}

void MainFrame::RefreshPanelFromProject()
{
    const PanelView view = BuildPanelView(context.project);
    m_menuItemLoadFromDisk->Enable(view.loadFromDiskEnabled);
    m_menuItemReboot->Enable(view.rebootEnabled);
    for (wxMenuItem* item : {m_menuItemSave, m_menuItemSaveAs, m_menuItemClose, m_menuItemConfigure})
        item->Enable(view.projectItemsEnabled);
    for (wxMenuItem* item : {m_menuItemAutomaticMap, m_menuItemUserDefinedMap, m_menuItemEditModbusMap,
                             m_menuItemDeleteModbusMap, m_menuItemImportMapFromTG7, m_menuItemImportMapFromProject,
                             m_menuItemExportMap})
        item->Enable(view.modbusItemsEnabled);
    if (!view.panelShown) {
        if (m_mainPanel != nullptr)
            m_mainPanel->Hide();
        return;
    }
    if (m_mainPanel == nullptr) {
        CreatePanelOnce();
        m_mainPanel->Hide();  // as it was when it was built with the window and hidden at start-up
    }

    m_menuItemAutomaticMap->Check(view.automaticMapChecked);
    m_menuItemUserDefinedMap->Check(!view.automaticMapChecked);
    m_textConfigurationName->ChangeValue(view.configurationName);
    m_textTagName->ChangeValue(view.tagName);
    m_radioSerialModem->Enable(view.serialFunctionEnabled);
    m_radioSerialModbus->Enable(view.serialFunctionEnabled);
    if (view.serialModem)
        m_radioSerialModem->SetValue(true);
    if (view.serialModbus)
        m_radioSerialModbus->SetValue(true);
    auto select = [](wxChoice* choice, const wxString& text) { choice->SetSelection(choice->FindString(text, true)); };
    select(m_choiceInterfaceStandard, view.interfaceStandard);
    select(m_choiceBaudRate, view.baudRate);
    select(m_choiceParity, view.parity);
    select(m_choiceStopBits, view.stopBits);
    if (view.deferralNone)
        m_radioDeferralNone->SetValue(true);
    if (view.deferralPartial)
        m_radioDeferralPartial->SetValue(true);
    if (view.deferralFull)
        m_radioDeferralFull->SetValue(true);
    m_textRtuAddress->ChangeValue(view.rtuAddress);
    rtuAddressTaken = view.rtuAddress;
    m_checkSwapBytes->SetValue(view.swapBytes);
    m_checkSwapWords->SetValue(view.swapWords);
    m_checkSwapLongs->SetValue(view.swapLongs);
    m_checkNanControl->SetValue(view.nanControl);
    if (view.primaryMaster)
        m_radioPrimaryMaster->SetValue(true);
    if (view.secondaryMaster)
        m_radioSecondaryMaster->SetValue(true);
    m_listDevices->Set(view.deviceLines);
    if (view.deviceSelection >= 0)
        m_listDevices->SetSelection(view.deviceSelection);
    WriteCommandList(view);
    const bool wasHidden = !m_mainPanel->IsShown();
    m_mainPanel->Show();
    Layout();
    if (wasHidden)
        CallAfter(&MainFrame::MeasurePanelAgain);
}

void MainFrame::MeasurePanelAgain()
{
    // Until the shown panel has been drawn, GTK cannot measure its controls, so their sizes are
    // guesses (GTK's text entries are taller than guessed); an entry squeezed below its minimum
    // makes GTK complain. Measured again once the panel is on screen.
    for (wxWindow* control : m_mainPanel->GetChildren())
        control->InvalidateBestSize();
    m_mainPanel->InvalidateBestSize();
    // Grown rather than squeezed where the desktop's fonts need more room than the usual size.
    const wxSize needed = GetSizer()->GetMinSize();
    const wxSize client = GetClientSize();
    if (client.y < needed.y || client.x < needed.x)
        SetClientSize(std::max(client.x, needed.x), std::max(client.y, needed.y));
    Layout();
    m_mainPanel->Layout();
}

void MainFrame::RefreshCommandList()
{
    if (m_mainPanel == nullptr)
        return;  // written when the panel is built
    WriteCommandList(BuildPanelView(context.project));
}

void MainFrame::WriteCommandList(const PanelView& view)
{
    m_listCommands->Set(view.commandLines);
    if (view.commandSelection >= 0)
        m_listCommands->SetSelection(view.commandSelection);
}

void MainFrame::TakePendingRtuAddress()
{
    // No panel yet: no project has been shown, so none can take an address.
    if (m_mainPanel != nullptr && m_textRtuAddress->GetValue() != rtuAddressTaken)
        TakeRtuAddress();
}

void MainFrame::TakeRtuAddress()
{
    rtuAddressTaken = m_textRtuAddress->GetValue();
    SetRtuAddress(context, rtuAddressTaken);
}

void MainFrame::OnCloseFrame(wxCloseEvent& event)
{
    // No close while a tool runs: the workflow that started it is still on the stack.
    if (event.CanVeto() && ToolRunInProgress()) {
        event.Veto();
        return;
    }
    TakePendingRtuAddress();
    if (event.CanVeto() && !ConfirmDiscardUnsaved(context)) {
        event.Veto();
        return;
    }
    event.Skip();
}

void MainFrame::OnExit(wxCommandEvent&) { Close(); }
void MainFrame::OnNew(wxCommandEvent&) { NewProject(context); }
void MainFrame::OnLoadFromDisk(wxCommandEvent&) { LoadProjectFromDisk(context); }
void MainFrame::OnSave(wxCommandEvent&) { TakePendingRtuAddress(); SaveProjectCommand(context); }
void MainFrame::OnSaveAs(wxCommandEvent&) { TakePendingRtuAddress(); SaveProjectAs(context); }
void MainFrame::OnCloseProject(wxCommandEvent&) { TakePendingRtuAddress(); CloseProject(context); }
void MainFrame::OnLoadFromTG7(wxCommandEvent&) { LoadProjectFromDevice(context); }
void MainFrame::OnConfigure(wxCommandEvent&) { TakePendingRtuAddress(); ConfigureDevice(context); }
void MainFrame::OnUpdateFirmware(wxCommandEvent&) { UpdateFirmware(context); }
void MainFrame::OnUploadInstallers(wxCommandEvent&) { UploadInstallers(context); }
void MainFrame::OnReboot(wxCommandEvent&) { RebootTarget(context); }
void MainFrame::OnOptions(wxCommandEvent&) { EditOptions(context); }
void MainFrame::OnViewLiveData(wxCommandEvent&) { ViewLiveData(context); }
void MainFrame::OnChangeNetworkSettings(wxCommandEvent&) { ChangeNetworkSettings(context); }
void MainFrame::OnDocumentation(wxCommandEvent&) { OpenDocumentation(context); }
void MainFrame::OnCheckForUpdates(wxCommandEvent&) { CheckForUpdates(context); }
void MainFrame::OnAbout(wxCommandEvent&) { ShowAboutBox(env, GetIcon()); }
void MainFrame::OnRemoteComPort(wxCommandEvent&) { RemoteComPortCommand(context); }
void MainFrame::OnScan(wxCommandEvent&) { MuxScanCommand(context); }

void MainFrame::OnSerialModem(wxCommandEvent&) { SetSerialPortFunction(context, "MODEM"); }
void MainFrame::OnSerialModbus(wxCommandEvent&) { SetSerialPortFunction(context, "MODBUS"); }
void MainFrame::OnInterfaceStandard(wxCommandEvent& event) { SetInterfaceStandard(context, event.GetString()); }
void MainFrame::OnBaudRate(wxCommandEvent& event) { SetBaudRate(context, event.GetString()); }
void MainFrame::OnParity(wxCommandEvent& event) { SetParity(context, event.GetString()); }
void MainFrame::OnStopBits(wxCommandEvent& event) { SetStopBits(context, event.GetString()); }
void MainFrame::OnDeferralNone(wxCommandEvent&) { SetPollingDeferralMode(context, "NONE"); }
void MainFrame::OnDeferralPartial(wxCommandEvent&) { SetPollingDeferralMode(context, "PARTIAL"); }
void MainFrame::OnDeferralFull(wxCommandEvent&) { SetPollingDeferralMode(context, "FULL"); }
void MainFrame::OnSwapBytes(wxCommandEvent& event) { SetFloatSwap(context, FloatSwap::Bytes, event.IsChecked()); }
void MainFrame::OnSwapWords(wxCommandEvent& event) { SetFloatSwap(context, FloatSwap::Words, event.IsChecked()); }
void MainFrame::OnSwapLongs(wxCommandEvent& event) { SetFloatSwap(context, FloatSwap::Longs, event.IsChecked()); }
void MainFrame::OnNanControl(wxCommandEvent& event) { SetNanControl(context, event.IsChecked()); }
void MainFrame::OnPrimaryMaster(wxCommandEvent&) { SetPrimaryMaster(context, true); }
void MainFrame::OnSecondaryMaster(wxCommandEvent&) { SetPrimaryMaster(context, false); }

void MainFrame::OnRtuAddressKillFocus(wxFocusEvent& event)
{
    TakeRtuAddress();
    event.Skip();
}

void MainFrame::OnAddDevice(wxCommandEvent&) { AddDevice(context); }
void MainFrame::OnModifyDevice(wxCommandEvent&) { ModifyDevice(context); }
void MainFrame::OnDeleteDevice(wxCommandEvent&) { DeleteDevice(context); }
void MainFrame::OnDeviceSelected(wxCommandEvent& event) { SelectDevice(context, event.GetSelection()); }
void MainFrame::OnDeviceEnable(wxCommandEvent& event) { SetSelectedDeviceEnable(context, event.IsChecked()); }

// A double-click on a device line acts as the Modify button.
void MainFrame::OnDeviceDoubleClick(wxMouseEvent& event)
{
    wxCommandEvent modify(wxEVT_BUTTON, m_buttonModifyDevice->GetId());
    modify.SetEventObject(m_buttonModifyDevice);
    wxPostEvent(m_buttonModifyDevice, modify);
    event.Skip();
}

void MainFrame::OnAddCommand(wxCommandEvent&) { AddCommand(context); }
void MainFrame::OnModifyCommand(wxCommandEvent&) { ModifyCommand(context); }
void MainFrame::OnDeleteCommand(wxCommandEvent&) { DeleteCommand(context); }
void MainFrame::OnCommandSelected(wxCommandEvent& event) { SelectCommand(context, event.GetSelection()); }

void MainFrame::OnCommandDoubleClick(wxMouseEvent& event)
{
    ModifyCommand(context);
    event.Skip();
}

void MainFrame::OnEditModbusMap(wxCommandEvent&) { EditModbusMap(context); }
void MainFrame::OnImportMapFromTG7(wxCommandEvent&) { ImportMapFromDevice(context); }
void MainFrame::OnImportMapFromProject(wxCommandEvent&) { ImportMapFromProject(context); }
void MainFrame::OnDeleteModbusMap(wxCommandEvent&) { DeleteModbusMap(context); }
void MainFrame::OnExportMap(wxCommandEvent&) { ExportModbusMap(context); }

// The clicked item is toggled back first: the menu shows the old mode until the change is
// confirmed, and the refresh after a Yes sets both check marks from the project.
void MainFrame::OnAutomaticMap(wxCommandEvent& event)
{
    m_menuItemAutomaticMap->Check(!event.IsChecked());
    SwitchMapMode(context, true, event.IsChecked());
}

void MainFrame::OnUserDefinedMap(wxCommandEvent& event)
{
    m_menuItemUserDefinedMap->Check(!event.IsChecked());
    SwitchMapMode(context, false, event.IsChecked());
}

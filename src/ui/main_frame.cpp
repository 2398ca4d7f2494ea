#include "ui/main_frame.h"

#include "app/startup.h"
#include "deploy/configure_device.h"
#include "mux/mux_scan.h"
#include "mux/mux_scan_frame.h"
#include "remote/remote_com_port.h"
#include "project/load_from_device.h"
#include "project/command_editing.h"
#include "project/device_editing.h"
#include "project/project_commands.h"
#include "project/panel_view.h"

// Windows takes the icon from the program's resources (tgxconfig.rc), with its small size too.
#ifndef wxHAS_IMAGES_IN_RESOURCES
#include "ui/icon_program.xpm"
#endif

MainFrame* theMainFrame = nullptr;

MainFrame::MainFrame(Platform& platform, ToolRunner& tools, UserInterface* scriptedDialogs)
    : MainFrameBase(nullptr, wxID_ANY, "TG7+ Configuration tool", wxDefaultPosition, wxSize(545, 765)),
      ui(*this, scriptedDialogs),
      context{theProject, env, target, deviceTypes, ui, tools, platform}
{
    SetIcon(wxICON(icon_program));
    CreateStatusBar(1);
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
        m_mainPanel->Hide();
        return;
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
    m_mainPanel->Show();
    Layout();
}

void MainFrame::RefreshCommandList()
{
    WriteCommandList(BuildPanelView(context.project));
}

void MainFrame::WriteCommandList(const PanelView& view)
{
    m_listCommands->Set(view.commandLines);
    if (view.commandSelection >= 0)
        m_listCommands->SetSelection(view.commandSelection);
}

void MainFrame::OnCloseFrame(wxCloseEvent& event)
{
    if (event.CanVeto() && !ConfirmDiscardUnsaved(context)) {
        event.Veto();
        return;
    }
    event.Skip();
}

void MainFrame::OnExit(wxCommandEvent&) { Close(); }
void MainFrame::OnNew(wxCommandEvent&) { NewProject(context); }
void MainFrame::OnLoadFromDisk(wxCommandEvent&) { LoadProjectFromDisk(context); }
void MainFrame::OnSave(wxCommandEvent&) { SaveProjectCommand(context); }
void MainFrame::OnSaveAs(wxCommandEvent&) { SaveProjectAs(context); }
void MainFrame::OnCloseProject(wxCommandEvent&) { CloseProject(context); }
void MainFrame::OnLoadFromTG7(wxCommandEvent&) { LoadProjectFromDevice(context); }
void MainFrame::OnConfigure(wxCommandEvent&) { ConfigureDevice(context); }
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
    SetRtuAddress(context, m_textRtuAddress->GetValue());
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

// Commands that later work fills in. They are bound now so that every menu item already
// reaches its own handler.
void MainFrame::OnChangeNetworkSettings(wxCommandEvent&) {}
void MainFrame::OnUpdateFirmware(wxCommandEvent&) {}
void MainFrame::OnUploadInstallers(wxCommandEvent&) {}
void MainFrame::OnReboot(wxCommandEvent&) {}
void MainFrame::OnViewLiveData(wxCommandEvent&) {}
void MainFrame::OnOptions(wxCommandEvent&) {}
void MainFrame::OnDocumentation(wxCommandEvent&) {}
void MainFrame::OnCheckForUpdates(wxCommandEvent&) {}
void MainFrame::OnAbout(wxCommandEvent&) {}
void MainFrame::OnEditModbusMap(wxCommandEvent&) {}
void MainFrame::OnImportMapFromTG7(wxCommandEvent&) {}
void MainFrame::OnImportMapFromProject(wxCommandEvent&) {}
void MainFrame::OnAutomaticMap(wxCommandEvent&) {}
void MainFrame::OnUserDefinedMap(wxCommandEvent&) {}
void MainFrame::OnDeleteModbusMap(wxCommandEvent&) {}
void MainFrame::OnExportMap(wxCommandEvent&) {}

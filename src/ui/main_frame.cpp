#include "ui/main_frame.h"

#include "app/startup.h"
#include "project/panel_view.h"

#include "ui/icon_program.xpm"

MainFrame* theMainFrame = nullptr;

MainFrame::MainFrame(Platform& platform, ToolRunner& tools, UserInterface* scriptedDialogs)
    : MainFrameBase(nullptr, wxID_ANY, "TG7+ Configuration tool", wxDefaultPosition, wxSize(545, 765)),
      ui(*this, scriptedDialogs),
      context{theProject, env, target, deviceTypes, ui, tools, platform}
{
    SetIcon(wxIcon(icon_program_xpm));
    CreateStatusBar(1);
    startedUp = RunStartup(context);
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
    m_listCommands->Set(view.commandLines);
    if (view.commandSelection >= 0)
        m_listCommands->SetSelection(view.commandSelection);
    m_mainPanel->Show();
    Layout();
}

// Closing the window: the unsaved-edits guard arrives with the project commands.
void MainFrame::OnCloseFrame(wxCloseEvent& event) { event.Skip(); }
void MainFrame::OnExit(wxCommandEvent&) { Close(); }

// Commands that later work fills in. They are bound now so that every menu item and control
// already reaches its own handler.
void MainFrame::OnNew(wxCommandEvent&) {}
void MainFrame::OnLoadFromDisk(wxCommandEvent&) {}
void MainFrame::OnLoadFromTG7(wxCommandEvent&) {}
void MainFrame::OnSave(wxCommandEvent&) {}
void MainFrame::OnSaveAs(wxCommandEvent&) {}
void MainFrame::OnCloseProject(wxCommandEvent&) {}
void MainFrame::OnConfigure(wxCommandEvent&) {}
void MainFrame::OnChangeNetworkSettings(wxCommandEvent&) {}
void MainFrame::OnUpdateFirmware(wxCommandEvent&) {}
void MainFrame::OnUploadInstallers(wxCommandEvent&) {}
void MainFrame::OnReboot(wxCommandEvent&) {}
void MainFrame::OnViewLiveData(wxCommandEvent&) {}
void MainFrame::OnOptions(wxCommandEvent&) {}
void MainFrame::OnRemoteComPort(wxCommandEvent&) {}
void MainFrame::OnScan(wxCommandEvent&) {}
void MainFrame::OnDocumentation(wxCommandEvent&) {}
void MainFrame::OnCheckForUpdates(wxCommandEvent&) {}
void MainFrame::OnAbout(wxCommandEvent&) {}
void MainFrame::OnSerialModem(wxCommandEvent&) {}
void MainFrame::OnSerialModbus(wxCommandEvent&) {}
void MainFrame::OnInterfaceStandard(wxCommandEvent&) {}
void MainFrame::OnBaudRate(wxCommandEvent&) {}
void MainFrame::OnParity(wxCommandEvent&) {}
void MainFrame::OnStopBits(wxCommandEvent&) {}
void MainFrame::OnDeferralNone(wxCommandEvent&) {}
void MainFrame::OnDeferralPartial(wxCommandEvent&) {}
void MainFrame::OnDeferralFull(wxCommandEvent&) {}
void MainFrame::OnRtuAddressKillFocus(wxFocusEvent& event) { event.Skip(); }
void MainFrame::OnSwapBytes(wxCommandEvent&) {}
void MainFrame::OnSwapWords(wxCommandEvent&) {}
void MainFrame::OnSwapLongs(wxCommandEvent&) {}
void MainFrame::OnNanControl(wxCommandEvent&) {}
void MainFrame::OnPrimaryMaster(wxCommandEvent&) {}
void MainFrame::OnSecondaryMaster(wxCommandEvent&) {}
void MainFrame::OnAddDevice(wxCommandEvent&) {}
void MainFrame::OnModifyDevice(wxCommandEvent&) {}
void MainFrame::OnDeleteDevice(wxCommandEvent&) {}
void MainFrame::OnDeviceDoubleClick(wxMouseEvent&) {}
void MainFrame::OnDeviceSelected(wxCommandEvent&) {}
void MainFrame::OnAddCommand(wxCommandEvent&) {}
void MainFrame::OnModifyCommand(wxCommandEvent&) {}
void MainFrame::OnDeleteCommand(wxCommandEvent&) {}
void MainFrame::OnCommandDoubleClick(wxMouseEvent&) {}
void MainFrame::OnCommandSelected(wxCommandEvent&) {}
void MainFrame::OnEditModbusMap(wxCommandEvent&) {}
void MainFrame::OnImportMapFromTG7(wxCommandEvent&) {}
void MainFrame::OnImportMapFromProject(wxCommandEvent&) {}
void MainFrame::OnAutomaticMap(wxCommandEvent&) {}
void MainFrame::OnUserDefinedMap(wxCommandEvent&) {}
void MainFrame::OnDeleteModbusMap(wxCommandEvent&) {}
void MainFrame::OnExportMap(wxCommandEvent&) {}
void MainFrame::OnDeviceEnable(wxCommandEvent&) {}

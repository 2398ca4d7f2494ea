// The main window's generated layer: menus, panel and controls, every event bound to an empty
// virtual handler. MainFrame overrides the handlers.
#pragma once

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/frame.h>
#include <wx/listbox.h>
#include <wx/menu.h>
#include <wx/panel.h>
#include <wx/radiobut.h>
#include <wx/statline.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

class MainFrameBase : public wxFrame {
public:
    MainFrameBase(wxWindow* parent, wxWindowID id = wxID_ANY, const wxString& title = wxEmptyString,
                  const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxSize(545, 765),
                  long style = wxDEFAULT_FRAME_STYLE | wxTAB_TRAVERSAL, bool panelAtOnce = true);
    ~MainFrameBase() override;

protected:
    // Without panelAtOnce the frame has no panel (m_mainPanel null, the controls unset) until
    // this builds it and binds its controls; later calls do nothing.
    void CreatePanelOnce();

    wxMenuBar* m_menubar;
    wxMenu* m_menuProject;
    wxMenu* m_menuTarget;
    wxMenu* m_menuModbus;
    wxMenu* m_menuRemote;
    wxMenu* m_menuMultiplexer;
    wxMenu* m_menuHelp;

    wxMenuItem* m_menuItemNew;
    wxMenuItem* m_menuItemLoadFromDisk;
    wxMenuItem* m_menuItemLoadFromTG7;
    wxMenuItem* m_menuItemSave;
    wxMenuItem* m_menuItemSaveAs;
    wxMenuItem* m_menuItemClose;
    wxMenuItem* m_menuItemExit;
    wxMenuItem* m_menuItemConfigure;
    wxMenuItem* m_menuItemViewLiveData;
    wxMenuItem* m_menuItemChangeNetworkSettings;
    wxMenuItem* m_menuItemUpdateFirmware;
    wxMenuItem* m_menuItemUploadInstallers;
    wxMenuItem* m_menuItemReboot;
    wxMenuItem* m_menuItemOptions;
    wxMenuItem* m_menuItemAutomaticMap;
    wxMenuItem* m_menuItemUserDefinedMap;
    wxMenuItem* m_menuItemEditModbusMap;
    wxMenuItem* m_menuItemDeleteModbusMap;
    wxMenuItem* m_menuItemImportMapFromTG7;
    wxMenuItem* m_menuItemImportMapFromProject;
    wxMenuItem* m_menuItemExportMap;
    wxMenuItem* m_menuItemRemoteComPort;
    wxMenuItem* m_menuItemScan;
    wxMenuItem* m_menuItemDocumentation;
    wxMenuItem* m_menuItemCheckForUpdates;
    wxMenuItem* m_menuItemAbout;

    wxPanel* m_mainPanel = nullptr;
    wxStaticText* m_headingGeneral;
    wxStaticLine* m_lineGeneral;
    wxStaticText* m_labelConfigurationName;
    wxTextCtrl* m_textConfigurationName;
    wxStaticText* m_labelTagName;
    wxTextCtrl* m_textTagName;
    wxStaticText* m_headingSerial;
    wxStaticLine* m_lineSerial;
    wxStaticText* m_labelPortFunction;
    wxRadioButton* m_radioSerialModem;
    wxRadioButton* m_radioSerialModbus;
    wxStaticText* m_labelInterfaceStandard;
    wxChoice* m_choiceInterfaceStandard;
    wxStaticText* m_labelBaudRate;
    wxChoice* m_choiceBaudRate;
    wxStaticText* m_labelParity;
    wxChoice* m_choiceParity;
    wxStaticText* m_labelStopBits;
    wxChoice* m_choiceStopBits;
    wxStaticText* m_headingModem;
    wxStaticLine* m_lineModem;
    wxStaticText* m_labelDeferral;
    wxRadioButton* m_radioDeferralNone;
    wxRadioButton* m_radioDeferralPartial;
    wxRadioButton* m_radioDeferralFull;
    wxStaticText* m_headingModbus;
    wxStaticLine* m_lineModbus;
    wxStaticText* m_labelRtuAddress;
    wxTextCtrl* m_textRtuAddress;
    wxStaticText* m_labelByteOrdering;
    wxCheckBox* m_checkSwapBytes;
    wxCheckBox* m_checkSwapWords;
    wxCheckBox* m_checkSwapLongs;
    wxStaticText* m_labelTransmitterFailure;
    wxCheckBox* m_checkNanControl;
    wxStaticText* m_headingGateway;
    wxStaticLine* m_lineGateway;
    wxStaticText* m_labelMasterRole;
    wxRadioButton* m_radioPrimaryMaster;
    wxRadioButton* m_radioSecondaryMaster;
    wxStaticText* m_headingDevices;
    wxStaticLine* m_lineDevices;
    wxButton* m_buttonAddDevice;
    wxButton* m_buttonModifyDevice;
    wxButton* m_buttonDeleteDevice;
    wxListBox* m_listDevices;
    wxStaticText* m_headingCommands;
    wxStaticLine* m_lineCommands;
    wxButton* m_buttonAddCommand;
    wxButton* m_buttonModifyCommand;
    wxButton* m_buttonDeleteCommand;
    wxListBox* m_listCommands;

    // Virtual event handlers, override them in the derived class.
    virtual void OnCloseFrame(wxCloseEvent& event) { event.Skip(); }
    virtual void OnNew(wxCommandEvent& event) { event.Skip(); }
    virtual void OnLoadFromDisk(wxCommandEvent& event) { event.Skip(); }
    virtual void OnLoadFromTG7(wxCommandEvent& event) { event.Skip(); }
    virtual void OnSave(wxCommandEvent& event) { event.Skip(); }
    virtual void OnSaveAs(wxCommandEvent& event) { event.Skip(); }
    virtual void OnCloseProject(wxCommandEvent& event) { event.Skip(); }
    virtual void OnExit(wxCommandEvent& event) { event.Skip(); }
    virtual void OnConfigure(wxCommandEvent& event) { event.Skip(); }
    virtual void OnTarget(wxCommandEvent& event) { event.Skip(); }  // declared, never bound
    virtual void OnChangeNetworkSettings(wxCommandEvent& event) { event.Skip(); }
    virtual void OnUpdateFirmware(wxCommandEvent& event) { event.Skip(); }
    virtual void OnUploadInstallers(wxCommandEvent& event) { event.Skip(); }
    virtual void OnReboot(wxCommandEvent& event) { event.Skip(); }
    virtual void OnViewLiveData(wxCommandEvent& event) { event.Skip(); }
    virtual void OnOptions(wxCommandEvent& event) { event.Skip(); }
    virtual void OnRemoteComPort(wxCommandEvent& event) { event.Skip(); }
    virtual void OnScan(wxCommandEvent& event) { event.Skip(); }
    virtual void OnDocumentation(wxCommandEvent& event) { event.Skip(); }
    virtual void OnCheckForUpdates(wxCommandEvent& event) { event.Skip(); }
    virtual void OnAbout(wxCommandEvent& event) { event.Skip(); }
    virtual void OnSerialModem(wxCommandEvent& event) { event.Skip(); }
    virtual void OnSerialModbus(wxCommandEvent& event) { event.Skip(); }
    virtual void OnInterfaceStandard(wxCommandEvent& event) { event.Skip(); }
    virtual void OnBaudRate(wxCommandEvent& event) { event.Skip(); }
    virtual void OnParity(wxCommandEvent& event) { event.Skip(); }
    virtual void OnStopBits(wxCommandEvent& event) { event.Skip(); }
    virtual void OnDeferralNone(wxCommandEvent& event) { event.Skip(); }
    virtual void OnDeferralPartial(wxCommandEvent& event) { event.Skip(); }
    virtual void OnDeferralFull(wxCommandEvent& event) { event.Skip(); }
    virtual void OnRtuAddressKillFocus(wxFocusEvent& event) { event.Skip(); }
    virtual void OnSwapBytes(wxCommandEvent& event) { event.Skip(); }
    virtual void OnSwapWords(wxCommandEvent& event) { event.Skip(); }
    virtual void OnSwapLongs(wxCommandEvent& event) { event.Skip(); }
    virtual void OnNanControl(wxCommandEvent& event) { event.Skip(); }
    virtual void OnPrimaryMaster(wxCommandEvent& event) { event.Skip(); }
    virtual void OnSecondaryMaster(wxCommandEvent& event) { event.Skip(); }
    virtual void OnAddDevice(wxCommandEvent& event) { event.Skip(); }
    virtual void OnModifyDevice(wxCommandEvent& event) { event.Skip(); }
    virtual void OnDeleteDevice(wxCommandEvent& event) { event.Skip(); }
    virtual void OnDeviceDoubleClick(wxMouseEvent& event) { event.Skip(); }
    virtual void OnDeviceSelected(wxCommandEvent& event) { event.Skip(); }
    virtual void OnAddCommand(wxCommandEvent& event) { event.Skip(); }
    virtual void OnModifyCommand(wxCommandEvent& event) { event.Skip(); }
    virtual void OnDeleteCommand(wxCommandEvent& event) { event.Skip(); }
    virtual void OnCommandDoubleClick(wxMouseEvent& event) { event.Skip(); }
    virtual void OnCommandSelected(wxCommandEvent& event) { event.Skip(); }
    virtual void OnEditModbusMap(wxCommandEvent& event) { event.Skip(); }
    virtual void OnImportMapFromTG7(wxCommandEvent& event) { event.Skip(); }
    virtual void OnImportMapFromProject(wxCommandEvent& event) { event.Skip(); }
    virtual void OnAutomaticMap(wxCommandEvent& event) { event.Skip(); }
    virtual void OnUserDefinedMap(wxCommandEvent& event) { event.Skip(); }
    virtual void OnDeleteModbusMap(wxCommandEvent& event) { event.Skip(); }
    virtual void OnExportMap(wxCommandEvent& event) { event.Skip(); }
    virtual void OnDeviceEnable(wxCommandEvent& event) { event.Skip(); }  // no control is bound to it

private:
    void CreateMenus();
    void CreatePanel();
    void BindEvents();
    void UnbindEvents();
    void ConnectControls(bool connect);
};

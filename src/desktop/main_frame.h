// The main window: owns the installation, target and device types, and hands every command to
// the logic in a line or two.
#pragma once

#include "base/app_context.h"
#include "desktop/main_frame_base.h"
#include "desktop/wx_user_interface.h"

#include <functional>
#include <memory>

class MUXScanFrame;

class MainFrame : public MainFrameBase {
public:
    // The project is the program's; makeUi: the interface the logic talks through, by default the
    // real dialogs (tests give one whose dialogs answer from a script).
    using UserInterfaceMaker = std::function<std::unique_ptr<WxUserInterface>(MainFrame&)>;
    MainFrame(Project& project, Platform& platform, ToolRunner& tools, const UserInterfaceMaker& makeUi = {});
    ~MainFrame() override;

    // False when start-up ended in a fatal message; the application must then end.
    bool StartedUp() const { return startedUp; }
    AppContext& Context() { return context; }

    // Writes the panel and the menu states from the project.
    void RefreshPanelFromProject();
    void RefreshCommandList();
    // Opens the multiplexer configurator flush against the right edge, Scan disabled meanwhile.
    MuxScanWindow* OpenMuxScanFrame();
    MUXScanFrame* OpenedMuxScanFrame() const { return muxScanFrame; }

    InstallationEnvironment env;
    TargetAddress target;
    DeviceTypeTable deviceTypes;

protected:
    void OnCloseFrame(wxCloseEvent& event) override;
    void OnNew(wxCommandEvent& event) override;
    void OnLoadFromDisk(wxCommandEvent& event) override;
    void OnLoadFromTG7(wxCommandEvent& event) override;
    void OnSave(wxCommandEvent& event) override;
    void OnSaveAs(wxCommandEvent& event) override;
    void OnCloseProject(wxCommandEvent& event) override;
    void OnExit(wxCommandEvent& event) override;
    void OnConfigure(wxCommandEvent& event) override;
    void OnChangeNetworkSettings(wxCommandEvent& event) override;
    void OnUpdateFirmware(wxCommandEvent& event) override;
    void OnUploadInstallers(wxCommandEvent& event) override;
    void OnReboot(wxCommandEvent& event) override;
    void OnViewLiveData(wxCommandEvent& event) override;
    void OnOptions(wxCommandEvent& event) override;
    void OnRemoteComPort(wxCommandEvent& event) override;
    void OnScan(wxCommandEvent& event) override;
    void OnDocumentation(wxCommandEvent& event) override;
    void OnCheckForUpdates(wxCommandEvent& event) override;
    void OnAbout(wxCommandEvent& event) override;
    void OnSerialModem(wxCommandEvent& event) override;
    void OnSerialModbus(wxCommandEvent& event) override;
    void OnInterfaceStandard(wxCommandEvent& event) override;
    void OnBaudRate(wxCommandEvent& event) override;
    void OnParity(wxCommandEvent& event) override;
    void OnStopBits(wxCommandEvent& event) override;
    void OnDeferralNone(wxCommandEvent& event) override;
    void OnDeferralPartial(wxCommandEvent& event) override;
    void OnDeferralFull(wxCommandEvent& event) override;
    void OnRtuAddressKillFocus(wxFocusEvent& event) override;
    void OnSwapBytes(wxCommandEvent& event) override;
    void OnSwapWords(wxCommandEvent& event) override;
    void OnSwapLongs(wxCommandEvent& event) override;
    void OnNanControl(wxCommandEvent& event) override;
    void OnPrimaryMaster(wxCommandEvent& event) override;
    void OnSecondaryMaster(wxCommandEvent& event) override;
    void OnAddDevice(wxCommandEvent& event) override;
    void OnModifyDevice(wxCommandEvent& event) override;
    void OnDeleteDevice(wxCommandEvent& event) override;
    void OnDeviceDoubleClick(wxMouseEvent& event) override;
    void OnDeviceSelected(wxCommandEvent& event) override;
    void OnAddCommand(wxCommandEvent& event) override;
    void OnModifyCommand(wxCommandEvent& event) override;
    void OnDeleteCommand(wxCommandEvent& event) override;
    void OnCommandDoubleClick(wxMouseEvent& event) override;
    void OnCommandSelected(wxCommandEvent& event) override;
    void OnEditModbusMap(wxCommandEvent& event) override;
    void OnImportMapFromTG7(wxCommandEvent& event) override;
    void OnImportMapFromProject(wxCommandEvent& event) override;
    void OnAutomaticMap(wxCommandEvent& event) override;
    void OnUserDefinedMap(wxCommandEvent& event) override;
    void OnDeleteModbusMap(wxCommandEvent& event) override;
    void OnExportMap(wxCommandEvent& event) override;
    void OnDeviceEnable(wxCommandEvent& event) override;

private:
    void WriteCommandList(const struct PanelView& view);
    // Takes RTU address text typed since the entry last gave it to the project, as leaving the
    // entry does: a menu command or its shortcut runs while the entry still has the focus.
    void TakePendingRtuAddress();
    void TakeRtuAddress();
    wxString rtuAddressTaken;  // the entry's text when it last gave or got the project's value
    void MeasurePanelAgain();

    std::unique_ptr<WxUserInterface> ui;
    AppContext context;
    bool startedUp = false;
    MUXScanFrame* muxScanFrame = nullptr;
};


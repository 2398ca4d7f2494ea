#include "fakes/scripted_tool_runner.h"
#include "fakes/scripted_user_interface.h"
#include "platform/posix_platform.h"
#include "gui_support.h"
#include "ui/main_frame.h"

#include "wx_test_support.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

// The generated layer with every handler counting its calls, to prove the bindings.
class RecordingFrame : public MainFrameBase {
public:
    RecordingFrame() : MainFrameBase(nullptr) {}
    std::vector<std::string> calls;

    struct ControlEntry {
        wxWindow* control;
        wxEventType type;
        const char* handler;
    };
    std::vector<ControlEntry> Controls() const
    {
        return {{m_radioSerialModem, wxEVT_RADIOBUTTON, "OnSerialModem"},
                {m_radioSerialModbus, wxEVT_RADIOBUTTON, "OnSerialModbus"},
                {m_choiceInterfaceStandard, wxEVT_CHOICE, "OnInterfaceStandard"},
                {m_choiceBaudRate, wxEVT_CHOICE, "OnBaudRate"},
                {m_choiceParity, wxEVT_CHOICE, "OnParity"},
                {m_choiceStopBits, wxEVT_CHOICE, "OnStopBits"},
                {m_radioDeferralNone, wxEVT_RADIOBUTTON, "OnDeferralNone"},
                {m_radioDeferralPartial, wxEVT_RADIOBUTTON, "OnDeferralPartial"},
                {m_radioDeferralFull, wxEVT_RADIOBUTTON, "OnDeferralFull"},
                {m_textRtuAddress, wxEVT_KILL_FOCUS, "OnRtuAddressKillFocus"},
                {m_textRtuAddress, wxEVT_TEXT, nullptr},  // typing alone changes nothing
                {m_checkSwapBytes, wxEVT_CHECKBOX, "OnSwapBytes"},
                {m_checkSwapWords, wxEVT_CHECKBOX, "OnSwapWords"},
                {m_checkSwapLongs, wxEVT_CHECKBOX, "OnSwapLongs"},
                {m_checkNanControl, wxEVT_CHECKBOX, "OnNanControl"},
                {m_radioPrimaryMaster, wxEVT_RADIOBUTTON, "OnPrimaryMaster"},
                {m_radioSecondaryMaster, wxEVT_RADIOBUTTON, "OnSecondaryMaster"},
                {m_buttonAddDevice, wxEVT_BUTTON, "OnAddDevice"},
                {m_buttonModifyDevice, wxEVT_BUTTON, "OnModifyDevice"},
                {m_buttonDeleteDevice, wxEVT_BUTTON, "OnDeleteDevice"},
                {m_listDevices, wxEVT_LEFT_DCLICK, "OnDeviceDoubleClick"},
                {m_listDevices, wxEVT_LISTBOX, "OnDeviceSelected"},
                {m_buttonAddCommand, wxEVT_BUTTON, "OnAddCommand"},
                {m_buttonModifyCommand, wxEVT_BUTTON, "OnModifyCommand"},
                {m_buttonDeleteCommand, wxEVT_BUTTON, "OnDeleteCommand"},
                {m_listCommands, wxEVT_LEFT_DCLICK, "OnCommandDoubleClick"},
                {m_listCommands, wxEVT_LISTBOX, "OnCommandSelected"}};
    }

protected:
#define RECORD(Handler, Event) \
    void Handler(Event&) override { calls.push_back(#Handler); }
    RECORD(OnNew, wxCommandEvent)
    RECORD(OnLoadFromDisk, wxCommandEvent)
    RECORD(OnLoadFromTG7, wxCommandEvent)
    RECORD(OnSave, wxCommandEvent)
    RECORD(OnSaveAs, wxCommandEvent)
    RECORD(OnCloseProject, wxCommandEvent)
    RECORD(OnExit, wxCommandEvent)
    RECORD(OnConfigure, wxCommandEvent)
    RECORD(OnChangeNetworkSettings, wxCommandEvent)
    RECORD(OnUpdateFirmware, wxCommandEvent)
    RECORD(OnUploadInstallers, wxCommandEvent)
    RECORD(OnReboot, wxCommandEvent)
    RECORD(OnViewLiveData, wxCommandEvent)
    RECORD(OnOptions, wxCommandEvent)
    RECORD(OnRemoteComPort, wxCommandEvent)
    RECORD(OnScan, wxCommandEvent)
    RECORD(OnDocumentation, wxCommandEvent)
    RECORD(OnCheckForUpdates, wxCommandEvent)
    RECORD(OnAbout, wxCommandEvent)
    RECORD(OnSerialModem, wxCommandEvent)
    RECORD(OnSerialModbus, wxCommandEvent)
    RECORD(OnInterfaceStandard, wxCommandEvent)
    RECORD(OnBaudRate, wxCommandEvent)
    RECORD(OnParity, wxCommandEvent)
    RECORD(OnStopBits, wxCommandEvent)
    RECORD(OnDeferralNone, wxCommandEvent)
    RECORD(OnDeferralPartial, wxCommandEvent)
    RECORD(OnDeferralFull, wxCommandEvent)
    RECORD(OnRtuAddressKillFocus, wxFocusEvent)
    RECORD(OnSwapBytes, wxCommandEvent)
    RECORD(OnSwapWords, wxCommandEvent)
    RECORD(OnSwapLongs, wxCommandEvent)
    RECORD(OnNanControl, wxCommandEvent)
    RECORD(OnPrimaryMaster, wxCommandEvent)
    RECORD(OnSecondaryMaster, wxCommandEvent)
    RECORD(OnAddDevice, wxCommandEvent)
    RECORD(OnModifyDevice, wxCommandEvent)
    RECORD(OnDeleteDevice, wxCommandEvent)
    RECORD(OnDeviceDoubleClick, wxMouseEvent)
    RECORD(OnDeviceSelected, wxCommandEvent)
    RECORD(OnAddCommand, wxCommandEvent)
    RECORD(OnModifyCommand, wxCommandEvent)
    RECORD(OnDeleteCommand, wxCommandEvent)
    RECORD(OnCommandDoubleClick, wxMouseEvent)
    RECORD(OnCommandSelected, wxCommandEvent)
    RECORD(OnEditModbusMap, wxCommandEvent)
    RECORD(OnImportMapFromTG7, wxCommandEvent)
    RECORD(OnImportMapFromProject, wxCommandEvent)
    RECORD(OnAutomaticMap, wxCommandEvent)
    RECORD(OnUserDefinedMap, wxCommandEvent)
    RECORD(OnDeleteModbusMap, wxCommandEvent)
    RECORD(OnExportMap, wxCommandEvent)
#undef RECORD
};

// Sends an event of the given type as the control itself would.
void Dispatch(wxWindow* control, wxEventType type)
{
    if (type == wxEVT_KILL_FOCUS) {
        wxFocusEvent event(type, control->GetId());
        event.SetEventObject(control);
        control->GetEventHandler()->ProcessEvent(event);
    } else if (type == wxEVT_LEFT_DCLICK) {
        wxMouseEvent event(type);
        event.SetEventObject(control);
        control->GetEventHandler()->ProcessEvent(event);
    } else {
        wxCommandEvent event(type, control->GetId());
        event.SetEventObject(control);
        control->GetEventHandler()->ProcessEvent(event);
    }
}

}  // namespace

TEST(MainFrameBase, EveryPanelControlReachesItsOwnHandler)
{
    FramePtr<RecordingFrame> frame(new RecordingFrame);
    for (const auto& entry : frame->Controls()) {
        frame->calls.clear();
        Dispatch(entry.control, entry.type);
        const std::vector<std::string> expected =
            entry.handler ? std::vector<std::string>{entry.handler} : std::vector<std::string>{};
        EXPECT_EQ(frame->calls, expected) << entry.control->GetName() << " " << (entry.handler ? entry.handler : "-");
    }
}

TEST(MainFrameBase, MenusHoldTheirItemsInOrderAndEachReachesItsOwnHandler)
{
    FramePtr<RecordingFrame> frame(new RecordingFrame);
    wxMenuBar* bar = frame->GetMenuBar();
    // Each item as "label|help handler", checks marked [x], separators as "----".
    const std::vector<std::vector<std::string>> expected = {
        {"New|Create a new empty configuration OnNew", "----",
            "Load from Disk|Load an existing configuration from disk OnLoadFromDisk",
            "Load From TG7|Load an existing configuration from disk OnLoadFromTG7",
            "Save|Save the configuration to disk OnSave",
            "Save As|Save the configuration to disk, specifying a name OnSaveAs", "----",
            "Close|Close the current configuration OnCloseProject",
            // The standard exit item brings the toolkit's own help text.
            "----", "E&xit\tAlt+X|Quit this program OnExit"},
        {"Configure|Send the configuration to the HART gateway device OnConfigure", "View live data| OnViewLiveData",
            "----", "Change Network Settings| OnChangeNetworkSettings", "Update Firmware| OnUpdateFirmware",
            "Upload Installers| OnUploadInstallers", "Reboot|Reboot the HART gateway device OnReboot", "----",
            "Options| OnOptions"},
        {"[x]Automatic Map|Automatically generate a Modbus map based on the current configuration OnAutomaticMap",
            "[x]User defined Map|Let the user define a custom Modbus map OnUserDefinedMap", "----",
            "Edit the Modbus Map|Edit the Modbus Register Map OnEditModbusMap", "----",
            "Delete the Modbus Map|Delete the current modbus map OnDeleteModbusMap",
            "Import Map from TG7|Import a map from an TG7 OnImportMapFromTG7",
            "Import Map from another project|Copy a map from another project OnImportMapFromProject", "----",
            "Export as text or CSV|Export maop as text file or CSV for excel OnExportMap"},
        {"Remote COM port settings| OnRemoteComPort"},
        {"Scan| OnScan"},
        {"Documentation| OnDocumentation", "Check For Updates| OnCheckForUpdates", "About| OnAbout"},
    };
    const char* const titles[] = {"Project", "Target", "Modbus", "Remote", "Multiplexer", "Help"};
    ASSERT_EQ(bar->GetMenuCount(), 6u);
    for (size_t m = 0; m < 6; ++m) {
        EXPECT_EQ(bar->GetMenuLabelText(m), titles[m]);
        std::vector<std::string> actual;
        for (const wxMenuItem* item : bar->GetMenu(m)->GetMenuItems()) {
            if (item->IsSeparator()) {
                actual.push_back("----");
                continue;
            }
            frame->calls.clear();
            wxCommandEvent event(wxEVT_MENU, item->GetId());
            event.SetEventObject(frame.get());
            frame->ProcessWindowEvent(event);
            const std::string check = item->IsCheckable() ? "[x]" : "";
            actual.push_back(check + item->GetItemLabel().ToStdString() + "|" + item->GetHelp().ToStdString() + " "
                + (frame->calls.size() == 1 ? frame->calls[0] : "calls: " + std::to_string(frame->calls.size())));
        }
        EXPECT_EQ(actual, expected[m]) << titles[m];
    }
}

TEST(MainFrame, StartsWithTitleSizeStatusAndNoProjectOpenOrEndsWithoutTheInstallation)
{
    SampleInstallation installation;
    ScriptedUserInterface dialogs;
    ScriptedToolRunner tools;
    PosixPlatform platform(installation.registry);
    FramePtr<MainFrame> frame(new MainFrame(platform, tools, &dialogs));
    ASSERT_TRUE(frame->StartedUp());
    EXPECT_TRUE(dialogs.messages.empty());
    EXPECT_EQ(frame->GetTitle(), "TG7+ Configuration tool");
    EXPECT_EQ(frame->GetSize(), wxSize(545, 765));
    EXPECT_EQ(frame->GetStatusBar()->GetStatusText(0),
        "TGxSoftwareSuite 6.2.2 , Firmware 6.2.2 , Templates 3.1.0 , TGxConnect not installed");
    EXPECT_GE(frame->deviceTypes.deviceTypeCount, 5);
    wxMenuBar* bar = frame->GetMenuBar();
    auto enabled = [&](const char* menu, const char* item) { return bar->IsEnabled(bar->FindMenuItem(menu, item)); };
    EXPECT_TRUE(enabled("Project", "Load from Disk") && enabled("Target", "Reboot"));
    EXPECT_FALSE(enabled("Project", "Save") || enabled("Target", "Configure") || enabled("Modbus", "Automatic Map"));

    PosixPlatform missing(installation.path + "/none.ini");
    FramePtr<MainFrame> ended(new MainFrame(missing, tools, &dialogs));
    EXPECT_FALSE(ended->StartedUp());
    ASSERT_EQ(dialogs.messages.size(), 1u);
    EXPECT_EQ(dialogs.messages[0].caption, "Alert - Program cannot continue");
}

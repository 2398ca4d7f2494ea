#include "gui_support.h"
#include "desktop/main_frame.h"

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
        const wxEventType R = wxEVT_RADIOBUTTON, C = wxEVT_CHOICE, X = wxEVT_CHECKBOX, B = wxEVT_BUTTON;
        const wxEventType L = wxEVT_LISTBOX, D = wxEVT_LEFT_DCLICK;
        return {{m_radioSerialModem, R, "OnSerialModem"}, {m_radioSerialModbus, R, "OnSerialModbus"},
            {m_choiceInterfaceStandard, C, "OnInterfaceStandard"}, {m_choiceBaudRate, C, "OnBaudRate"},
            {m_choiceParity, C, "OnParity"}, {m_choiceStopBits, C, "OnStopBits"},
            {m_radioDeferralNone, R, "OnDeferralNone"}, {m_radioDeferralPartial, R, "OnDeferralPartial"},
            {m_radioDeferralFull, R, "OnDeferralFull"}, {m_textRtuAddress, wxEVT_KILL_FOCUS, "OnRtuAddressKillFocus"},
            {m_textRtuAddress, wxEVT_TEXT, nullptr},  // typing alone changes nothing
            {m_checkSwapBytes, X, "OnSwapBytes"}, {m_checkSwapWords, X, "OnSwapWords"},
            {m_checkSwapLongs, X, "OnSwapLongs"}, {m_checkNanControl, X, "OnNanControl"},
            {m_radioPrimaryMaster, R, "OnPrimaryMaster"}, {m_radioSecondaryMaster, R, "OnSecondaryMaster"},
            {m_buttonAddDevice, B, "OnAddDevice"}, {m_buttonModifyDevice, B, "OnModifyDevice"},
            {m_buttonDeleteDevice, B, "OnDeleteDevice"}, {m_listDevices, D, "OnDeviceDoubleClick"},
            {m_listDevices, L, "OnDeviceSelected"}, {m_buttonAddCommand, B, "OnAddCommand"},
            {m_buttonModifyCommand, B, "OnModifyCommand"}, {m_buttonDeleteCommand, B, "OnDeleteCommand"},
            {m_listCommands, D, "OnCommandDoubleClick"}, {m_listCommands, L, "OnCommandSelected"}};
    }

protected:
#define RECORD(Handler, Event) \
    void Handler(Event&) override { calls.push_back(#Handler); }
#define CMD(Handler) RECORD(Handler, wxCommandEvent)
    CMD(OnNew) CMD(OnLoadFromDisk) CMD(OnLoadFromTG7) CMD(OnSave) CMD(OnSaveAs) CMD(OnCloseProject) CMD(OnExit)
    CMD(OnConfigure) CMD(OnChangeNetworkSettings) CMD(OnUpdateFirmware) CMD(OnUploadInstallers) CMD(OnReboot)
    CMD(OnViewLiveData) CMD(OnOptions) CMD(OnRemoteComPort) CMD(OnScan) CMD(OnDocumentation) CMD(OnCheckForUpdates)
    CMD(OnAbout) CMD(OnEditModbusMap) CMD(OnImportMapFromTG7) CMD(OnImportMapFromProject) CMD(OnAutomaticMap)
    CMD(OnUserDefinedMap) CMD(OnDeleteModbusMap) CMD(OnExportMap)
    CMD(OnSerialModem) CMD(OnSerialModbus) CMD(OnInterfaceStandard) CMD(OnBaudRate) CMD(OnParity) CMD(OnStopBits)
    CMD(OnDeferralNone) CMD(OnDeferralPartial) CMD(OnDeferralFull) CMD(OnSwapBytes) CMD(OnSwapWords) CMD(OnSwapLongs)
    CMD(OnNanControl) CMD(OnPrimaryMaster) CMD(OnSecondaryMaster) CMD(OnAddDevice) CMD(OnModifyDevice)
    CMD(OnDeleteDevice) CMD(OnDeviceSelected) CMD(OnAddCommand) CMD(OnModifyCommand) CMD(OnDeleteCommand)
    CMD(OnCommandSelected)
    RECORD(OnRtuAddressKillFocus, wxFocusEvent)
    RECORD(OnDeviceDoubleClick, wxMouseEvent)
    RECORD(OnCommandDoubleClick, wxMouseEvent)
#undef CMD
#undef RECORD
};

// Sends an event of the given type as the control itself would.
void Dispatch(wxWindow* control, wxEventType type)
{
    wxFocusEvent focus(type, control->GetId());
    wxMouseEvent mouse(type);
    wxCommandEvent command(type, control->GetId());
    wxEvent& event = type == wxEVT_KILL_FOCUS ? static_cast<wxEvent&>(focus)
        : type == wxEVT_LEFT_DCLICK          ? static_cast<wxEvent&>(mouse)
                                             : static_cast<wxEvent&>(command);
    event.SetEventObject(control);
    control->GetEventHandler()->ProcessEvent(event);
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
        {"Remote COM port settings| OnRemoteComPort"}, {"Scan| OnScan"},
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
    ScriptedFrame<> w;
    MainFrame* frame = w.frame.get();
    ASSERT_TRUE(frame->StartedUp());
    EXPECT_ALL(w.dialogs.messages.empty(), frame->GetTitle() == "TG7+ Configuration tool");
    EXPECT_EQ(frame->GetStatusBar()->GetStatusText(0),
        "TGxSoftwareSuite 6.2.2 , Firmware 6.2.2 , Templates 3.1.0 , TGxConnect not installed");
    wxMenuBar* bar = frame->GetMenuBar();
    auto enabled = [&](const char* menu, const char* item) { return bar->IsEnabled(bar->FindMenuItem(menu, item)); };
    EXPECT_ALL(enabled("Project", "Load from Disk"), enabled("Target", "Reboot"));
    EXPECT_FALSE(enabled("Project", "Save") || enabled("Target", "Configure") || enabled("Modbus", "Automatic Map"));

    PosixPlatform missing(w.path + "/none.ini");
    FramePtr<MainFrame> ended(new MainFrame(w.project, missing, w.tools, ScriptedDialogsOf(w.dialogs)));
    EXPECT_FALSE(ended->StartedUp());
    EXPECT_EQ(w.dialogs.messages.size(), 1u);  // its text is the start-up unit test's
}

#include "fakes/scripted_tool_runner.h"
#include "fakes/scripted_user_interface.h"
#include "platform/posix_platform.h"
#include "gui_support.h"
#include "ui/main_frame.h"

#include "wx_test_support.h"

#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/utils.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace {

// The generated layer with every handler counting its calls, to prove the bindings.
class RecordingFrame : public MainFrameBase {
public:
    RecordingFrame() : MainFrameBase(nullptr) {}
    std::vector<std::string> calls;

    struct MenuEntry {
        wxMenuItem* item;
        const char* handler;
    };
    std::vector<MenuEntry> MenuItems() const
    {
        return {{m_menuItemNew, "OnNew"},
                {m_menuItemLoadFromDisk, "OnLoadFromDisk"},
                {m_menuItemLoadFromTG7, "OnLoadFromTG7"},
                {m_menuItemSave, "OnSave"},
                {m_menuItemSaveAs, "OnSaveAs"},
                {m_menuItemClose, "OnCloseProject"},
                {m_menuItemExit, "OnExit"},
                {m_menuItemConfigure, "OnConfigure"},
                {m_menuItemViewLiveData, "OnViewLiveData"},
                {m_menuItemChangeNetworkSettings, "OnChangeNetworkSettings"},
                {m_menuItemUpdateFirmware, "OnUpdateFirmware"},
                {m_menuItemUploadInstallers, "OnUploadInstallers"},
                {m_menuItemReboot, "OnReboot"},
                {m_menuItemOptions, "OnOptions"},
                {m_menuItemAutomaticMap, "OnAutomaticMap"},
                {m_menuItemUserDefinedMap, "OnUserDefinedMap"},
                {m_menuItemEditModbusMap, "OnEditModbusMap"},
                {m_menuItemDeleteModbusMap, "OnDeleteModbusMap"},
                {m_menuItemImportMapFromTG7, "OnImportMapFromTG7"},
                {m_menuItemImportMapFromProject, "OnImportMapFromProject"},
                {m_menuItemExportMap, "OnExportMap"},
                {m_menuItemRemoteComPort, "OnRemoteComPort"},
                {m_menuItemScan, "OnScan"},
                {m_menuItemDocumentation, "OnDocumentation"},
                {m_menuItemCheckForUpdates, "OnCheckForUpdates"},
                {m_menuItemAbout, "OnAbout"}};
    }

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
    wxMenuBar* MenuBar() const { return m_menubar; }

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
    RECORD(OnTarget, wxCommandEvent)
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
    RECORD(OnDeviceEnable, wxCommandEvent)
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


// The control whose shown text is `text` (mnemonic markers removed), searched depth first.
wxWindow* FindByText(wxWindow* parent, const wxString& text)
{
    for (wxWindow* child : parent->GetChildren()) {
        if (wxControl::RemoveMnemonics(child->GetLabel()) == text)
            return child;
        if (wxWindow* found = FindByText(child, text))
            return found;
    }
    return nullptr;
}

}  // namespace

TEST(MainFrameBase, EveryMenuItemReachesItsOwnHandler)
{
    FramePtr<RecordingFrame> frame(new RecordingFrame);
    const auto items = frame->MenuItems();
    ASSERT_EQ(items.size(), 26u);
    for (const auto& entry : items) {
        frame->calls.clear();
        wxCommandEvent event(wxEVT_MENU, entry.item->GetId());
        event.SetEventObject(frame.get());
        frame->ProcessWindowEvent(event);
        EXPECT_EQ(frame->calls, std::vector<std::string>{entry.handler}) << entry.item->GetItemLabelText();
    }
}

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

TEST(MainFrameBase, MenusHoldTheirItemsInOrder)
{
    FramePtr<RecordingFrame> frame(new RecordingFrame);
    wxMenuBar* bar = frame->MenuBar();
    // Each item as "label|help", checks marked [x], separators as "----".
    const std::vector<std::vector<std::string>> expected = {
        {"New|Create a new empty configuration", "----", "Load from Disk|Load an existing configuration from disk",
         "Load From TG7|Load an existing configuration from disk", "Save|Save the configuration to disk",
         "Save As|Save the configuration to disk, specifying a name", "----", "Close|Close the current configuration",
         // The standard exit item brings the toolkit's own help text.
         "----", "E&xit\tAlt+X|Quit this program"},
        {"Configure|Send the configuration to the HART gateway device", "View live data|", "----",
         "Change Network Settings|", "Update Firmware|", "Upload Installers|", "Reboot|Reboot the HART gateway device",
         "----", "Options|"},
        {"[x]Automatic Map|Automatically generate a Modbus map based on the current configuration",
         "[x]User defined Map|Let the user define a custom Modbus map", "----",
         "Edit the Modbus Map|Edit the Modbus Register Map", "----", "Delete the Modbus Map|Delete the current modbus map",
         "Import Map from TG7|Import a map from an TG7", "Import Map from another project|Copy a map from another project",
         "----", "Export as text or CSV|Export maop as text file or CSV for excel"},
        {"Remote COM port settings|"},
        {"Scan|"},
        {"Documentation|", "Check For Updates|", "About|"},
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
            const std::string check = item->IsCheckable() ? "[x]" : "";
            actual.push_back(check + item->GetItemLabel().ToStdString() + "|" + item->GetHelp().ToStdString());
        }
        EXPECT_EQ(actual, expected[m]) << titles[m];
    }
    EXPECT_EQ(bar->FindItem(wxID_EXIT)->GetItemLabel(), "E&xit\tAlt+X");
}

class StartedFrame : public ::testing::Test {
protected:
    void SetUp() override
    {
        registry = wxFileName::CreateTempFileName(wxFileName::GetTempDir() + "/tgxreg");
        WriteRegistry(wxString(TGX_SOURCE_DIR) + "/simulator/installation/");
    }
    void TearDown() override
    {
        if (wxFileExists(registry))
            wxRemoveFile(registry);
    }

    void WriteRegistry(const wxString& softwarePath)
    {
        wxFile file(registry, wxFile::write);
        file.Write("[HKEY_CURRENT_USER/Software/TARN SYSTEMS LTD/TGx Software Suite]\nPath=" + softwarePath +
                   "\nVersion=6.2.2\nFirmwareVersion=6.2.2\nTemplatesVersion=3.1.0\n");
    }

    wxString registry;
    ScriptedUserInterface dialogs;
    ScriptedToolRunner tools;
};

TEST_F(StartedFrame, StartsWithTitleSizeStatusAndNoProjectOpen)
{
    PosixPlatform platform(registry);
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
    EXPECT_TRUE(enabled("Project", "Load from Disk"));
    EXPECT_TRUE(enabled("Target", "Reboot"));
    for (const auto& [menu, item] : std::vector<std::pair<const char*, const char*>>{
             {"Project", "Save"}, {"Project", "Save As"}, {"Project", "Close"}, {"Target", "Configure"},
             {"Modbus", "Automatic Map"}, {"Modbus", "Export as text or CSV"}})
        EXPECT_FALSE(enabled(menu, item)) << item;
}

TEST_F(StartedFrame, OpenDefaultProjectShowsItsSettings)
{
    PosixPlatform platform(registry);
    FramePtr<MainFrame> frame(new MainFrame(platform, tools, &dialogs));
    ASSERT_TRUE(frame->StartedUp());
    frame->Context().project.projectOpen = 1;  // as New leaves it
    frame->RefreshPanelFromProject();
    frame->Show();
    wxTheApp->ProcessIdle();

    // The panel is shown and written: the default tag, choice and check box.
    auto shown = [&](const char* text) {
        wxWindow* window = FindByText(frame.get(), text);
        return window != nullptr && window->IsShownOnScreen();
    };
    EXPECT_TRUE(shown("TG7 Tagname"));
    auto* swapWords = dynamic_cast<wxCheckBox*>(FindByText(frame.get(), "Swap words in 32 bit longs"));
    ASSERT_NE(swapWords, nullptr);
    EXPECT_TRUE(swapWords->GetValue());
    wxWindowList& children = FindByText(frame.get(), "Baud Rate")->GetParent()->GetChildren();
    auto* baud = dynamic_cast<wxChoice*>(children.Find(FindByText(frame.get(), "Baud Rate"))->GetNext()->GetData());
    ASSERT_NE(baud, nullptr);
    EXPECT_EQ(baud->GetStringSelection(), "9600");
    wxMenuBar* bar = frame->GetMenuBar();
    EXPECT_TRUE(bar->IsEnabled(bar->FindMenuItem("Project", "Save")));
    EXPECT_TRUE(bar->IsChecked(bar->FindMenuItem("Modbus", "Automatic Map")));
    EXPECT_FALSE(bar->IsChecked(bar->FindMenuItem("Modbus", "User defined Map")));

    // A picture for people: the main window with the default project.
    EXPECT_TRUE(SaveScreenshot(frame.get(), "main_window.png")) << "screenshots need ImageMagick's import";
}

TEST_F(StartedFrame, MissingInstallationEndsStartUp)
{
    wxRemoveFile(registry);
    PosixPlatform platform(registry);
    FramePtr<MainFrame> frame(new MainFrame(platform, tools, &dialogs));
    EXPECT_FALSE(frame->StartedUp());
    ASSERT_EQ(dialogs.messages.size(), 1u);
    EXPECT_EQ(dialogs.messages[0].caption, "Alert - Program cannot continue");
}

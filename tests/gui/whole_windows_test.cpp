// Every window of the tool opens whole. Each is opened as a user opens it, through its command, on
// a copy of the sample installation with the gateway simulator playing the suite's tools, and is
// checked on screen: nothing cut, nothing smaller than its content, a prescribed size kept where it
// fits. Under a window manager the pictures taken here are the user guide's (`make screenshots`).
#include "deploy/configure_device.h"
#include "deploy/firmware_update.h"
#include "deploy/project_save.h"
#include "gui_support.h"
#include "modbus/map_import.h"
#include "mux/mux_rebuild.h"
#include "desktop/mux_rebuild_dialog.h"
#include "mux/mux_scan.h"
#include "desktop/mux_scan_frame.h"
#include "platform/posix_platform.h"
#include "desktop/cmd_dialog.h"
#include "commands/command_editing.h"
#include "desktop/device_dialog.h"
#include "commands/device_editing.h"
#include "commands/project_commands.h"
#include "project/project_file.h"
#include "desktop/options_dialog.h"
#include "remote/options_editing.h"
#include "remote/remote_com_port.h"
#include "desktop/remote_dialog.h"
#include "desktop/desktop_tool_runner.h"
#include "desktop/main_frame.h"
#include "wx_test_support.h"

#include <gtest/gtest.h>
#include <wx/modalhook.h>
#include <wx/msgdlg.h>
#include <wx/progdlg.h>
#include <wx/textdlg.h>

#include <algorithm>
#include <deque>
#include <functional>
#include <set>
#include <type_traits>

namespace {

// A window to check, with the size prescribed for it (none: wxDefaultSize) and its picture.
struct Look {
    const char* picture;
    wxSize prescribed = wxDefaultSize;
};

void CheckWhole(wxTopLevelWindow& window, const Look& look)
{
    for (int waited = 0; waited < 3000 && WindowProblems(window) == std::vector<std::string>{"not on screen"}; waited += 20)
        PumpEvents(20);
    PumpEvents(200);
    EXPECT_EQ(WindowProblems(window), std::vector<std::string>{}) << window.GetTitle();
    // The prescribed size, or the content's minimum where that is larger. Give or take a few pixels
    // under a window manager: GTK guesses a window's decorations from the last window's, and
    // openbox gives frames a taller bottom edge than dialogs.
    if (look.prescribed != wxDefaultSize) {
        const wxSize floor = window.GetMinSize(), size = window.GetSize();
        EXPECT_NEAR(size.x, std::max(look.prescribed.x, floor.x), 4) << window.GetTitle();
        EXPECT_NEAR(size.y, std::max(look.prescribed.y, floor.y), 4) << window.GetTitle();
    }
    EXPECT_TRUE(look.picture == nullptr || SaveScreenshot(&window, wxString(look.picture) + ".png"));
}

// A click as the user's: a box or radio button takes the value, then its event comes.
template <class Control>
void Click(Control* control, wxEventType type, bool value = true)
{
    if constexpr (!std::is_same_v<Control, wxButton>)
        control->SetValue(value);
    wxCommandEvent event(type, control->GetId());
    event.SetEventObject(control), event.SetInt(value);
    control->GetEventHandler()->ProcessEvent(event);
}

// A modal dialog a command opens, looked at, then answered as a user would (controls changed,
// then a button). The toolkit's own message boxes are answered unseen, and their texts kept.
struct Answer {
    Look look;
    std::function<int(wxDialog&)> answer;
};

class Answers : public wxModalDialogHook {
public:
    std::deque<Answer> script;
    std::vector<wxString> messages;
    wxArrayString titles;

    int Enter(wxDialog* dialog) override
    {
        if (auto* message = dynamic_cast<wxMessageDialog*>(dialog)) {
            messages.push_back(message->GetMessage());
            return message->GetMessageDialogStyle() & wxYES_NO ? wxID_YES : wxID_OK;
        }
        EXPECT_FALSE(script.empty()) << "unexpected dialog " << dialog->GetTitle();
        if (script.empty())
            return wxID_CANCEL;
        const Answer next = script.front();
        script.pop_front();
        titles.Add(dialog->GetTitle());
        dialog->Show();
        CheckWhole(*dialog, next.look);
        const int button = next.answer(*dialog);
        dialog->Hide();
        return button;
    }
    void Exit(wxDialog*) override {}
};

// The desktop's runner, looking at the progress dialog as each tool starts: the step's text has
// had its first paint by then, and stays on screen while the tool runs. The dialog belongs to the
// window the command came from: the configurator's own (the rebuild) while it is open.
class LookingRunner : public DesktopToolRunner {
public:
    const char* picture = nullptr;  // taken at the first tool with the dialog up
    MainFrame* frame = nullptr;
    long RunCaptured(const ToolCommand& tool, wxArrayString& output) override
    {
        const wxString command = tool.CommandLine();
        for (wxWindow* window : wxTopLevelWindows)
            if (auto* progress = dynamic_cast<wxProgressDialog*>(window)) {
                EXPECT_EQ(WindowProblems(*progress), std::vector<std::string>{}) << command;
                EXPECT_EQ(progress->GetTitle().Find('\n'), wxNOT_FOUND) << progress->GetTitle();
                wxWindow* owner = frame->OpenedMuxScanFrame();
                EXPECT_EQ(progress->GetParent(), owner != nullptr ? owner : frame) << command;
                EXPECT_TRUE(picture == nullptr || SaveScreenshot(progress, wxString(picture) + ".png"));
                picture = nullptr;
            }
        return DesktopToolRunner::RunCaptured(tool, output);
    }
};

// The tool as a user has it: a copy of the sample installation, the simulator's gateway with a
// multiplexer of three devices, the example projects in the project folder.
class Desk : public TempDir {
public:
    Desk()
    {
        CopyTree(TGX_SOURCE_DIR "/simulator/installation", path + "/installation");
        wxFileName::Mkdir(projects, wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
        for (const char* file : {"boiler_house.prj", "boiler_house.mbd"})
            wxCopyFile(TGX_SOURCE_DIR "/docs/examples/" + wxString(file), projects + "/" + file);
        wxSetEnv("TGX_DOCUMENTS", path + "/Documents");
        wxSetEnv("TGXSIM_HOME", path + "/gateway");
        wxGetEnv("PATH", &oldPath);
        wxSetEnv("PATH", TGX_SIMULATOR_BIN + wxString(wxPATH_SEP) + oldPath);
        for (const char* device : {"1 0 1000000101 FT101 \"Feedwater flow\"", "2 0 1000000102 PT102 \"Drum pressure\"",
                                   "3 0 1000000103 LT103 \"Drum level\""})
            Run("tgxsim mux add --known " + wxString(device));
        frame.reset(new MainFrame(project, platform, tools));
        tools.frame = frame.get();
        frame->target.targetEntry = frame->target.targetHost = "192.168.1.250";
        frame->Move(0, 0);  // the configurator opens to its right, on the screen
        frame->Show();
        PumpEvents();
    }
    ~Desk()
    {
        wxSetEnv("PATH", oldPath);
        wxSetWorkingDirectory(wxFileName::GetTempDir());  // the tools leave it in the installation
    }
    AppContext& ctx() { return frame->Context(); }
    operator AppContext&() { return ctx(); }  // so a task can be a command of the logic
    MUXScanFrame& configurator() { return *frame->OpenedMuxScanFrame(); }
    wxMenuItem* Item(const char* menu, const char* item)
    {
        return frame->GetMenuBar()->FindItem(frame->GetMenuBar()->FindMenuItem(menu, item));
    }
    static wxString Run(const wxString& command)
    {
        wxArrayString output;
        wxExecute(command, output, wxEXEC_SYNC);
        return wxJoin(output, '\n');
    }

    const wxString projects = path + "/Documents/tgxconfigure/PROJECTS";
    const wxString registry = Write("registry.ini", "[HKEY_CURRENT_USER/Software/TARN SYSTEMS LTD/TGx Software Suite]\n"
                                                    "Path=" + path + "/installation/\nVersion=6.2.2\nFirmwareVersion=6.2.2\n"
                                                    "TemplatesVersion=3.1.0\n"
                                                    "[HKEY_LOCAL_MACHINE/Software/TARN SYSTEMS LTD/TGx Connect]\n"
                                                    "Path=" + path + "/installation/tgxconnect/\nVersion=2.4.1\n");
    wxString oldPath;
    PosixPlatform platform{registry};
    LookingRunner tools;
    Project project;
    Answers answers;
    FramePtr<MainFrame> frame;
};

template <class Dialog>
Dialog& As(wxDialog& dialog)
{
    return dynamic_cast<Dialog&>(dialog);
}

int Ok(wxDialog&) { return wxID_OK; }

// One task of the user guide: its command, the dialogs it opens in order, its progress dialog's
// picture, the outcome the user sees, and the window it leaves to look at.
struct Task {
    const char* name;
    std::function<void(Desk&)> command;
    std::vector<Answer> dialogs;
    const char* progress = nullptr;
    std::function<void(Desk&)> outcome = nullptr;
    std::function<wxTopLevelWindow*(Desk&)> window = nullptr;
    Look left = {nullptr};
};

}  // namespace

TEST(WholeWindows, EveryWindowOpensWholeWithItsUsualContent)
{
    Desk desk;
    desk.answers.Register();
    auto main = [](Desk& d) -> wxTopLevelWindow* { return d.frame.get(); };
    auto configurator = [](Desk& d) -> wxTopLevelWindow* { return &d.configurator(); };
    auto address = Answer{{nullptr}, Ok};
    const Task tasks[] = {
        {"a new project", [](Desk& d) {  // as New goes on after its file dialog, which is GTK's own
             LoadDefaultProject(d.ctx().project);
             d.ctx().project.projectFilePath.Assign(d.projects + "/plant.prj");
             SaveProject(d.ctx(), d.projects + "/plant.prj");
             d.ctx().ui.RefreshPanel();
         },
         {}, nullptr, nullptr, main, {"new_project"}},
        {"a device", AddDevice,
         {{{"device_dialog"}, [](wxDialog& dialog) {
               As<DeviceDialog>(dialog).m_textHartAddress->SetValue("3");
               As<DeviceDialog>(dialog).m_checkEnabled->SetValue(true);
               return wxID_OK;
           }}},
         nullptr, [](Desk& d) { EXPECT_ALL(d.ctx().project.deviceCount == 1, d.ctx().project.devices[0].pollAddress == 3); }},
        {"a command", AddCommand,
         {{{"command_dialog"}, [](wxDialog& dialog) {
               As<CmdDialog>(dialog).m_textCommandNumber->SetValue("48:1,2");
               As<CmdDialog>(dialog).m_textCycleInterval->SetValue("10");
               return wxID_OK;
           }}},
         nullptr, [](Desk& d) { EXPECT_EQ(d.ctx().project.devices[0].commands[2].commandNumber, 48); }},
        {"the example project", [](Desk& d) {
             ReadProjectFromDisk(d.ctx(), d.projects + "/boiler_house.prj");
             d.ctx().ui.RefreshPanel();
         },
         {}, nullptr, [](Desk& d) { EXPECT_FALSE(d.frame->GetStatusBar()->GetField(0).IsEllipsized()); }, main,
         {"main_window", wxSize(545, 765)}},
        {"the options", EditOptions,
         {{{"options_dialog", wxSize(283, 399)}, [](wxDialog& dialog) {
               OptionsDialog& options = As<OptionsDialog>(dialog);
               EXPECT_EQ(options.m_textPorts[0]->GetValue() + " " + options.m_textTimeServer->GetValue(), "772 pool.ntp.org");
               options.m_textPorts[4]->SetValue("50001");
               options.m_checkTimeServer->SetValue(false);
               return wxID_OK;
           }}},
         nullptr, [](Desk& d) { EXPECT_ALL(d.ctx().project.syslogPort == 50001, d.ctx().project.timeServerEnable == 0); }},
        {"configure", ConfigureDevice,
         {{{"address_prompt"}, Ok}, {{"tag_prompt"}, [](wxDialog& dialog) {
              As<wxTextEntryDialog>(dialog).SetValue("BOILER1");
              return wxID_OK;
          }}},
         "configure_progress", [](Desk& d) { EXPECT_EQ(d.answers.messages.back(), "Configuration Complete"); }},
        {"the map from the gateway", ImportMapFromDevice, {address}, "map_import_progress"},
        {"the firmware", UpdateFirmware, {address}, "firmware_progress", [](Desk& d) { EXPECT_TRUE(d.answers.messages.back().StartsWith("Firmware update complete")); }},
        {"about", [](Desk& d) { d.frame->ProcessCommand(d.Item("Help", "About")->GetId()); },
         {{{"about_box"}, [](wxDialog& dialog) {
               // Two columns: the nine folders each on one line, all starting at the same place.
               std::set<int> columns, lines;
               for (wxWindow* child : dialog.GetChildren())
                   if (dynamic_cast<wxStaticText*>(child) != nullptr && child->GetLabel().StartsWith("/"))
                       columns.insert(child->GetPosition().x), lines.insert(child->GetSize().y / child->GetCharHeight());
               EXPECT_ALL(columns.size() == 1, lines == std::set<int>{1});
               return wxID_OK;
           }}}},
        {"the remote COM port", RemoteComPortCommand,
         {{{"remote_dialog", wxSize(298, 197)}, [](wxDialog& dialog) {
               As<RemoteDialog>(dialog).m_choiceComPort->SetStringSelection("COM4");
               As<RemoteDialog>(dialog).m_textPort->SetValue("900");
               return wxID_OK;
           }}},
         nullptr, [](Desk& d) { EXPECT_EQ(d.Run("ttvsp -g"), "COM4 192.168.1.250:900 up"); }},
        {"the multiplexer", MuxScanCommand, {{{"scan_dialog", wxSize(411, 326)}, Ok}}, "scan_progress",
         [](Desk& d) {
             EXPECT_EQ(d.configurator().m_grid->GetNumberRows(), 4);
             const wxRect main = d.frame->GetScreenRect();
             EXPECT_EQ(d.configurator().GetPosition(), wxPoint(main.GetRight(), main.GetTop()));
             EXPECT_FALSE(d.Item("Multiplexer", "Scan")->IsEnabled());
         },
         configurator, {"mux_scan_frame", wxSize(493, 300)}},
        {"its loops rebuilt", [](Desk& d) { Click(d.configurator().m_buttonRebuildLoops, wxEVT_BUTTON); },
         {{{"rebuild_dialog"}, [](wxDialog& dialog) {
               guiMUXRebuild& rebuild = As<guiMUXRebuild>(dialog);
               wxString seen;  // the estimate, and whether "All Loops" is ticked, after each click
               const auto see = [&] { seen << rebuild.m_textEstimate->GetValue() << rebuild.m_checkAllLoops->GetValue() << " "; };
               Click(rebuild.m_checkLoops[3], wxEVT_CHECKBOX, false), see();
               Click(rebuild.m_checkAllLoops, wxEVT_CHECKBOX, false), see();
               Click(rebuild.m_checkAllLoops, wxEVT_CHECKBOX), Click(rebuild.m_radioFirstDevice, wxEVT_RADIOBUTTON), see();
               EXPECT_EQ(seen, "20 Secs0 8 Secs0 232 Secs1 ");
               return wxID_OK;
           }}},
         "rebuild_progress", [](Desk& d) { EXPECT_EQ(d.configurator().m_grid->GetNumberRows(), 4); }},
        {"devices added", [](Desk& d) {
             d.configurator().m_grid->SelectRow(2);
             Click(d.configurator().m_buttonAddSelected, wxEVT_BUTTON);
             EXPECT_EQ(d.ctx().project.deviceCount, 2);
             Click(d.configurator().m_buttonAddAll, wxEVT_BUTTON);
         },
         {}, nullptr, [](Desk& d) { EXPECT_EQ(d.ctx().project.deviceCount, 4); }, main, {"mux_project"}},
        {"the configurator closed", [](Desk& d) { Click(d.configurator().m_buttonClose, wxEVT_BUTTON); }, {}, nullptr,
         [](Desk& d) { EXPECT_ALL(d.frame->OpenedMuxScanFrame() == nullptr, d.Item("Multiplexer", "Scan")->IsEnabled()); }},
    };
    for (const Task& task : tasks) {
        SCOPED_TRACE(task.name);
        desk.answers.script.assign(task.dialogs.begin(), task.dialogs.end());
        desk.tools.picture = task.progress;
        task.command(desk);
        EXPECT_TRUE(desk.answers.script.empty()) << desk.answers.script.size() << " dialogs not opened";
        EXPECT_EQ(desk.tools.picture, nullptr) << "no progress dialog";
        if (task.window)
            CheckWhole(*task.window(desk), task.left);
        if (task.outcome)
            task.outcome(desk);
    }
    desk.answers.Unregister();
    const char* prompt = "User entry required";
    EXPECT_EQ(desk.answers.titles, Lines({"Setup Hart Device", "Hart Command", "Options", prompt, prompt, prompt, prompt,
                                          "About TGx+ Configuration tool", "Remote Options", "Multiplexer Configurator", ""}));
}

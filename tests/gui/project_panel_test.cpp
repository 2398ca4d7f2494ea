#include "fakes/scripted_tool_runner.h"
#include "fakes/scripted_user_interface.h"
#include "gui_support.h"
#include "platform/posix_platform.h"
#include "project/cmd_dialog.h"
#include "project/device_dialog.h"
#include "project/project_commands.h"
#include "project/text_file.h"
#include "ui/main_frame.h"
#include "wx_test_support.h"

#include <gtest/gtest.h>
#include <wx/filename.h>
#include <wx/progdlg.h>

#include <dlfcn.h>
#include <string>
#include <vector>

namespace {

// The main window with its lists reachable, started on the sample installation.
class ProjectFrame : public MainFrame {
public:
    using MainFrame::MainFrame;
    wxListBox* Devices() { return m_listDevices; }
    wxListBox* Commands() { return m_listCommands; }
    wxRadioButton* SerialModbus() { return m_radioSerialModbus; }
    wxChoice* Parity() { return m_choiceParity; }
    wxTextCtrl* ConfigurationName() { return m_textConfigurationName; }
    wxTextCtrl* RtuAddress() { return m_textRtuAddress; }
    void Choose(wxMenuItem* item)
    {
        wxCommandEvent event(wxEVT_MENU, item->GetId());
        ProcessWindowEvent(event);
    }
    using MainFrame::m_menuItemClose, MainFrame::m_menuItemSave;
};

class LoadedProject : public ::testing::Test {
protected:
    void SetUp() override
    {
        frame.reset(new ProjectFrame(platform, tools, &dialogs));
        ASSERT_TRUE(frame->StartedUp());
        frame->Show();
        PumpEvents();  // shown and drawn before a project is opened, as a person opens one
        // Open the example through the load command; a copy, since loading rewrites the file.
        wxCopyFile(wxString(TGX_SOURCE_DIR) + "/docs/examples/boiler_house.prj", project);
        dialogs.files = {project};
        LoadProjectFromDisk(frame->Context());
    }

    SampleInstallation installation;
    const wxString project = installation.path + "/boiler_house.prj";
    PosixPlatform platform{installation.registry};
    ScriptedUserInterface dialogs;
    ScriptedToolRunner tools;
    FramePtr<ProjectFrame> frame;
};

}  // namespace

TEST_F(LoadedProject, PanelShowsTheProjectAndItsLists)
{
    EXPECT_EQ(frame->ConfigurationName()->GetValue() + "|" + frame->Parity()->GetStringSelection(),
        wxFileName(project).GetName() + "|Odd");
    ASSERT_EQ(frame->Devices()->GetCount(), 4u);
    EXPECT_EQ(frame->Devices()->GetString(1), "#01 [01] PT-102 Drum pressure : Rosemount3051");
    EXPECT_EQ(frame->Devices()->GetSelection(), 0);
    EXPECT_EQ(frame->Commands()->GetString(2), "CMD 009:01,02,03,04 - CYCLICAL READ 10   ");
    // The port serves the HART devices: its function is fixed while there are any.
    EXPECT_FALSE(frame->SerialModbus()->IsEnabled());
    wxMenuBar* bar = frame->GetMenuBar();
    EXPECT_TRUE(bar->IsEnabled(bar->FindMenuItem("Project", "Save")));
    EXPECT_FALSE(bar->IsChecked(bar->FindMenuItem("Modbus", "Automatic Map")));  // the example has its own map
    // A picture for people: the main window with a project.
    EXPECT_TRUE(SaveScreenshot(frame.get(), "main_window.png")) << "screenshots need ImageMagick's import";
}

TEST_F(LoadedProject, SelectingADeviceShowsItsCommandsAndADoubleClickOpensModify)
{
    wxCommandEvent select(wxEVT_LISTBOX, frame->Devices()->GetId());
    select.SetEventObject(frame->Devices());
    select.SetInt(2);
    frame->Context().project.selectedCommand = 1;
    frame->Devices()->GetEventHandler()->ProcessEvent(select);
    // From the device's first command.
    EXPECT_TRUE(frame->Context().project.selectedDevice == 2 && frame->Context().project.selectedCommand == 0);
    ASSERT_EQ(frame->Commands()->GetCount(), 3u);
    EXPECT_EQ(frame->Commands()->GetString(2), "CMD 035:00,12 - WRITE ON TRIGGER");

    frame->Context().project.selectedDevice = 1;
    dialogs.deviceAnswers.push_back([](DeviceForm&) { return false; });
    wxMouseEvent click(wxEVT_LEFT_DCLICK);
    click.SetEventObject(frame->Devices());
    frame->Devices()->GetEventHandler()->ProcessEvent(click);
    PumpEvents();  // Modify arrives as a posted button event
    ASSERT_EQ(dialogs.deviceForms.size(), 1u);
    EXPECT_EQ(dialogs.deviceForms[0].address, "1");

    frame->Context().project.selectedCommand = 2;
    dialogs.commandAnswers.push_back([](CommandForm&) { return false; });
    click.SetEventObject(frame->Commands());
    frame->Commands()->GetEventHandler()->ProcessEvent(click);
    ASSERT_EQ(dialogs.commandForms.size(), 1u);
    EXPECT_EQ(dialogs.commandForms[0].commandNumber, "48");  // device 1 is still selected
}

TEST(Dialogs, ExchangeTheirFormsBothWays)
{
    DeviceDialog device(nullptr);
    DeviceForm in;
    in.typeNames = Lines({"Generic", "KFD2"});
    in.typeSelection = 1, in.address = "0123456789", in.autoAddressing = true;
    device.TransferFormToWindow(in);
    EXPECT_EQ(Lines({device.GetTitle(), device.m_choiceDeviceType->GetStringSelection(),
                  device.m_textHartAddress->GetValue()}), Lines({"Setup Hart Device", "KFD2", "0123456789"}));
    EXPECT_TRUE(!device.m_checkEnabled->GetValue() && device.m_checkAutoAddressing->GetValue());
    device.m_choiceDeviceType->SetSelection(0);
    device.m_textHartAddress->SetValue("12");
    device.m_checkEnabled->SetValue(true);
    DeviceForm out;
    device.TransferWindowToForm(out);
    EXPECT_TRUE(out.typeSelection == 0 && out.address == "12" && out.enabledForPolling && out.autoAddressing);
    device.Show();
    EXPECT_TRUE(SaveScreenshot(&device, "device_dialog.png"));

    CmdDialog command(nullptr);
    command.TransferFormToWindow(CommandForm{"48:1,2", "10", true, false});
    EXPECT_EQ(Lines({command.GetTitle(), command.m_textCommandNumber->GetValue(),
                  command.m_textCycleInterval->GetValue()}), Lines({"Hart Command", "48:1,2", "10"}));
    command.m_textCycleInterval->SetValue("60");
    command.m_checkWrite->SetValue(true);
    CommandForm read;
    command.TransferWindowToForm(read);
    EXPECT_TRUE(read.commandNumber == "48:1,2" && read.cycleInterval == "60");
    EXPECT_TRUE(read.enabledForPolling && read.writeCommand);
    command.Show();
    EXPECT_TRUE(SaveScreenshot(&command, "command_dialog.png"));
}

// Typed text is taken by the menu commands while the entry still has the focus.
TEST_F(LoadedProject, TypedRtuAddressIsTakenBySaveAndClose)
{
    frame->RtuAddress()->SetFocus();
    frame->RtuAddress()->ChangeValue("42");
    frame->Choose(frame->m_menuItemSave);
    wxArrayString saved;
    ASSERT_TRUE(ReadTextLines(project, saved));
    EXPECT_NE(saved.Index("MODBUS RTU ADDRESS:42"), wxNOT_FOUND);

    frame->RtuAddress()->ChangeValue("427");
    frame->Choose(frame->m_menuItemClose);
    EXPECT_EQ(frame->Context().project.modbusRtuAddress, 427);
    ASSERT_EQ(dialogs.questions.size(), 1u);  // the unsaved mark makes Close ask; No keeps it open
    EXPECT_EQ(frame->Context().project.projectOpen, 1);
}

namespace {

// GTK complains when a widget gets less room than its minimum; a scrolled list may.
struct GtkSizes {
    struct Size { int width, height; };
    struct List { void* data; List* next; List* prev; };
    // From the libraries the toolkit has loaded already.
    template <class F>
    static F* Find(const char* name)
    {
        for (const char* library : {"libgtk-3.so.0", "libgobject-2.0.so.0"})
            if (void* handle = dlopen(library, RTLD_LAZY | RTLD_NOLOAD))
                if (void* symbol = dlsym(handle, name))
                    return reinterpret_cast<F*>(symbol);
        return nullptr;
    }
    void (*preferred)(void*, Size*, Size*) = Find<void(void*, Size*, Size*)>("gtk_widget_get_preferred_size");
    int (*width)(void*) = Find<int(void*)>("gtk_widget_get_allocated_width");
    int (*height)(void*) = Find<int(void*)>("gtk_widget_get_allocated_height");
    List* (*children)(void*) = Find<List*(void*)>("gtk_container_get_children");
    unsigned long (*containerType)() = Find<unsigned long()>("gtk_container_get_type");
    unsigned long (*scrollableType)() = Find<unsigned long()>("gtk_scrollable_get_type");
    int (*isA)(void*, unsigned long) = Find<int(void*, unsigned long)>("g_type_check_instance_is_a");
    const char* (*typeName)(void*) = Find<const char*(void*)>("g_type_name_from_instance");

    void Squeezed(void* widget, std::vector<std::string>& found) const
    {
        Size min{}, natural{};
        preferred(widget, &min, &natural);
        if (!isA(widget, scrollableType()) && (width(widget) < min.width || height(widget) < min.height))
            found.push_back(typeName(widget));
        if (!isA(widget, containerType()))
            return;
        for (List* child = children(widget); child != nullptr; child = child->next)
            Squeezed(child->data, found);
    }
};

}  // namespace

TEST_F(LoadedProject, NoControlIsSqueezedBelowItsMinimum)
{
    PumpEvents(300);
    const GtkSizes gtk;
    ASSERT_TRUE(gtk.preferred && gtk.isA && gtk.children);
    std::vector<std::string> squeezed;
    gtk.Squeezed(frame->GetHandle(), squeezed);
    EXPECT_TRUE(squeezed.empty()) << squeezed.front();
}

// The step text is on screen whole before the step's tool runs.
TEST_F(LoadedProject, ProgressDialogShowsItsLongestTextWhole)
{
    WxUserInterface real(*frame, nullptr);
    real.BeginProgress("Device configuration", "Configuring");
    const wxString step = "Checking firmware and templates versions, and a good deal more than that";
    real.PulseProgress(step);
    wxProgressDialog* dialog = nullptr;
    for (wxWindow* window : wxTopLevelWindows)
        if (auto* found = dynamic_cast<wxProgressDialog*>(window))
            dialog = found;
    ASSERT_NE(dialog, nullptr);
    EXPECT_GT(dialog->GetClientSize().x, dialog->GetTextExtent(step).x);
    real.EndProgress();
}

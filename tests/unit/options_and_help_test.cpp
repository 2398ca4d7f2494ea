// Target > Options and the small commands of the Help and Target menus, against scripted ports.
#include "app/small_commands.h"
#include "fakes/test_context.h"
#include "remote/options_editing.h"
#include "wx_test_support.h"

#include <gtest/gtest.h>

TEST(Options, TheDialogShowsTheProjectAndOkTakesBackWhatItAccepts)
{
    struct Case {
        const char* typed;  // into every port row
        int stored;         // what the first row's setting (772 before) becomes
    };
    const Case cases[] = {
        {"1100", 1100}, {"70000", 70000}, {"0", 772}, {"-5", 772}, {"abc", 772}, {"", 772},
        {"80x", 80},        // the value the conversion leaves counts
        {" 81", 81},        // leading blanks are skipped by the conversion
        {"99999999999", 2147483647},  // held at the largest value of the field
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.typed);
        TestContext t;
        LoadDefaultProject(t.project);
        t.project.projectSaved = 1;
        t.ui.optionsAnswers = {[&](OptionsForm& form) {
            for (wxString& port : form.ports)
                port = c.typed;
            form.timeServerAddress = "  ntp.plant.local  ";
            form.useTimeServer = false;
            return true;
        }};
        EditOptions(t.ctx);
        const OptionsForm& shown = t.ui.optionsForms.at(0);
        EXPECT_EQ(wxArrayString(6, shown.ports), Lines({"772", "502", "1100", "503", "50000", "5094"}));
        EXPECT_EQ(shown.timeServerAddress, kDefaultTimeServer);
        EXPECT_TRUE(shown.useTimeServer);
        EXPECT_EQ(t.project.vcpPort, c.stored);
        EXPECT_EQ(t.project.hartIpTcpPort, c.stored == 772 ? 5094 : c.stored);
        EXPECT_EQ(GetText(t.project.timeServerAddress), "  ntp.plant.local  ");
        EXPECT_EQ(t.project.timeServerEnable, 0);
        EXPECT_EQ(t.project.projectSaved, 1);  // no unsaved mark
    }
}

TEST(Options, AnEmptyAddressBecomesTheDefaultWhateverTheAnswer)
{
    for (bool ok : {true, false}) {
        TestContext t;
        LoadDefaultProject(t.project);
        t.project.vcpPort = 9;
        t.ui.optionsAnswers = {[&](OptionsForm& form) {
            form.ports[0] = "10";
            form.timeServerAddress.clear();
            form.useTimeServer = false;
            // Cancel: the project has an empty address when the dialog closes.
            SetText(t.project.timeServerAddress, "");
            return ok;
        }};
        EditOptions(t.ctx);
        EXPECT_EQ(GetText(t.project.timeServerAddress), kDefaultTimeServer);
        EXPECT_EQ(t.project.vcpPort, ok ? 10 : 9);
        EXPECT_EQ(t.project.timeServerEnable, ok ? 0 : 1);
    }
    // An address longer than the field is cut to its 63 characters.
    TestContext t;
    const wxString longName(70, 'n');
    t.ui.optionsAnswers = {[&](OptionsForm& form) { form.timeServerAddress = longName; return true; }};
    EditOptions(t.ctx);
    EXPECT_EQ(GetText(t.project.timeServerAddress), longName.Left(63));
}

TEST(AboutBox, DescriptionLinesAndTabs)
{
    InstallationEnvironment env;
    env.TGxSoftwareVersion = "6.2.2";
    env.TGxConnectVersion = "2.4.1";
    env.FirmwareVersion = "6.2.2";
    env.TemplatesVersion = "3.1.0";
    env.TgxSoftwarePath = "C:\\TGx\\";
    env.TGxConnectPath = "C:\\TGxConnect\\";
    env.TgxSoftwareInstallerPath = "C:\\TGx\\installer";
    env.TgxConnectInstallerPath = "C:\\TGxConnect\\installer";
    env.TgxTemplatesPath = "C:\\TGx\\tgxtemplates";
    env.TgxProjectPath = "D:\\Docs\\tgxconfigure\\PROJECTS";
    env.TgxFirmwarePath = "C:\\TGx\\tgxfirmware";
    env.TgxDocumentPath = "C:\\TGx\\tgxconfigure\\DOCUMENTATION";
    env.TgxBuildPath = "C:\\TGx\\tgxconfigure";
    EXPECT_EQ(AboutDescription(env), "Configuration Utility for TG7-Plus HART Gateway\n\n"
                                     "TGxSoftwareVersion : \t6.2.2\n"
                                     "TGxConnectVersion : \t2.4.1\n"
                                     "FirmwareVersion : \t6.2.2\n"
                                     "TemplatesVersion : \t3.1.0\n"
                                     "\n"
                                     "TgxSoftwarePath : \tC:\\TGx\\\n"
                                     "TGxConnectPath : \tC:\\TGxConnect\\\n"
                                     "TgxSoftwareInstallerPath : \tC:\\TGx\\installer\n"
                                     "TgxConnectInstallerPath : \tC:\\TGxConnect\\installer\n"
                                     "TgxTemplatesPath : \tC:\\TGx\\tgxtemplates\n"
                                     "TgxProjectPath : \t\tD:\\Docs\\tgxconfigure\\PROJECTS\n"
                                     "TgxFirmwarePath : \tC:\\TGx\\tgxfirmware\n"
                                     "TgxDocumentPath : \tC:\\TGx\\tgxconfigure\\DOCUMENTATION\n"
                                     "TgxBuildPath : \t\tC:\\TGx\\tgxconfigure\n");
}

TEST(SmallCommands, WhatEachStarts)
{
    TestContext t;
    t.env.TgxSoftwarePath = "C:\\TGx\\";
    t.env.TgxDocumentPath = "C:\\TGx\\tgxconfigure\\DOCUMENTATION";
    t.target.targetEntry = "192.168.1.250";
    t.ui.files = {std::nullopt, wxString("C:\\TGx\\tgxconfigure\\DOCUMENTATION\\TG7+ User Guide.pdf")};
    t.ui.texts = {std::nullopt, wxString("10.0.0.9:2200")};
    OpenDocumentation(t.ctx);  // cancelled: nothing opens
    EXPECT_TRUE(t.platform.openedDocuments.empty());
    OpenDocumentation(t.ctx);
    EXPECT_EQ(t.platform.openedDocuments, Lines({"C:\\TGx\\tgxconfigure\\DOCUMENTATION\\TG7+ User Guide.pdf"}));
    const FileChoiceForm& form = t.ui.fileForms.at(0);
    EXPECT_EQ(form.title, "Select a document");
    EXPECT_EQ(form.folder, t.env.TgxDocumentPath);
    EXPECT_EQ(form.wildcard, "*.pdf");
    EXPECT_TRUE(!form.save && form.mustExist && form.fileName.empty());

    CheckForUpdates(t.ctx);
    ViewLiveData(t.ctx);  // cancelled: nothing starts
    ViewLiveData(t.ctx);
    ChangeNetworkSettings(t.ctx);
    ASSERT_EQ(t.tools.runs.size(), 3u);
    EXPECT_EQ(t.tools.runs[0].command, "powershell \".\\updater.exe\"");
    EXPECT_EQ(t.tools.runs[0].workingDirectory, "C:\\TGx\\");
    EXPECT_EQ(t.tools.runs[0].mode, RunMode::Captured);
    EXPECT_EQ(t.tools.runs[1].command, "tgxview \"-a=10.0.0.9\"");
    EXPECT_EQ(t.tools.runs[1].mode, RunMode::Detached);
    EXPECT_EQ(t.tools.runs[2].command, "tgxfinder");
    EXPECT_EQ(t.tools.runs[2].mode, RunMode::Detached);
    EXPECT_TRUE(t.ui.messages.empty());
}

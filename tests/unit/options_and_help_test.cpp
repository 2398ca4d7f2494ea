// Target > Options and the small commands of the Help and Target menus, against scripted ports.
#include "app/small_commands.h"
#include "fakes/test_context.h"
#include "remote/options_editing.h"
#include "wx_test_support.h"

#include <gtest/gtest.h>

#include <algorithm>

TEST(Options, OkTakesBackWhatItAcceptsAndAnEmptyAddressBecomesTheDefault)
{
    // Typed into every port row and the address; OK or Cancel; the first row's setting then (772 before).
    const struct { const char* typed; bool ok; int stored; const char* address; } cases[] = {
        {"70000", true, 70000, "70000"}, {"-5", true, 772, "-5"}, {"abc", true, 772, "abc"},
        {"80x", true, 80, "80x"},  // the value the conversion leaves counts
        {"99999999999", true, 2147483647, "99999999999"},
        {"", true, 772, kDefaultTimeServer}, {"", false, 772, kDefaultTimeServer},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.typed);
        TestContext t;
        LoadDefaultProject(t.project);
        t.project.projectSaved = 1;
        t.ui.optionsAnswers = {[&](OptionsForm& form) {
            std::fill(std::begin(form.ports), std::end(form.ports), form.timeServerAddress = c.typed);
            form.useTimeServer = false;
            SetText(t.project.timeServerAddress, "");  // so that Cancel too meets an empty address
            return c.ok;
        }};
        EditOptions(t.ctx);
        const OptionsForm& shown = t.ui.optionsForms.at(0);
        EXPECT_EQ(wxArrayString(6, shown.ports), Lines({"772", "502", "1100", "503", "50000", "5094"}));
        EXPECT_TRUE(shown.timeServerAddress == kDefaultTimeServer && shown.useTimeServer);
        EXPECT_EQ(t.project.vcpPort, c.stored);
        EXPECT_EQ(t.project.hartIpTcpPort, c.stored == 772 ? 5094 : c.stored);
        EXPECT_EQ(GetText(t.project.timeServerAddress), c.address);
        EXPECT_TRUE(t.project.timeServerEnable == (c.ok ? 0 : 1) && t.project.projectSaved == 1);
    }
}

TEST(SmallCommands, WhatEachStarts)
{
    TestContext t;
    t.env.TgxSoftwarePath = "C:\\TGx\\";
    t.env.TgxDocumentPath = "C:\\TGx\\DOC";
    t.ui.files = {std::nullopt, wxString("C:\\TGx\\DOC\\a.pdf")};
    t.ui.texts = {std::nullopt, wxString("10.0.0.9:2200")};
    for (int twice = 0; twice < 2; ++twice) {  // cancelled first: nothing opens or starts
        OpenDocumentation(t.ctx);
        ViewLiveData(t.ctx);
    }
    CheckForUpdates(t.ctx);
    ChangeNetworkSettings(t.ctx);
    EXPECT_EQ(t.platform.openedDocuments, Lines({"C:\\TGx\\DOC\\a.pdf"}));
    const FileChoiceForm& form = t.ui.fileForms.at(0);
    EXPECT_TRUE(form.title == "Select a document" && form.folder == "C:\\TGx\\DOC" && form.wildcard == "*.pdf");
    EXPECT_TRUE(!form.save && form.mustExist && form.fileName.empty());
    EXPECT_EQ(t.tools.Commands(), Lines({"tgxview \"-a=10.0.0.9\"", "powershell \".\\updater.exe\"", "tgxfinder"}));
    EXPECT_TRUE(t.tools.runs[0].mode == RunMode::Detached && t.tools.runs[2].mode == RunMode::Detached);
    EXPECT_EQ(t.tools.runs[1].workingDirectory, "C:\\TGx\\");
}

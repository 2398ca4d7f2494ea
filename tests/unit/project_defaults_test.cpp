// The default settings themselves are checked where they show: the saved default project
// (project_file_test.cpp). Here what a new project must clear and how texts are stored.
#include "project/project.h"

#include "wx_test_support.h"

#include <gtest/gtest.h>

#include <cstring>

TEST(ProjectDefaults, ANewProjectLeavesNothingOfTheOldOne)
{
    Project p;
    p.projectFilePath.Assign("/tmp/x.prj");
    p.deviceCount = 9;
    p.selectedDevice = 4;
    p.modbusMapLines.Add("MAP,1");
    for (ProjectDevice& d : p.devices) {
        SetText(d.deviceName, "Y");
        d.pollAddress = d.enabled = d.commandCount = 3;
        d.commands[49].args[7] = 5;
    }
    LoadDefaultProject(p);
    EXPECT_EQ((std::vector<int>{p.projectSaved, p.projectOpen, p.deviceCount, p.selectedDevice}),
        (std::vector<int>{0, 1, 0, -1}));
    EXPECT_FALSE(p.projectFilePath.IsOk());
    EXPECT_TRUE(p.modbusMapLines.empty());
    static const ProjectDevice empty{};
    for (const ProjectDevice& d : p.devices)
        EXPECT_EQ(std::memcmp(&d, &empty, sizeof empty), 0);
}

TEST(ProjectText, FieldsAreCutToTheirSizeWithoutSplittingCharacters)
{
    const wxString euro = wxString::FromUTF8("\xE2\x82\xAC");  // three bytes in UTF-8
    const struct {
        wxString text;
        wxString stored;
    } cases[] = {
        {wxString(63, 'a'), wxString(63, 'a')},
        {wxString(80, 'a'), wxString(63, 'a')},
        {wxString(62, 'a') + euro, wxString(62, 'a')},  // the euro sign does not fit whole
        {wxString(60, 'a') + euro, wxString(60, 'a') + euro},
        {"", ""},
    };
    for (const auto& c : cases) {
        char field[kTextFieldSize];
        std::fill(std::begin(field), std::end(field), 'x');
        SetText(field, c.text);
        EXPECT_EQ(GetText(field), c.stored);
        EXPECT_EQ(field[kTextFieldSize - 1], '\0');
    }
    char address[kLongAddressSize];
    SetText(address, "0123456789012345678901234");
    EXPECT_EQ(GetText(address), "01234567890123456789");
}

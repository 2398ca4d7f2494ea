#include "base/device_type_table.h"
#include "temp_dir.h"

#include "wx_test_support.h"

#include <gtest/gtest.h>

TEST(DeviceTypeTable, OnlyDevTypeLinesWithExactlySixValuesAreTaken)
{
    const struct {
        const char* line;
        bool taken;
    } cases[] = {
        {"DEV_TYPE Generic g2 g3 g4 g5 g6", true},
        {"DEV_TYPE   Generic\tg2  g3\t\tg4 g5 g6  \r", true},  // runs of blanks and tabs separate
        {"DEV_TYPE Generic g2 g3 g4 g5", false},                 // five values
        {"DEV_TYPE Generic g2 g3 g4 g5 g6 g7", false},           // seven values
        {"DEV_TYPE\tGeneric g2 g3 g4 g5 g6", false},             // the blank after the word is required
        {"dev_type Generic g2 g3 g4 g5 g6", false},              // the prefix is case-sensitive
        {" DEV_TYPE Generic g2 g3 g4 g5 g6", false},             // and must start the line
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.line);
        DeviceTypeTable table;
        ParseDeviceTypeLine(c.line, table);
        ASSERT_EQ(table.deviceTypeCount, c.taken ? 1 : 0);
        if (c.taken) {
            EXPECT_EQ(table.TypeName(0), "Generic");
            EXPECT_EQ(table.Text(6, 0), "g6");
        }
    }
    // At most 256 rows; tokens cut to 63 characters; beyond the table reads as empty.
    DeviceTypeTable table;
    for (int i = 0; i < 300; ++i)
        ParseDeviceTypeLine(wxString::Format("DEV_TYPE T%d a b c d ", i) + wxString(64, 'z'), table);
    EXPECT_EQ(table.deviceTypeCount, 256);
    EXPECT_EQ(table.TypeName(256), "");
    EXPECT_EQ(table.Text(6, 255), wxString(63, 'z'));
}

TEST(DeviceTypeTable, ReadsEveryLineOfTheFileAndSurvivesOddFiles)
{
    TempDir dir;
    // CR LF line ends, a comment, a malformed line, and a last line without a line end.
    const wxString path = dir.Write("ct.cfg", "; device types\r\nDEV_TYPE Generic a b c d e\r\nDEV_TYPE Bad a b\r\n"
                                              "DEV_TYPE KFD2 k2 k3 k4 k5 k6");
    DeviceTypeTable table;
    ASSERT_EQ(LoadDeviceTypeTable(path, table), TextFileRead::Read);
    ASSERT_EQ(table.deviceTypeCount, 2);
    EXPECT_EQ(table.TypeName(1), "KFD2");
    EXPECT_EQ(LoadDeviceTypeTable(dir.path + "/missing.cfg", table), TextFileRead::Missing);

    const char binary[] = {'\x00', '\xff', '\xfe', 'D', '\x00', '\x01', '\n', '\x7f'};
    wxFile(dir.path + "/bin.cfg", wxFile::write).Write(binary, sizeof binary);
    dir.Write("empty.cfg", "");
    for (const char* name : {"bin.cfg", "empty.cfg"}) {
        DeviceTypeTable odd;
        EXPECT_EQ(LoadDeviceTypeTable(dir.path + "/" + name, odd), TextFileRead::Read) << name;
        EXPECT_EQ(odd.deviceTypeCount, 0) << name;
    }
}

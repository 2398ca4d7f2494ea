#include "app/device_type_table.h"
#include "app/installation_environment.h"
#include "temp_dir.h"

#include "wx_test_support.h"

#include <gtest/gtest.h>

TEST(DeviceTypeTable, OnlyDevTypeLinesWithExactlySixValuesAreTaken)
{
    struct Case {
        const char* line;
        bool taken;
    };
    const Case cases[] = {
        {"DEV_TYPE Generic g2 g3 g4 g5 g6", true},
        {"DEV_TYPE   Generic\tg2  g3\t\tg4 g5 g6  \r", true},  // runs of blanks and tabs separate
        {"DEV_TYPE Generic g2 g3 g4 g5", false},                 // five values
        {"DEV_TYPE Generic g2 g3 g4 g5 g6 g7", false},           // seven values
        {"DEV_TYPE\tGeneric g2 g3 g4 g5 g6", false},             // the blank after the word is required
        {"dev_type Generic g2 g3 g4 g5 g6", false},              // the prefix is case-sensitive
        {" DEV_TYPE Generic g2 g3 g4 g5 g6", false},             // and must start the line
        {"DEV_TYPES Generic g2 g3 g4 g5 g6", false},
        {"; DEV_TYPE Generic g2 g3 g4 g5 g6", false},
        {"", false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.line);
        DeviceTypeTable table;
        ParseDeviceTypeLine(c.line, table);
        ASSERT_EQ(table.deviceTypeCount, c.taken ? 1 : 0);
        if (c.taken) {
            EXPECT_EQ(table.TypeName(0), "Generic");
            EXPECT_EQ(table.Text(2, 0), "g2");
            EXPECT_EQ(table.Text(6, 0), "g6");
        }
    }
}

TEST(DeviceTypeTable, StopsAt256RowsAndCutsLongTokens)
{
    DeviceTypeTable table;
    for (int i = 0; i < 300; ++i)
        ParseDeviceTypeLine(wxString::Format("DEV_TYPE T%d a b c d e", i), table);
    EXPECT_EQ(table.deviceTypeCount, 256);
    EXPECT_EQ(table.TypeName(255), "T255");
    EXPECT_EQ(table.TypeName(256), "");  // beyond the table reads as empty, never out of bounds

    DeviceTypeTable longTokens;
    const wxString longName(100, 'N');
    ParseDeviceTypeLine("DEV_TYPE " + longName + " a b c d " + wxString(64, 'z'), longTokens);
    ASSERT_EQ(longTokens.deviceTypeCount, 1);
    EXPECT_EQ(longTokens.TypeName(0), wxString(63, 'N'));
    EXPECT_EQ(longTokens.Text(6, 0), wxString(63, 'z'));
}

TEST(DeviceTypeTable, ReadsEveryLineOfTheFileInOrder)
{
    TempDir dir;
    // CR LF line ends, a comment, a malformed line, and a last line without a line end.
    const wxString path = dir.Write("ct.cfg", "; device types\r\nDEV_TYPE Generic a b c d e\r\nDEV_TYPE Bad a b\r\n"
                                              "DEV_TYPE KFD2 k2 k3 k4 k5 k6");
    DeviceTypeTable table;
    ASSERT_TRUE(LoadDeviceTypeTable(path, table));
    ASSERT_EQ(table.deviceTypeCount, 2);
    EXPECT_EQ(table.TypeName(0), "Generic");
    EXPECT_EQ(table.TypeName(1), "KFD2");
    EXPECT_EQ(table.Text(6, 1), "k6");

    EXPECT_FALSE(LoadDeviceTypeTable(dir.path + "/missing.cfg", table));
}

TEST(DeviceTypeTable, BinaryOrEmptyFilesLoadNoRows)
{
    TempDir dir;
    const char binary[] = {'\x00', '\xff', '\xfe', 'D', '\x00', '\x01', '\n', '\x7f'};
    wxFile(dir.path + "/bin.cfg", wxFile::write).Write(binary, sizeof binary);
    for (const char* name : {"bin.cfg", "empty.cfg"}) {
        if (wxString(name) == "empty.cfg")
            dir.Write(name, "");
        DeviceTypeTable table;
        EXPECT_TRUE(LoadDeviceTypeTable(dir.path + "/" + name, table)) << name;
        EXPECT_EQ(table.deviceTypeCount, 0) << name;
    }
}

TEST(DeviceTypeTable, FileLivesInTheBuildFolderOfTheTemplates)
{
    InstallationEnvironment env;
#ifdef __WINDOWS__
    env.TgxTemplatesPath = "C:\\TGx\\tgxtemplates";
    EXPECT_EQ(DeviceTypeFilePath(env), "C:\\TGx\\tgxtemplates\\BUILD\\ct.cfg");
#else
    env.TgxTemplatesPath = "/opt/tgx/tgxtemplates";
    EXPECT_EQ(DeviceTypeFilePath(env), "/opt/tgx/tgxtemplates/BUILD/ct.cfg");
#endif
}

// A project file and the map file beside it (the input cut at its first NUL byte), loaded as
// Load from Disk loads them, then checked, shown in the
// main window, and turned into the project file's and the configuration's lines.
#include "fakes/test_context.h"
#include "fuzz_support.h"
#include "deploy/config_generator.h"
#include "project/command_list.h"
#include "project/device_list.h"
#include "project/panel_view.h"
#include "project/project_check.h"
#include "project/project_commands.h"
#include "project/project_file.h"
#include "project/text_file.h"

#include <fstream>
#include <unistd.h>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const std::string folder = "/tmp/tgx-fuzz-" + std::to_string(getpid());
    static const bool made = wxMkdir(folder) || wxDirExists(folder);
    const std::vector<std::string> parts = FuzzParts(data, size, 2);
    const std::string path = folder + "/fuzz.prj";
    std::ofstream(path, std::ios::binary | std::ios::trunc) << parts[0];
    std::ofstream(folder + "/fuzz.mbd", std::ios::binary | std::ios::trunc) << (parts.size() > 1 ? parts[1] : "");
    TestContext t;
    ParseDeviceTypeLine("DEV_TYPE Generic g.ini g1.ini g2.ini g3.ini gm.ini", t.deviceTypes);
    ParseDeviceTypeLine("DEV_TYPE KFD2 k.ini k1.ini k2.ini k3.ini km.ini", t.deviceTypes);
    if (!made || ReadProjectFromDisk(t.ctx, path) != ProjectReadResult::Read)
        return 0;
    CheckProject(t.project, t.deviceTypes, wxString(path));
    DeviceListLines(t.project);
    CommandListLines(t.project);
    BuildPanelView(t.project);
    ProjectFileLines(t.project);
    BuildCtIniLines(t.project, t.deviceTypes);
    BuildDbSaveLines(t.project);
    return 0;
}

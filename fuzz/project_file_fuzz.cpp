// A project file and its map file loaded from disk as tgxcfg loads them, whatever their bytes
// (UTF-16 and UTF-32 with their BOMs, Latin-1, NUL bytes); the loaded project checked, shown and
// generated from; then saved, loaded again and saved again. The two loads must give the same
// project and the two saves the same bytes. The input is the .prj's bytes, then kMapSeparator and
// the .mbd's; without the separator there is no map file. Not met here, the inputs being small:
// a map near the 16 MB a read takes may grow past them saved in UTF-8 (Latin-1 or UTF-16 text,
// LF ends made CR LF), and the next load refuses it.
#include "deploy/project_save.h"
#include "fakes/test_context.h"
#include "fuzz_support.h"
#include "deploy/config_generator.h"
#include "project/command_list.h"
#include "project/device_list.h"
#include "project/panel_view.h"
#include "project/project_check.h"
#include "commands/project_commands.h"
#include "project/project_diff.h"
#include "project/project_file.h"

#include <memory>

namespace {

const char kMapSeparator[] = "\x1Dmbd\x1D";

// One run of the tool on its own project; a save that cannot write its file is a finding.
struct Run : TestContext {
    // Saves as FILE.prj and FILE.mbd in the user-defined map mode, so that the automatic map's
    // outside tools do not run (the mode the file gave is not compared; it is read as every other
    // number is). Both files' bytes.
    std::string Save(const std::string& path)
    {
        project.automaticModbusMap = 0;
        SaveProject(ctx, path);
        for (const wxString& event : ui.events)
            if (event.StartsWith("failed save: "))
                FuzzFail(event);
        return Bytes(path) + kMapSeparator + Bytes(MapFilePath(path).utf8_string());
    }
    static std::string Bytes(const std::string& path)
    {
        std::ifstream in(path, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), {});
    }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string input(reinterpret_cast<const char*>(data), size);
    const size_t separator = input.find(kMapSeparator);
    const wxString path = FuzzFile("input.prj", input.substr(0, separator));
    wxRemoveFile(MapFilePath(path));
    if (separator != std::string::npos)
        FuzzFile("input.mbd", input.substr(separator + sizeof kMapSeparator - 1));

    auto first = std::make_unique<Run>();
    ParseDeviceTypeLine("DEV_TYPE Generic g.ini g1.ini g2.ini g3.ini gm.ini", first->deviceTypes);
    ParseDeviceTypeLine("DEV_TYPE KFD2 k.ini k1.ini k2.ini k3.ini km.ini", first->deviceTypes);
    if (ReadProjectFromDisk(first->ctx, path) != ProjectReadResult::Read)
        return 0;
    CheckProject(first->project, first->deviceTypes, path);
    DeviceListLines(first->project);
    CommandListLines(first->project);
    BuildPanelView(first->project);
    BuildCtIniLines(first->project, first->deviceTypes);
    BuildDbSaveLines(first->project);

    const std::string saved = first->Save(FuzzPath("saved.prj"));
    auto second = std::make_unique<Run>();
    FUZZ_CHECK(ReadProjectFromDisk(second->ctx, FuzzPath("saved.prj")) == ProjectReadResult::Read);
    // Nothing normalised: the first load keeps only what the writer writes back as it is (texts cut
    // to their fields and ended at a NUL, characters without a UTF-8 form replaced).
    for (const ProjectDifference& difference : DiffProjects(first->project, second->project))
        FuzzFail("the saved project loads otherwise: " + FormatDifference(difference));
    FUZZ_CHECK(second->Save(FuzzPath("again.prj")) == saved);
    return 0;
}

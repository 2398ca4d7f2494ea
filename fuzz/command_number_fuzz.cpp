// The command dialog's typed Command Number ("48:1,2,3") and Interval, cut at a NUL byte.
#include "fuzz_support.h"
#include "commands/command_editing.h"
#include "project/project.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::vector<std::string> parts = FuzzParts(data, size, 2);
    HartCommandEntry command;
    if (ParseCommandEntry(FuzzText(parts[0]), parts.size() > 1 ? FuzzText(parts[1]) : wxString("1"), command))
        CommandNumberText(command);
    return 0;
}

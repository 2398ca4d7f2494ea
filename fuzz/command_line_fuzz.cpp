// tgxcfg's command line, one argument per NUL-separated part.
#include "cli/command_line.h"
#include "fuzz_support.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    wxArrayString args;
    for (const std::string& part : FuzzParts(data, size))
        args.Add(FuzzText(part));
    ParseCommandLine(args);
    return 0;
}

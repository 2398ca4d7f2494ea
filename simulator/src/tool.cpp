#include "tool.h"

#include "text_io.h"

#include <wx/filename.h>

namespace sim {

bool GatewayTool::TakeHost(const wxArrayString& args, size_t minCount, size_t maxCount, wxString& problem)
{
    if (args.size() < minCount || args.size() > maxCount) {
        problem = minCount == maxCount
            ? wxString::Format("expected %zu argument%s, got %zu", minCount, minCount == 1 ? "" : "s", args.size())
            : wxString::Format("expected %zu to %zu arguments, got %zu", minCount, maxCount, args.size());
        return false;
    }
    host = args[0];
    if (host.empty() || host.StartsWith("-") || host.find_first_of(" \t") != wxString::npos) {
        problem = "'" + host + "' is not a gateway address";
        return false;
    }
    return true;
}

wxString LocalPath(const ToolContext& context, const wxString& path)
{
    wxFileName name(path);
    name.MakeAbsolute(context.workingDirectory);
    return name.GetFullPath();
}

void ToolError(const wxString& tool, const wxString& message) { PrintError(tool + ": " + message); }

}  // namespace sim

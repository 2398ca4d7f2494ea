#include "map_editor.h"

#include "exit_codes.h"
#include "text_io.h"

#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/stdpaths.h>
#include <wx/utils.h>

namespace sim {

namespace {

wxString TagOf(const wxString& mapLine)
{
    wxString rest = mapLine;
    for (int i = 0; i < 4; ++i)
        rest = rest.AfterFirst(',');
    return rest.BeforeFirst(',').Trim().Trim(false);
}

// Replaces (or, with an empty `replacement`, removes) the lines of `tag`; false when none has it.
bool ChangeTag(wxArrayString& map, const wxString& tag, const wxString* replacement)
{
    bool found = false;
    for (size_t i = map.size(); i-- > 0;) {
        if (TagOf(map[i]) != tag)
            continue;
        found = true;
        if (replacement)
            map[i] = *replacement;
        else
            map.RemoveAt(i);
    }
    return found;
}

}  // namespace

bool ApplyMapEditScript(const wxArrayString& script, wxArrayString& map, MapEditOutcome& outcome, wxString& problem)
{
    outcome = MapEditOutcome::Saved;
    for (size_t i = 0; i < script.size(); ++i) {
        const wxString line = wxString(script[i]).Trim().Trim(false);
        if (line.empty() || line.StartsWith("#"))
            continue;
        wxString rest;
        const wxString step = line.BeforeFirst(' ', &rest);
        const wxString tag = rest.BeforeFirst(' ');
        const wxString afterTag = rest.AfterFirst(' ');
        bool ok = true;
        if (step == "add" && !rest.empty())
            map.Add(rest);
        else if (step == "replace" && !afterTag.empty())
            ok = ChangeTag(map, tag, &afterTag);
        else if (step == "delete" && !tag.empty() && afterTag.empty())
            ok = ChangeTag(map, tag, nullptr);
        else if (line == "discard")
            outcome = MapEditOutcome::Discarded;
        else {
            problem = wxString::Format("line %zu: unknown step '%s'", i + 1, line);
            return false;
        }
        if (!ok) {
            problem = wxString::Format("line %zu: no map line has the tag '%s'", i + 1, tag);
            return false;
        }
    }
    return true;
}

int RunEditorWindow(const wxString& mapPath)
{
#ifndef __WINDOWS__
    wxString display;
    if (!wxGetEnv("DISPLAY", &display) || display.empty())
        return kExitOk;
#endif
    wxFileName window(wxStandardPaths::Get().GetExecutablePath());
    window.SetName("tgxsim-mbedit");
    if (!window.FileExists())
        return kExitOk;
    const long code = wxExecute("\"" + window.GetFullPath() + "\" \"" + mapPath + "\"", wxEXEC_SYNC | wxEXEC_NOEVENTS);
    return code < 0 ? kExitFailed : static_cast<int>(code);
}

}  // namespace sim

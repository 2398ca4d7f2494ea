// The local map chain of the suite: inifile (expands the built configuration into the Modbus
// map or the data-point list), dbtojson (the data-point list as JSON) and mbedit (the Modbus map
// editor). They work on the files ttbuild wrote into the build's OUTPUT folder.
#include "exit_codes.h"
#include "map_editor.h"
#include "text_io.h"
#include "tools.h"

#include <wx/filefn.h>
#include <wx/filename.h>

namespace sim {

namespace {

constexpr int kMaxIncludeDepth = 8;

// inifile NAME [-p=FOLDER] -mb|-db
//
// NAME (".ini" added when it has no extension) is read in the current folder; its "#include FILE"
// lines are followed, FILE looked for beside the including file and then in the -p folder. -mb
// prints the value of every "MBITEM=" line (one map line each, in order), -db the value of every
// "POINT=" line (TAGNAME,TYPE,DESCRIPTION).
class IniFileTool : public Tool {
public:
    wxString Usage() const override { return "inifile NAME [-p=FOLDER] -mb|-db"; }

    bool ParseArguments(const wxArrayString& args, wxString& problem) override
    {
        for (const wxString& arg : args) {
            if (arg == "-mb" || arg == "-db") {
                if (!key.empty()) {
                    problem = "give one of -mb and -db";
                    return false;
                }
                key = arg == "-mb" ? "MBITEM=" : "POINT=";
            } else if (arg.StartsWith("-p=")) {
                extraFolder = arg.Mid(3);
            } else if (arg.StartsWith("-")) {
                problem = "unknown option '" + arg + "'";
                return false;
            } else if (name.empty()) {
                name = arg;
            } else {
                problem = "unexpected argument '" + arg + "'";
                return false;
            }
        }
        if (name.empty() || key.empty()) {
            problem = name.empty() ? "no input file given" : "give one of -mb and -db";
            return false;
        }
        return true;
    }

    int Run(ToolContext& context) override
    {
        wxFileName file(name);
        if (!file.HasExt())
            file.SetExt("ini");
        const wxString path = LocalPath(context, file.GetFullPath());
        if (!wxFileExists(path)) {
            ToolError("inifile", "cannot open " + path);
            return kExitFailed;
        }
        wxArrayString values;
        const wxString folder = extraFolder.empty() ? wxString() : LocalPath(context, extraFolder);
        const int code = Expand(path, folder, 0, values);
        if (code != kExitOk)
            return code;
        for (const wxString& value : values)
            PrintLine(value);
        return kExitOk;
    }

private:
    int Expand(const wxString& path, const wxString& extra, int depth, wxArrayString& values) const
    {
        wxArrayString lines;
        if (!ReadLines(path, lines)) {
            ToolError("inifile", "cannot read " + path);
            return kExitFailed;
        }
        for (size_t i = 0; i < lines.size(); ++i) {
            const wxString line = wxString(lines[i]).Trim(false);
            if (line.StartsWith("#include")) {
                const wxString included = line.Mid(8).Trim().Trim(false);
                wxString found;
                if (!Locate(included, wxFileName(path).GetPath(), extra, found)) {
                    ToolError("inifile", wxString::Format("include '%s' not found (%s line %zu)", included,
                                                          wxFileName(path).GetFullName(), i + 1));
                    return kExitMissingTemplate;
                }
                if (depth + 1 >= kMaxIncludeDepth) {
                    ToolError("inifile", "includes nested too deep at " + found);
                    return kExitTemplateError;
                }
                const int code = Expand(found, extra, depth + 1, values);
                if (code != kExitOk)
                    return code;
            } else if (line.StartsWith(key)) {
                values.Add(line.Mid(key.length()));
            }
        }
        return kExitOk;
    }

    static bool Locate(const wxString& included, const wxString& besideFolder, const wxString& extra, wxString& found)
    {
        for (const wxString& folder : {besideFolder, extra}) {
            if (folder.empty())
                continue;
            wxFileName candidate(included);
            candidate.MakeAbsolute(folder);
            if (wxFileExists(candidate.GetFullPath())) {
                found = candidate.GetFullPath();
                return true;
            }
        }
        return false;
    }

    wxString name;
    wxString extraFolder;
    wxString key;
};

wxString JsonText(const wxString& text)
{
    wxString quoted = "\"";
    for (const wxUniChar c : text) {
        if (c == '"' || c == '\\')
            quoted << '\\' << c;
        else if (c < 0x20)
            quoted << wxString::Format("\\u%04x", static_cast<int>(c.GetValue()));
        else
            quoted << c;
    }
    return quoted + "\"";
}

// dbtojson LIST JSON: the data-point list (TAGNAME,TYPE,DESCRIPTION per line) as a JSON document
// {"points": [{"tag": ..., "type": ..., "description": ...}, ...]}, the editor's input.
class DbToJsonTool : public Tool {
public:
    wxString Usage() const override { return "dbtojson LIST JSON"; }
    bool ParseArguments(const wxArrayString& args, wxString& problem) override
    {
        if (args.size() != 2) {
            problem = wxString::Format("expected 2 arguments, got %zu", args.size());
            return false;
        }
        input = args[0];
        output = args[1];
        return true;
    }
    int Run(ToolContext& context) override
    {
        wxArrayString lines;
        if (!ReadLines(LocalPath(context, input), lines)) {
            ToolError("dbtojson", "cannot read " + input);
            return kExitFailed;
        }
        wxArrayString json;
        json.Add("{");
        json.Add("  \"points\": [");
        for (size_t i = 0; i < lines.size(); ++i) {
            const wxString tag = lines[i].BeforeFirst(',');
            const wxString rest = lines[i].AfterFirst(',');
            json.Add(wxString::Format("    {\"tag\": %s, \"type\": %s, \"description\": %s}%s", JsonText(tag),
                                      JsonText(rest.BeforeFirst(',')), JsonText(rest.AfterFirst(',')),
                                      i + 1 < lines.size() ? "," : ""));
        }
        json.Add("  ]");
        json.Add("}");
        if (!WriteLines(LocalPath(context, output), json)) {
            ToolError("dbtojson", "cannot write " + output);
            return kExitCannotWrite;
        }
        return kExitOk;
    }

private:
    wxString input;
    wxString output;
};

// mbedit /d POINTS.json /m MAP.mbd /s BYTEORDER: edits the map file in place. The edit comes
// from mbedit.txt in the state folder when there is one (map_editor.h); otherwise, with a
// display, from a person in the editor window; otherwise the map is left as it is.
class MbEditTool : public Tool {
public:
    wxString Usage() const override { return "mbedit /d POINTS.json /m MAP.mbd /s BYTEORDER"; }
    bool ParseArguments(const wxArrayString& args, wxString& problem) override
    {
        if (args.size() != 6 || args[0] != "/d" || args[2] != "/m" || args[4] != "/s") {
            problem = "expected /d POINTS.json /m MAP.mbd /s BYTEORDER";
            return false;
        }
        long order = 0;
        if (!args[5].ToLong(&order) || order < 0 || order > 14 || order % 2 != 0) {
            problem = "'" + args[5] + "' is not a byte order (0 to 14, even)";
            return false;
        }
        points = args[1];
        map = args[3];
        return true;
    }
    int Run(ToolContext& context) override
    {
        const wxString pointsPath = LocalPath(context, points);
        const wxString mapPath = LocalPath(context, map);
        wxArrayString mapLines, pointLines;
        if (!ReadLines(pointsPath, pointLines) || !ReadLines(mapPath, mapLines)) {
            ToolError("mbedit", "cannot read " + (wxFileExists(pointsPath) ? mapPath : pointsPath));
            return kExitFailed;
        }
        wxArrayString script;
        if (ReadLines(context.state.File("mbedit.txt"), script)) {
            wxString problem;
            MapEditOutcome outcome = MapEditOutcome::Discarded;
            if (!ApplyMapEditScript(script, mapLines, outcome, problem)) {
                ToolError("mbedit", "mbedit.txt: " + problem);
                return kExitFailed;
            }
            if (outcome == MapEditOutcome::Discarded)
                return kExitOk;
            return WriteLines(mapPath, mapLines) ? kExitOk : kExitCannotWrite;
        }
        return RunEditorWindow(mapPath);
    }

private:
    wxString points;
    wxString map;
};

}  // namespace

std::unique_ptr<Tool> MakeIniFileTool() { return std::make_unique<IniFileTool>(); }
std::unique_ptr<Tool> MakeDbToJsonTool() { return std::make_unique<DbToJsonTool>(); }
std::unique_ptr<Tool> MakeMbEditTool() { return std::make_unique<MbEditTool>(); }

}  // namespace sim

// A scratch folder that disappears with the test.
#pragma once

#include <wx/dir.h>
#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/file.h>

class TempDir {
public:
    TempDir()
    {
        path = wxFileName::CreateTempFileName(wxFileName::GetTempDir() + "/tgxtest");
        wxRemoveFile(path);
        wxFileName::Mkdir(path, wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
    }
    ~TempDir() { wxFileName::Rmdir(path, wxPATH_RMDIR_RECURSIVE); }
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    // Writes a file below the folder (creating its folders) and returns its full path.
    wxString Write(const wxString& relative, const wxString& content) const
    {
        const wxString full = path + "/" + relative;
        wxFileName::Mkdir(wxFileName(full).GetPath(), wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
        wxFile file(full, wxFile::write);
        file.Write(content, wxConvUTF8);
        return full;
    }

    wxString path;
};

#include "deploy/private_folder.h"

#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/log.h>

#include <random>

PrivateFolder::PrivateFolder(const wxString& prefix)
{
    wxLogNull quiet;
    std::random_device entropy;
    std::mt19937_64 random((static_cast<std::uint64_t>(entropy()) << 32) ^ entropy());
    const wxString parent = wxFileName::GetTempDir() + wxFileName::GetPathSeparator() + prefix + "-";
    for (int attempt = 0; attempt < 100; ++attempt) {
        const wxString candidate = parent + wxString::Format("%016llx", static_cast<unsigned long long>(random()));
        // mkdir fails when the name exists in any form (folder, file, link), so what is made
        // here is new and, on POSIX, readable by its owner alone.
        if (wxMkdir(candidate, 0700)) {
            path = candidate;
            return;
        }
    }
}

PrivateFolder::~PrivateFolder()
{
    if (!Created())
        return;
    wxLogNull quiet;
    wxFileName::Rmdir(path, wxPATH_RMDIR_RECURSIVE);
}

wxString PrivateFolder::File(const wxString& name) const
{
    return path + wxFileName::GetPathSeparator() + name;
}

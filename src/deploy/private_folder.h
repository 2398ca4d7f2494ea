// A scratch folder of one run's own: made new under the system's temporary folder, so that no
// other person or window on the machine shares it, and removed with its files afterwards.
#pragma once

#include <wx/string.h>

class PrivateFolder {
public:
    // Creates a folder named PREFIX-<random> that did not exist before; Created() tells.
    explicit PrivateFolder(const wxString& prefix);
    // Removes the folder and everything in it.
    ~PrivateFolder();
    PrivateFolder(const PrivateFolder&) = delete;
    PrivateFolder& operator=(const PrivateFolder&) = delete;

    bool Created() const { return !path.empty(); }
    wxString Path() const { return path; }
    // A file in the folder.
    wxString File(const wxString& name) const;

private:
    wxString path;
};

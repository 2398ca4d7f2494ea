// The port of the modeless multiplexer configurator window: the logic shows the multiplexer's
// rows in it and reads back which the user picked. The desktop window is a grid; tgxcfg prints.
#pragma once

#include <wx/string.h>

#include <vector>

// One row of the grid: TYPE, TAGNAME, DESCRIPTION, ADDRESS.
struct MuxRow {
    wxString type;
    wxString tagName;
    wxString description;
    wxString address;
};

class MuxScanWindow {
public:
    virtual ~MuxScanWindow() = default;

    // Replaces every row of the grid.
    virtual void ShowRows(const std::vector<MuxRow>& rows) = 0;
    virtual std::vector<MuxRow> Rows() const = 0;
    // The selected rows, in the order the grid reports them.
    virtual std::vector<int> SelectedRows() const = 0;
    // Enables the main window's Scan command again and ends the window.
    virtual void CloseScanWindow() = 0;
};

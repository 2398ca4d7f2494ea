// The multiplexer configurator window: the multiplexer's devices in a grid, and the buttons that
// turn them into the project's devices or rebuild the multiplexer's loops. Modeless; it outlives
// the Scan command.
#pragma once

#include "base/mux_scan_window.h"

#include <wx/button.h>
#include <wx/frame.h>
#include <wx/grid.h>

#include <functional>

struct AppContext;

// The generated layer: grid, buttons and an empty handler per button.
class MUXScanFrameBase : public wxFrame {
public:
    MUXScanFrameBase(wxWindow* parent, wxWindowID id = wxID_ANY, const wxString& title = wxEmptyString,
                     const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxSize(493, 300),
                     long style = wxDEFAULT_FRAME_STYLE);

    wxGrid* m_grid;
    wxButton* m_buttonAddAll;
    wxButton* m_buttonAddSelected;
    wxButton* m_buttonRebuildLoops;
    wxButton* m_buttonClose;

protected:
    virtual void OnAddAll(wxCommandEvent& event) { event.Skip(); }
    virtual void OnAddSelected(wxCommandEvent& event) { event.Skip(); }
    virtual void OnRebuildLoops(wxCommandEvent& event) { event.Skip(); }
    virtual void OnClose(wxCommandEvent& event) { event.Skip(); }
};

class MUXScanFrame : public MUXScanFrameBase, public MuxScanWindow {
public:
    // onClosed: run when the window goes, whichever way it is closed.
    MUXScanFrame(AppContext& ctx, std::function<void()> onClosed);

    void ShowRows(const std::vector<MuxRow>& rows) override;
    std::vector<MuxRow> Rows() const override;
    std::vector<int> SelectedRows() const override;
    void CloseScanWindow() override;

protected:
    void OnAddAll(wxCommandEvent& event) override;
    void OnAddSelected(wxCommandEvent& event) override;
    void OnRebuildLoops(wxCommandEvent& event) override;
    void OnClose(wxCommandEvent& event) override;

private:
    void OnCloseWindow(wxCloseEvent& event);

    AppContext& ctx;
    std::function<void()> onClosed;
};
